#pragma once

#include <cerrno>
#include <string>

namespace halvern::test {

/// What becomes of the call that is to fail.
enum class Fault {
    kRefused,      ///< it fails; nothing of it is done, but that a descriptor is closed all the same
    kHalfTaken,    ///< a write takes half of its bytes, and the one that follows fails; other calls fail
    kNoneTaken,    ///< a write takes no byte and gives no reason; other calls fail
    kInterrupted,  ///< a signal has come: it fails with EINTR, once
};

/// One call of many that fails.
struct FaultPlan {
    int call = 0;  ///< which of the calls counted, from 1; 0 for none
    int error = ENOSPC;
    Fault fault = Fault::kRefused;
    bool forGood = false;  ///< all calls that follow fail too, as on a disk that stays full
};

/// The calls that the program makes for the files below a folder: open, read, write, fsync, close, rename, unlink,
/// mkdir and fstat of regular files.
///
/// They are counted by functions of the same names, which stand in front of the system's in a program that is linked
/// with failing_calls.cpp, and in front of any program's when the module made of it is loaded first. The programs
/// themselves hold nothing of this.
///
/// Counts from 0 on, and lets calls fail by the plan.
void BeginFaults(const std::string& folder, const FaultPlan& plan);

/// Lets all calls through again, and tells how many were counted.
int EndFaults();

/// How many calls failed, since the process began.
int FaultsInjected();

}  // namespace halvern::test
