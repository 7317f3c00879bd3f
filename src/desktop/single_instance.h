#pragma once

#include <QLockFile>

namespace halvern {

/// A lock of this user's that one instance of the program holds while it runs. The lock of an instance that was killed
/// holds nobody up.
class SingleInstance {
  public:
    SingleInstance();

    /// Takes the lock if nobody has it; with the lock taken, every further call says that no other instance runs.
    bool AnotherRuns();

  private:
    QLockFile lock_;
};

}  // namespace halvern
