#include "shell/report_commands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "plot/plot_window.h"
#include "shell/main_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "store/printer_menu.h"
#include "store/report.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using Texts = std::vector<std::string>;

/// A report of five lines in a program on two printers.
struct ReportCommands : ::testing::Test {
    test::TestDesktop desktop;

    ReportCommands() {
        desktop.printers = {"Laser", "Ink"};
        Store().DefaultPrinterName = "Laser";
        MainForm().Show();
        desktop.pointers.clear();
        desktop.printersSelected.clear();
        for (const char* line : {"  first", "second  ", "   ", " <dc/dt> & more ", "last"})
            AddLine(line);
    }
    void Select(std::initializer_list<std::size_t> lines) {
        for (const std::size_t line : lines)
            OutFileBox().Select(line);
    }
};

TEST_F(ReportCommands, PrintEachLineAsItStandsAndEndTheDocument) {
    Menus().PrintFitting.Click();
    EXPECT_EQ(desktop.printed,
              (Texts{"line   first", "line second  ", "line    ", "line  <dc/dt> & more ", "line last", "end"}));
    EXPECT_EQ(desktop.pointers, (std::vector<int>{kPointerHourglass, kPointerNormal}));
}

TEST_F(ReportCommands, PrintTheOneLineOfAReportAndEndTheDocument) {
    while (OutFileBox().ListCount() > 1)
        RemoveLastLine();
    Menus().PrintFitting.Click();
    EXPECT_EQ(desktop.printed, (Texts{"line   first", "end"}));
}

TEST_F(ReportCommands, PrintTheSelectedLinesAlone) {
    Select({0, 3});
    Menus().PrnSelect.Click();
    EXPECT_EQ(desktop.printed, (Texts{"line   first", "line  <dc/dt> & more ", "end"}));
}

TEST_F(ReportCommands, PrintAnEmptyDocumentWithNothingSelected) {
    Menus().PrnSelect.Click();
    EXPECT_EQ(desktop.printed, (Texts{"end"}));
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ReportCommands, EndWithoutAWordWhenThePrinterFails) {
    for (const int taken : {0, 2, 5}) {
        desktop.printsBeforeFault = taken;
        desktop.printed.clear();
        Menus().PrintFitting.Click();
        EXPECT_EQ(desktop.printed.size(), static_cast<std::size_t>(taken));
        EXPECT_EQ(desktop.pointer, kPointerNormal);
    }
    Select({1});
    Menus().PrnSelect.Click();
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(desktop.pointer, kPointerNormal);
}

TEST_F(ReportCommands, CopyOneLineWithoutBlanksAtItsEndsAndWithoutALineBreak) {
    Select({3});
    Menus().CopySelect.Click();
    EXPECT_EQ(desktop.clipboard, (Texts{"cleared", "text <dc/dt> & more"}));
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(desktop.pointers, (std::vector<int>{kPointerHourglass, kPointerNormal}));
}

TEST_F(ReportCommands, CopyLinesInTheOrderOfTheReport) {
    AddLine("behind");
    AddLine("end ");
    Select({6, 0, 3});
    Menus().CopySelect.Click();
    EXPECT_EQ(desktop.clipboard.back(), "text first\r\n<dc/dt> & more\r\nend");
}

TEST_F(ReportCommands, CopyABlankLineAsAnEmptyOne) {
    Select({2});
    Menus().CopySelect.Click();
    EXPECT_EQ(desktop.clipboard.back(), "text ");
    EXPECT_TRUE(desktop.messages.empty());
    AddLine(" ");
    Select({5, 1});
    Menus().CopySelect.Click();
    EXPECT_EQ(desktop.clipboard.back(), "text second\r\n\r\n");
}

TEST_F(ReportCommands, SayThatNothingIsSelectedAndLeaveTheClipboardEmpty) {
    Menus().CopySelect.Click();
    EXPECT_EQ(desktop.clipboard, (Texts{"cleared"}));
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "No Text Was Selected!  Clipboard is Now Empty.");
    EXPECT_EQ(desktop.messages[0].title, "Nothing Selected");
    EXPECT_EQ(desktop.messages[0].style, 48);
    EXPECT_EQ(desktop.pointer, kPointerNormal);
}

TEST_F(ReportCommands, EndTheProgramWhenTheClipboardFails) {
    Select({0});
    desktop.clipboardFails = true;
    EXPECT_FAILURE(521, Menus().CopySelect.Click());
}

TEST_F(ReportCommands, ChooseAPrinterForBothWindows) {
    auto& ofPlot = PlotitForm().Menu.PrnArray;
    ASSERT_EQ(ofPlot.Count(), 2U);
    Menus().Prn2Array(2).Click();
    EXPECT_TRUE(Menus().Prn2Array(2).IsTicked());
    EXPECT_FALSE(Menus().Prn2Array(1).IsTicked());
    EXPECT_TRUE(ofPlot(2).IsTicked());
    EXPECT_FALSE(ofPlot(1).IsTicked());
    EXPECT_EQ(desktop.printersSelected, (std::vector<std::size_t>{1}));
    EXPECT_EQ(Store().DefaultPrinterName, "Ink");
    ofPlot(1).Click();
    EXPECT_TRUE(Menus().Prn2Array(1).IsTicked());
    EXPECT_FALSE(Menus().Prn2Array(2).IsTicked());
    EXPECT_EQ(Store().DefaultPrinterName, "Laser");
}

TEST(PrinterMenus, TickThePrinterChosenBeforeThePlotWindowIsLoaded) {
    test::TestDesktop desktop;
    desktop.printers = {"Laser", "Ink"};
    Store().DefaultPrinterName = "Laser";
    LoadPrinterItems(MainMenuBar(), Menus().PrintDummy1, Menus().Prn2Array, "Prn2Array", Menus().Prn2Array0, 2,
                     Prn2Array_Click);
    Menus().Prn2Array(2).Click();
    EXPECT_TRUE(Menus().Prn2Array(2).IsTicked());
    EXPECT_FALSE(Menus().Prn2Array(1).IsTicked());
    PlotitForm().Load();
    EXPECT_TRUE(PlotitForm().Menu.PrnArray(2).IsTicked());
    EXPECT_FALSE(PlotitForm().Menu.PrnArray(1).IsTicked());
}

}  // namespace
}  // namespace halvern
