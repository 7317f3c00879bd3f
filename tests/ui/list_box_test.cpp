#include "ui/list_box.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace halvern {
namespace {

TEST(ListBox, KeepsLinesAsTheyWereAdded) {
    ListBox list;
    list.AddLine(" Halvern V0.99   ");
    list.AddLine("\xFF<dc/dt>\t");
    EXPECT_EQ(list.ListCount(), 2U);
    EXPECT_EQ(list.Line(0), " Halvern V0.99   ");
    EXPECT_EQ(list.Line(1), "\xFF<dc/dt>\t");
}

TEST(ListBox, KeepsTheSelectionWhileLinesAreAddedAndRemoved) {
    ListBox list;
    for (const char* line : {"a", "b", "c"})
        list.AddLine(line);
    list.Select(0);
    list.Select(2);
    list.AddLine("d");
    list.RemoveLine(1);
    EXPECT_TRUE(list.IsSelected(0));
    EXPECT_TRUE(list.IsSelected(1));
    EXPECT_FALSE(list.IsSelected(2));
    EXPECT_EQ(list.Line(1), "c");
}

TEST(ListBox, HasNoLineOutsideItself) {
    ListBox list;
    list.AddLine("a");
    EXPECT_THROW(list.RemoveLine(1), std::out_of_range);
    EXPECT_THROW(list.Line(1), std::out_of_range);
}

}  // namespace
}  // namespace halvern
