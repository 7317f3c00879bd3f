#include "shell/failure_report.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "shell/version.h"
#include "store/failure.h"

namespace halvern {
namespace {

const std::string kVersionLine = "  version: halvern " + RevisionNumbers() + "\n";

TEST(FailureReport, NamesTheFailureTheEventsAndTheVersion) {
    EXPECT_EQ(
        FailureReport(RuntimeFailure(FailureCode::kDivisionByZero), {"click Set_MenManually", "click IsOK"}, "halvern"),
        "Run-time error '11': Division by zero\n"
        "  running: click Set_MenManually\n"
        "  running: click IsOK\n" +
            kVersionLine);
}

TEST(FailureReport, NamesTheFileThatItHappenedTo) {
    EXPECT_EQ(FailureReport(RuntimeFailure(FailureCode::kPathNotFound, "/data/run 1/raw.txt"), {}, "halvern"),
              "Run-time error '76': Path not found\n"
              "  with: /data/run 1/raw.txt\n" +
                  kVersionLine);
}

TEST(FailureReport, NamesADefectOfTheProgramAsWhatItIs) {
    EXPECT_EQ(FailureReport(std::out_of_range("line 7"), {}, "halvern"), "internal error: line 7\n" + kVersionLine);
}

TEST(FailureReport, GivesTheTerminalNoCommands) {
    EXPECT_EQ(FailureReport(RuntimeFailure(FailureCode::kFileNotFound, "a\x1B[2J\nb"), {"choose \"a\rb\""}, "halvern"),
              "Run-time error '53': File not found\n"
              "  with: a\\x1b[2J\\x0ab\n"
              "  running: choose \"a\\x0db\"\n" +
                  kVersionLine);
}

}  // namespace
}  // namespace halvern
