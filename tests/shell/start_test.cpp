#include "shell/start.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "plot/plot_window.h"
#include "shell/main_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/data_files.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;

struct Start : ::testing::Test {
    test::DataFolder folder;
    test::TestDesktop desktop;
};

TEST_F(Start, FillsTheDefaults) {
    Main();
    const auto& S = Store();
    EXPECT_EQ(S.ProgramName.View(), "Halvern V0.99   ");
    EXPECT_EQ(S.RevisionText.View(), "0.99.0055 ");
    EXPECT_EQ(S.ProgramDir, folder.Path().string() + "/");
    EXPECT_EQ(S.Meniscus, 6.0F);
    EXPECT_EQ(S.ScanMeniscus(1), 6.0F);
    EXPECT_EQ(S.ScanMeniscus(500), 6.0F);
    EXPECT_EQ(S.PlotEveryNth, 1);
    EXPECT_EQ(S.SavePlotFiles, -1);
    EXPECT_EQ(S.SmoothWindow, 3);
    EXPECT_TRUE(S.ShowXYDefault);
    EXPECT_TRUE(S.PickDataLimits);
    EXPECT_FALSE(S.IsInterference);
    EXPECT_FALSE(S.UseSmoothing);
    EXPECT_EQ(S.NumSpeeds, 0);
}

TEST_F(Start, OpensTheReportWithTwoLines) {
    Main();
    EXPECT_EQ(test::ReportLines(), (Lines{" Halvern V0.99   ", " Current Revision V0.99.0055 "}));
}

TEST_F(Start, ShowsTheSplashThenLoadsTheMainWindowAndBehindItThePlotWindow) {
    Main();
    EXPECT_EQ(desktop.story,
              (Lines{"load Splash1", "show Splash1", "100 passes", "sleep 1750", "hide Splash1", "unload Splash1",
                     "10 passes", "load Keld", "load Plotit", "load cmpltfrm", "show Keld"}));
    EXPECT_TRUE(MainForm().IsShown());
    EXPECT_TRUE(PlotitForm().IsLoaded());
    EXPECT_FALSE(PlotitForm().IsShown());
    EXPECT_TRUE(Store().PlotitLoaded);
}

TEST_F(Start, TakesItsFolderAfterTheMainWindowIsLoaded) {
    std::filesystem::create_directory("moved");
    desktop.atLoad = [](Form& form) {
        if (form.Name() == "Keld")
            std::filesystem::current_path("moved");
    };
    Main();
    EXPECT_EQ(Store().ProgramDir, folder.Path().string() + "/moved/");
}

TEST_F(Start, BeginsWithoutSmoothing) {
    Store().UseSmoothing = true;
    Menus().UseWSSmoothing.Tick();
    Main();
    EXPECT_FALSE(Store().UseSmoothing);
    EXPECT_FALSE(Menus().UseWSSmoothing.IsTicked());
}

TEST_F(Start, RefusesASecondInstanceAndChangesNothing) {
    desktop.anotherInstance = true;
    EXPECT_THROW(Main(), ProgramEnd);
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "Cannot Run Multiple Copies of Program!");
    EXPECT_EQ(desktop.messages[0].title, "Previous Instance");
    EXPECT_EQ(desktop.messages[0].style, 48);
    EXPECT_TRUE(desktop.loaded.empty());
    EXPECT_TRUE(test::ReportLines().empty());
}

TEST_F(Start, WithoutAPrinterKeepsPrintingOutOfReach) {
    desktop.defaultPrinter = "Laser";
    Main();
    EXPECT_EQ(Store().DefaultPrinterName, "");
    EXPECT_FALSE(Menus().PrintDummy1.IsEnabled());
}

/// Notes what had happened when the printers were first asked for.
struct AskedDesktop : test::TestDesktop {
    Lines storyBefore;
    std::vector<std::string> PrinterNames() override {
        if (storyBefore.empty())
            storyBefore = story;
        return TestDesktop::PrinterNames();
    }
};

TEST(StartWithASlowPrintSystem, ShowsTheSplashBeforeItWaitsForThePrinters) {
    AskedDesktop desktop;
    Main();
    EXPECT_EQ(desktop.storyBefore, (Lines{"load Splash1", "show Splash1", "100 passes", "sleep 1750", "hide Splash1",
                                          "unload Splash1", "10 passes"}));
}

TEST_F(Start, TicksTheDefaultPrinterInBothMenus) {
    desktop.printers = {"Ink", "Laser"};
    desktop.defaultPrinter = "Laser";
    Main();
    EXPECT_EQ(Store().DefaultPrinterName, "Laser");
    EXPECT_TRUE(Menus().PrintDummy1.IsEnabled());
    EXPECT_TRUE(Menus().Prn2Array(2).IsTicked());
    EXPECT_TRUE(PlotitForm().Menu.PrnArray(2).IsTicked());
    EXPECT_EQ(desktop.printersSelected.back(), 1U);
}

TEST_F(Start, TicksTheFirstPrinterWhenTheDefaultIsNotAmongThem) {
    desktop.printers = {"Ink", "Laser"};
    desktop.defaultPrinter = "Plotter";
    Main();
    EXPECT_EQ(Store().DefaultPrinterName, "Plotter");
    EXPECT_TRUE(Menus().Prn2Array(1).IsTicked());
    EXPECT_FALSE(Menus().Prn2Array(2).IsTicked());
}

TEST_F(Start, CutsAtMostTwoZeroBytesOffTheDefaultPrintersName) {
    desktop.printers = {"Ink"};
    desktop.defaultPrinter = std::string("Ink\0\0\0", 6);
    Main();
    EXPECT_EQ(Store().DefaultPrinterName, std::string("Ink\0", 4));
}

TEST_F(Start, PlacesTheMainWindowATwentiethIntoTheScreen) {
    desktop.screenWidthPixels = 1001;
    desktop.screenHeightPixels = 1050;
    Main();
    // 15015 / 20 = 750.75 and 15750 / 20 = 787.5, the half going to the even neighbour.
    EXPECT_EQ(MainForm().Where().left, 751);
    EXPECT_EQ(MainForm().Where().top, 788);
}

}  // namespace
}  // namespace halvern
