#include "desktop/event_gate.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "shell/version.h"
#include "store/failure.h"
#include "ui/desktop.h"

namespace halvern {
namespace {

struct Gate : ::testing::Test {
    EventGate gate;
    std::vector<std::string> boxes;
    int ends = 0;

    Gate() {
        gate.TellFailure = [this](const std::string& text) { boxes.push_back(text); };
        gate.AfterEvent = [this] { ++ends; };
    }
};

TEST_F(Gate, RunsAnEvent) {
    bool ran = false;
    gate.Run([&] { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_FALSE(gate.HasEnded());
    EXPECT_NO_THROW(gate.ThrowIfEnded());
}

TEST_F(Gate, LooksAtTheEndOfTheOutermostEventAlone) {
    gate.Run([&] {
        gate.Run([] {});
        EXPECT_EQ(ends, 0);
    });
    EXPECT_EQ(ends, 1);
}

TEST_F(Gate, EndsWithStatusZeroByTheProgramsOwnChoice) {
    gate.Run([] { EndProgram(); });
    EXPECT_TRUE(gate.HasEnded());
    EXPECT_EQ(gate.Status(), 0);
    EXPECT_TRUE(boxes.empty());
    EXPECT_THROW(gate.ThrowIfEnded(), ProgramEnd);
}

TEST_F(Gate, TellsARunTimeFailureAndEndsWithStatus70) {
    testing::internal::CaptureStderr();
    gate.Run([] { Fail(FailureCode::kDivisionByZero); }, "click KeldIt");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Run-time error '11': Division by zero\n  running: click KeldIt\n  version: halvern " +
                  RevisionNumbers() + "\n");
    EXPECT_EQ(boxes, std::vector<std::string>{"Run-time error '11':\r\n\r\nDivision by zero"});
    EXPECT_TRUE(gate.HasEnded());
    EXPECT_EQ(gate.Status(), 70);
}

TEST_F(Gate, TellsAnyOtherFailureLikewise) {
    testing::internal::CaptureStderr();
    gate.Run([] { throw std::out_of_range("line 7"); }, "type Text1");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "internal error: line 7\n  running: type Text1\n  version: halvern " + RevisionNumbers() + "\n");
    EXPECT_EQ(boxes, std::vector<std::string>{"line 7"});
    EXPECT_EQ(gate.Status(), 70);
}

TEST_F(Gate, TellsEveryEventThatIsRunningAtAFailureTheOutermostFirst) {
    testing::internal::CaptureStderr();
    gate.Run([&] { gate.Run([] {}, "type Text1"); }, "click CancelButton");
    gate.Run([&] { gate.Run([] { Fail(FailureCode::kPrinterError, "the \x1B[2Jprinter"); }, "click IsOK"); },
             "click Set_MenManually");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Run-time error '482': Printer error\n"
              "  with: the \\x1b[2Jprinter\n"
              "  running: click Set_MenManually\n"
              "  running: click IsOK\n"
              "  version: halvern " +
                  RevisionNumbers() + "\n");
}

TEST_F(Gate, LetsNothingInBehindTheBoxOfAFailure) {
    bool ran = false;
    gate.TellFailure = [&](const std::string&) { gate.Run([&] { ran = true; }); };
    testing::internal::CaptureStderr();
    gate.Run([] { Fail(FailureCode::kOverflow); });
    testing::internal::GetCapturedStderr();
    EXPECT_FALSE(ran);
}

TEST_F(Gate, LeavesTheOuterHandlerWhenANestedOneHasEndedTheProgram) {
    bool wentOn = false;
    gate.Run([&] {
        gate.Run([] { EndProgram(); });
        gate.ThrowIfEnded();
        wentOn = true;
    });
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(gate.Status(), 0);
    EXPECT_EQ(ends, 0);
}

TEST_F(Gate, CountsTheFirstEndAlone) {
    testing::internal::CaptureStderr();
    gate.Run([&] {
        gate.Run([] { EndProgram(); });
        Fail(FailureCode::kOverflow);
    });
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(gate.Status(), 0);
    EXPECT_TRUE(boxes.empty());
}

}  // namespace
}  // namespace halvern
