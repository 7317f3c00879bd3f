#include "ui/menu.h"

#include <gtest/gtest.h>

namespace halvern {
namespace {

struct Items {
    MenuItem file, open, more, line, deep, edit;
};

constexpr MenuRow<Items> kRows[] = {
    {1, &Items::file, "File", "&File", kOn, kShown}, {2, &Items::open, "Open", "&Open", kOff, kShown, "Ctrl+O"},
    {2, &Items::more, "More", "&More", kOn, kShown}, {3, &Items::deep, "Deep", "Deep", kOn, kShown},
    {2, &Items::line, "Line", "-", kOn, kHidden},    {1, &Items::edit, "Edit", "&Edit", kOn, kHidden},
};
static_assert(NamesDiffer(kRows));
static_assert(LevelsStepByOne(kRows));

constexpr MenuRow<Items> kTwice[] = {{1, &Items::file, "File", "", kOn, kShown},
                                     {1, &Items::edit, "File", "", kOn, kShown}};
static_assert(!NamesDiffer(kTwice));
constexpr MenuRow<Items> kJump[] = {{1, &Items::file, "File", "", kOn, kShown},
                                    {3, &Items::open, "Open", "", kOn, kShown}};
static_assert(!LevelsStepByOne(kJump));

TEST(MenuItem, ThatShowsTheNameOfAThingTakesNothingInItForItself) {
    MenuItem item;
    item.SetCaption("-");
    EXPECT_TRUE(item.IsSeparator());
    EXPECT_FALSE(item.ShowsName());
    item.ShowName("-");
    EXPECT_FALSE(item.IsSeparator());
    EXPECT_TRUE(item.ShowsName());
    EXPECT_EQ(item.Caption(), "-");
}

struct Built : ::testing::Test {
    Items items;
    MenuBar bar;
    Built() { BuildMenu(bar, items, kRows); }
};

TEST_F(Built, ItemsHaveTheirRowsState) {
    EXPECT_EQ(items.open.Name(), "Open");
    EXPECT_EQ(items.open.Caption(), "&Open");
    EXPECT_EQ(items.open.Shortcut(), "Ctrl+O");
    EXPECT_FALSE(items.open.IsEnabled());
    EXPECT_FALSE(items.edit.IsShown());
    EXPECT_FALSE(items.file.IsTicked());
    EXPECT_TRUE(items.line.IsSeparator());
}

TEST_F(Built, AnItemFollowedByADeeperOneOpensASubmenu) {
    EXPECT_TRUE(bar.OpensSubmenu(0));
    EXPECT_FALSE(bar.OpensSubmenu(1));
    EXPECT_TRUE(bar.OpensSubmenu(2));
    EXPECT_FALSE(bar.OpensSubmenu(5));
}

TEST_F(Built, AnItemIsInReachOnlyWithAllThatItStandsUnder) {
    EXPECT_TRUE(bar.CanBeReached(3));
    EXPECT_FALSE(bar.CanBeReached(1)) << "it is disabled itself";
    EXPECT_FALSE(bar.CanBeReached(5)) << "it is hidden itself";
    items.more.Disable();
    EXPECT_FALSE(bar.CanBeReached(3));
    items.more.Enable();
    items.file.Hide();
    EXPECT_FALSE(bar.CanBeReached(3));
}

TEST_F(Built, AnItemPutInLaterStandsBehindTheOneNamed) {
    struct BarCounter : MenuBarObserver {
        int changes = 0;
        void MenuBarChanged() override { ++changes; }
    } counter;
    bar.Observe(&counter);
    PrinterItems printers;
    MenuItem& first = printers.Load();
    bar.InsertAfter(items.open, 2, first);
    EXPECT_EQ(bar.Entries()[2].item, &first);
    EXPECT_EQ(bar.Entries()[3].item, &items.more);
    EXPECT_EQ(counter.changes, 1);
    EXPECT_EQ(&printers(1), &first);
}

}  // namespace
}  // namespace halvern
