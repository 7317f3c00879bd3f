// What makes calls fail in a program that was built without them: a module that is loaded in front of everything else,
// told by its environment what is to fail.
//
//   FAULTS_BELOW=FOLDER    the files concerned
//   FAULTS_CALL=NUMBER     the call that fails; 0 for none
//   FAULTS_ERROR=NUMBER    value of errno
//   FAULTS_HOW=refused|half|interrupted
//   FAULTS_FOR_GOOD=1      all that follow fail too
//   FAULTS_REPORT=FILE     gets the number of calls counted and of those that failed

#include <cstdio>
#include <cstdlib>
#include <string>

#include "faults/failing_calls.h"

namespace {

using namespace halvern::test;

std::string Setting(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

Fault FaultOf(const std::string& how) {
    if (how == "half")
        return Fault::kHalfTaken;
    return how == "interrupted" ? Fault::kInterrupted : Fault::kRefused;
}

/// Begins when the module is loaded, and ends with the program.
struct Faults {
    Faults() {
        BeginFaults(Setting("FAULTS_BELOW"), {.call = std::atoi(Setting("FAULTS_CALL").c_str()),
                                              .error = std::atoi(Setting("FAULTS_ERROR").c_str()),
                                              .fault = FaultOf(Setting("FAULTS_HOW")),
                                              .forGood = !Setting("FAULTS_FOR_GOOD").empty()});
    }
    ~Faults() {
        const int calls = EndFaults();
        if (std::FILE* const report = std::fopen(Setting("FAULTS_REPORT").c_str(), "w")) {
            std::fprintf(report, "%d %d\n", calls, FaultsInjected());
            std::fclose(report);
        }
    }
} faults;

}  // namespace
