#include "ui/list_box.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

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

struct Watcher : ListBoxObserver {
    std::vector<std::string> story;
    void LineAdded() override { story.emplace_back("added"); }
    void LineRemoved(std::size_t index) override { story.push_back("removed " + std::to_string(index)); }
    void SelectionChanged() override { story.emplace_back("selected"); }
    void TopIndexChanged() override { story.emplace_back("top"); }
};

TEST(ListBox, TellsWhoeverShowsItOfEachStepButNotOfTheirOwn) {
    ListBox list;
    Watcher watcher;
    list.ObserveList(&watcher);
    list.AddLine("a");
    list.AddLine("b");
    list.Select(1);
    list.SetTopIndex(1);
    list.ScrolledTo(0);
    list.RemoveLine(0);
    EXPECT_EQ(watcher.story, (std::vector<std::string>{"added", "added", "selected", "top", "removed 0"}));
    list.ObserveList(nullptr);
    list.AddLine("c");
    EXPECT_EQ(watcher.story.size(), 5U);
}

}  // namespace
}  // namespace halvern
