#include "store/menus.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace halvern {
namespace {

TEST(MainMenu, HasNoItemTickedAtStart) {
    for (const auto& entry : MainMenuBar().Entries())
        EXPECT_FALSE(entry.item->IsTicked()) << entry.item->Name();
}

TEST(MainMenu, HidesTheseItemsAtStartAndNoOthers) {
    std::set<std::string> hidden;
    for (const auto& entry : MainMenuBar().Entries())
        if (!entry.item->IsShown())
            hidden.insert(entry.item->Name());
    EXPECT_EQ(hidden, (std::set<std::string>{"Set_MultiMenManually", "NoJitterCorrection", "PlotInterp", "SavePlots",
                                             "Prn2Array(0)", "PrintDummy2"}));
}

TEST(MainMenu, OffersOnlyFilesAndThePrintersWithoutADataSet) {
    std::set<std::string> reachable;
    const auto& bar = MainMenuBar();
    for (std::size_t place = 0; place < bar.Entries().size(); ++place) {
        const MenuItem& item = *bar.Entries()[place].item;
        if (bar.CanBeReached(place) && !bar.OpensSubmenu(place) && !item.IsSeparator())
            reachable.insert(item.Name());
    }
    EXPECT_EQ(reachable, (std::set<std::string>{"GetListNow", "MakeListNow", "AllDone", "PrintFitting", "PrnSelect",
                                                "CopySelect"}));
}

TEST(MainMenu, HasSixMenusInItsBar) {
    std::string captions;
    for (const auto& entry : MainMenuBar().Entries())
        if (entry.level == 1)
            captions += entry.item->Caption() + "|";
    EXPECT_EQ(captions, "&File|&dc/dt|&Plots|&Output|P&rint|&Select Printer|");
}

TEST(MainMenu, CopiesTheSelectionWithControlC) { EXPECT_EQ(Menus().CopySelect.Shortcut(), "Ctrl+C"); }

}  // namespace
}  // namespace halvern
