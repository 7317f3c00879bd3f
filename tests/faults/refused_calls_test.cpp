#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <iterator>

#include "faults/failing_calls.h"
#include "store/file_calls.h"
#include "support/data_files.h"

namespace halvern {
namespace {

namespace fs = std::filesystem;

/// The calls of ReplaceFile, in their order.
enum Call { kOpen = 1, kWrite, kSync, kClose, kRename };

struct RefusedCalls : ::testing::Test {
    RefusedCalls() { folder.Write("old.bin", kOld); }

    static constexpr const char* kOld = "a longer text than the new one";
    test::DataFolder folder;

    /// The message of ReplaceFile, with the fault.
    static std::string Replace(const std::string& name, const test::FaultPlan& plan) {
        test::BeginFaults(fs::current_path().string(), plan);
        const std::error_code error = ReplaceFile(name, "new");
        test::EndFaults();
        return error ? error.message() : std::string();
    }

    void ExpectReplacedInSpiteOf(Call call, std::initializer_list<int> errors) const {
        for (const int error : errors) {
            folder.Write("old.bin", kOld);
            EXPECT_EQ(Replace("old.bin", {.call = call, .error = error}), "") << error;
            EXPECT_EQ(test::ContentOf("old.bin"), "new") << error;
        }
    }

    void ExpectOnlyTheOldFile() const {
        EXPECT_EQ(test::ContentOf("old.bin"), kOld);
        EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), 1);
    }
};

TEST_F(RefusedCalls, OfFileSystemsThatCantSyncAreNoFailure) {
    ExpectReplacedInSpiteOf(kSync, {EINVAL, ENOSYS, EOPNOTSUPP});
}

TEST_F(RefusedCalls, OfASyncThatFailsLeaveTheOldFile) {
    EXPECT_EQ(Replace("old.bin", {.call = kSync, .error = EIO}), "Input/output error");
    ExpectOnlyTheOldFile();
}

TEST_F(RefusedCalls, OfACloseThatFailsLeaveTheOldFile) {
    EXPECT_EQ(Replace("old.bin", {.call = kClose, .error = EDQUOT}), "Disk quota exceeded");
    ExpectOnlyTheOldFile();
}

TEST_F(RefusedCalls, OfACloseThatASignalInterruptsHaveClosedTheFile) {
    EXPECT_EQ(Replace("old.bin", {.call = kClose, .fault = test::Fault::kInterrupted}), "");
    EXPECT_EQ(test::ContentOf("old.bin"), "new");
}

TEST_F(RefusedCalls, OfAWriteThatTakesNothingAreFaultsOfTheDevice) {
    EXPECT_EQ(Replace("old.bin", {.call = kWrite, .fault = test::Fault::kNoneTaken}), "Input/output error");
    ExpectOnlyTheOldFile();
}

TEST_F(RefusedCalls, OfARenameLeaveTheOldFile) {
    EXPECT_EQ(Replace("old.bin", {.call = kRename, .error = EBUSY}), "Device or resource busy");
    ExpectOnlyTheOldFile();
}

TEST_F(RefusedCalls, OfASecondFileInTheFolderLetTheOldOneBeWritten) {
    ExpectReplacedInSpiteOf(kOpen, {EACCES, EPERM, EROFS});
}

TEST_F(RefusedCalls, OfASecondFileForAnotherReasonLeaveTheOldOne) {
    EXPECT_EQ(Replace("old.bin", {.call = kOpen, .error = ENOSPC}), "No space left on device");
    ExpectOnlyTheOldFile();
}

TEST_F(RefusedCalls, OfTheFirstFileOfANameMakeNone) {
    for (const int error : {EACCES, EPERM, EROFS, ENOSPC})
        EXPECT_NE(Replace("none.bin", {.call = kOpen, .error = error}), "");
    ExpectOnlyTheOldFile();
}

TEST_F(RefusedCalls, TryAnotherNameWhereOneIsTaken) {
    EXPECT_EQ(Replace("old.bin", {.call = kOpen, .error = EEXIST}), "");
    EXPECT_EQ(test::ContentOf("old.bin"), "new");
}

TEST_F(RefusedCalls, EndWhereEveryNameIsTaken) {
    EXPECT_EQ(Replace("old.bin", {.call = kOpen, .error = EEXIST, .forGood = true}), "File exists");
    ExpectOnlyTheOldFile();
}

}  // namespace
}  // namespace halvern
