#include "store/file_command.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "store/failure.h"
#include "store/files.h"
#include "support/data_files.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct FileCommand : ::testing::Test {
    test::DataFolder folder;
    test::TestDesktop desktop;
};

TEST_F(FileCommand, ThatSucceedsSaysNothing) {
    int runs = 0;
    RunFileCommand([&] { ++runs; }, "never shown");
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_TRUE(desktop.pointers.empty());
}

TEST_F(FileCommand, ThatFailsShowsItsMessage) {
    for (const FailureCode code : {FailureCode::kInvalidProcedureCall, FailureCode::kDiskFull,
                                   FailureCode::kSubscriptOutOfRange, FailureCode::kTooManyFiles}) {
        desktop.messages.clear();
        RunFileCommand([&] { Fail(code); }, "Error in Saving Text File!");
        ASSERT_EQ(desktop.messages.size(), 1U);
        EXPECT_EQ(desktop.messages[0].text, "Error in Saving Text File!");
        EXPECT_EQ(desktop.messages[0].title, "Output File Error");
        EXPECT_EQ(desktop.messages[0].style, 48);
    }
}

TEST_F(FileCommand, ThatIsCancelledSaysNothing) {
    bool wentOn = false;
    desktop.choices.push_back(std::nullopt);
    RunFileCommand(
        [&] {
            ChooseNewFile({});
            wentOn = true;
        },
        "never shown");
    EXPECT_FALSE(wentOn);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(FileCommand, GivesThePointerBack) {
    RunFileCommand(
        [] {
            MousePointer(kPointerHourglass);
            Fail(FailureCode::kDiskFull);
        },
        "message");
    EXPECT_EQ(desktop.pointer, kPointerNormal);
}

TEST_F(FileCommand, LeavesAnInterruptedFileOpenWithItsLines) {
    RunFileCommand(
        [] {
            OpenForOutput(1, "out.txt");
            WriteLine(1, "first");
            WriteLine(1, "second");
            Fail(FailureCode::kOverflow);
        },
        "message");
    EXPECT_EQ(test::ContentOf("out.txt"), "first\r\nsecond\r\n");
    EXPECT_EQ(FreeFile(), 2);
    WriteLine(1, "third");
    Close(1);
    EXPECT_EQ(test::ContentOf("out.txt"), "first\r\nsecond\r\nthird\r\n");
}

TEST_F(FileCommand, ShowsTheMessageWithTheLinesInTheFile) {
    std::string seen;
    desktop.atPass = [&] { seen = test::ContentOf("out.txt"); };
    RunFileCommand(
        [] {
            OpenForOutput(1, "out.txt");
            WriteLine(1, "first");
            OpenForOutput(1, "other.txt");
        },
        "message");
    DoEvents();
    EXPECT_EQ(seen, "first\r\n");
    EXPECT_EQ(desktop.messages.size(), 1U) << "the number was in use";
}

TEST_F(FileCommand, PassesOnWhatIsNoFailureOfTheProgram) {
    EXPECT_THROW(RunFileCommand([] { throw ProgramEnd{}; }, "message"), ProgramEnd);
    EXPECT_THROW(RunFileCommand([] { throw std::bad_alloc(); }, "message"), std::bad_alloc);
    EXPECT_TRUE(desktop.messages.empty());
}

}  // namespace
}  // namespace halvern
