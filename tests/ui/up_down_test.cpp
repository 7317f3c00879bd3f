#include "ui/up_down.h"

#include <gtest/gtest.h>

namespace halvern {
namespace {

struct UpDownTest : ::testing::Test {
    TextBox box{"design"};
    UpDown spin{box, 1, 249, 1};
};

TEST_F(UpDownTest, LeavesTheTextOfTheDesignAloneAtFirst) {
    EXPECT_EQ(spin.Value(), 1);
    EXPECT_EQ(spin.Caption(), "1");
    EXPECT_EQ(box.Text(), "design");
}

TEST_F(UpDownTest, KeepsTheTextOfItsBoxUpToDate) {
    spin.SetValue(17);
    EXPECT_EQ(box.Text(), "17");
    EXPECT_EQ(spin.Caption(), "17");
    box.SetText(" 200");
    spin.SetValue(17);
    EXPECT_EQ(box.Text(), "17") << "also when the value is the old one";
}

TEST_F(UpDownTest, MovesAValueToTheNearerLimit) {
    spin.SetValue(250);
    EXPECT_EQ(spin.Value(), 249);
    EXPECT_EQ(box.Text(), "249");
    spin.SetValue(-5);
    EXPECT_EQ(spin.Value(), 1);
}

TEST_F(UpDownTest, FollowsItsLimitsWithoutTouchingTheBox) {
    spin.SetValue(100);
    spin.SetMaximum(20);
    EXPECT_EQ(spin.Value(), 20);
    EXPECT_EQ(box.Text(), "100");
    spin.SetMinimum(30);
    EXPECT_EQ(spin.Value(), 30) << "the lower limit decides where they cross";
}

TEST_F(UpDownTest, StepsWithinItsLimits) {
    spin.SetValue(248);
    spin.StepUp();
    spin.StepUp();
    EXPECT_EQ(box.Text(), "249");
    spin.SetValue(2);
    spin.StepDown();
    spin.StepDown();
    EXPECT_EQ(box.Text(), "1");
}

}  // namespace
}  // namespace halvern
