#include "store/report.h"

#include <gtest/gtest.h>

#include "support/test_desktop.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;

TEST(Report, GrowsAtItsEndAndLosesLinesThere) {
    AddLine(" * Reading Files *");
    AddLine(" -0-");
    RemoveLastLine();
    AddLine(" -10-");
    EXPECT_EQ(test::ReportLines(), (Lines{" * Reading Files *", " -10-"}));
}

TEST(Report, ScrollsOnByFiveLinesWhereThereAreAsMany) {
    for (int i = 0; i < 5; ++i)
        AddLine("line");
    ScrollReport();
    EXPECT_EQ(OutFileBox().TopIndex(), 0U) << "0 + 5 is not less than 5";
    AddLine("line");
    ScrollReport();
    EXPECT_EQ(OutFileBox().TopIndex(), 5U);
    ScrollReport();
    EXPECT_EQ(OutFileBox().TopIndex(), 5U);
}

TEST(Report, IsNoScrollToTheEnd) {
    for (int i = 0; i < 100; ++i)
        AddLine("line");
    ScrollReport();
    EXPECT_EQ(OutFileBox().TopIndex(), 5U);
}

}  // namespace
}  // namespace halvern
