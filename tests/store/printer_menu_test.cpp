#include "store/printer_menu.h"

#include <gtest/gtest.h>

#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct PrinterMenu : ::testing::Test {
    test::TestDesktop desktop;
    static inline std::int16_t chosen = 0;
    void LoadItems() {
        LoadPrinterItems(MainMenuBar(), Menus().PrintDummy1, Menus().Prn2Array, "Prn2Array", Menus().Prn2Array0, 2,
                         [](std::int16_t Index) { chosen = Index; });
    }
};

TEST_F(PrinterMenu, HasAnItemForEachPrinterBehindTheSeparator) {
    desktop.printers = {"Laser", "Ink"};
    LoadItems();
    const auto& entries = MainMenuBar().Entries();
    std::size_t separator = 0;
    while (entries[separator].item != &Menus().Prn2Array0)
        ++separator;
    EXPECT_EQ(entries[separator + 1].item->Name(), "Prn2Array(1)");
    EXPECT_EQ(entries[separator + 1].item->Caption(), "Laser");
    EXPECT_EQ(entries[separator + 1].level, 2);
    EXPECT_EQ(entries[separator + 2].item->Name(), "Prn2Array(2)");
    EXPECT_EQ(entries[separator + 2].item->Caption(), "Ink");
    EXPECT_TRUE(entries[separator + 2].item->IsShown());
    EXPECT_EQ(entries[separator + 3].item, &Menus().PrintDummy3);
}

TEST_F(PrinterMenu, TakesTheNamesOfPrintersAsTheyAre) {
    desktop.printers = {"A&B", "-", "%1 <b>"};
    LoadItems();
    for (std::size_t I = 1; I <= 3; ++I) {
        EXPECT_EQ(Menus().Prn2Array(I).Caption(), desktop.printers[I - 1]);
        EXPECT_TRUE(Menus().Prn2Array(I).ShowsName()) << "an & of its caption is no access key";
        EXPECT_FALSE(Menus().Prn2Array(I).IsSeparator());
    }
}

TEST_F(PrinterMenu, TicksAndSelectsTheDefaultPrinter) {
    desktop.printers = {"Laser", " Ink "};
    Store().DefaultPrinterName = "Ink";
    LoadItems();
    EXPECT_FALSE(Menus().Prn2Array(1).IsTicked());
    EXPECT_TRUE(Menus().Prn2Array(2).IsTicked());
    EXPECT_EQ(desktop.printersSelected, std::vector<std::size_t>{1});
}

TEST_F(PrinterMenu, TicksTheFirstPrinterWhenTheDefaultIsNotInstalled) {
    desktop.printers = {"Laser", "Ink"};
    Store().DefaultPrinterName = "Gone";
    LoadItems();
    EXPECT_TRUE(Menus().Prn2Array(1).IsTicked());
    EXPECT_FALSE(Menus().Prn2Array(2).IsTicked());
    EXPECT_EQ(desktop.printersSelected, std::vector<std::size_t>{0});
}

TEST_F(PrinterMenu, IsLeftAloneWithoutPrinters) {
    LoadItems();
    EXPECT_EQ(Menus().Prn2Array.Count(), 0U);
    EXPECT_TRUE(desktop.printersSelected.empty());
}

TEST_F(PrinterMenu, FailsWithAPrinterThatIsGone) {
    desktop.printers = {"Laser", "Ink"};
    UsePrinter(2);
    EXPECT_EQ(Store().DefaultPrinterName, "Ink");
    EXPECT_FAILURE(9, UsePrinter(3));
    EXPECT_FAILURE(9, UsePrinter(0));
    EXPECT_EQ(Store().DefaultPrinterName, "Ink");
    EXPECT_EQ(desktop.printersSelected, std::vector<std::size_t>{1});
}

}  // namespace
}  // namespace halvern
