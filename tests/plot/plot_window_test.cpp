#include "plot/plot_window.h"

#include "plot/progress.h"

#include <gtest/gtest.h>

#include "store/analysis_store.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct PlotWindowTest : ::testing::Test {
    test::TestDesktop desktop;
};

TEST_F(PlotWindowTest, IsLoadedWithSmallFilledSymbolsAndLines) {
    desktop.printers = {"Laser", "Ink"};
    Store().DefaultPrinterName = "Ink";
    auto& plot = PlotitForm();
    plot.Load();
    const auto& S = Store();
    EXPECT_TRUE(S.PlotitLoaded);
    EXPECT_FALSE(S.OmitLines);
    EXPECT_FALSE(S.OmitSymbols);
    EXPECT_TRUE(S.LargeSymbols);
    EXPECT_TRUE(S.FilledSymbols);
    EXPECT_TRUE(S.CycleSymbolsFirst);
    EXPECT_TRUE(plot.Menu.UseFilled.IsTicked());
    EXPECT_FALSE(plot.Command1.IsShown());
    EXPECT_FALSE(plot.TestIt.IsShown());
    EXPECT_FALSE(plot.Menu.Zoomout.IsEnabled());
    EXPECT_TRUE(plot.Menu.PrnArray(2).IsTicked());
    EXPECT_TRUE(plot.Menu.dummy1.IsEnabled());
}

TEST_F(PlotWindowTest, StandsTowardsTheLowerRightCorner) {
    PlotitForm().Load();
    // Screen 1024 x 768 pixels, 15360 x 11520 twips: 0.65 of it is 9984 x 7488, and 1.05 of that leaves 4876.8 and
    // 3657.6.
    EXPECT_EQ(PlotitForm().Where(), (Place{4877, 3658, 9984, 7488}));
    // 852 x 1.05 = 894.6
    EXPECT_EQ(PlotitForm().TestIt.Where().left, 895);
}

TEST_F(PlotWindowTest, OffersNoPrintingWithoutAPrinter) {
    PlotitForm().Load();
    EXPECT_FALSE(PlotitForm().Menu.dummy1.IsEnabled());
    EXPECT_EQ(PlotitForm().Menu.PrnArray.Count(), 0U);
}

TEST_F(PlotWindowTest, FillsTheColourTable) {
    PlotitForm().Load();
    const auto& colour = Store().PlotColor;
    EXPECT_EQ(colour(0), 0x00DFDF);
    EXPECT_EQ(colour(1), 0);
    EXPECT_EQ(colour(7), 255 * 65536 + 127 * 256);
    EXPECT_EQ(colour(10), colour(0));
    EXPECT_EQ(colour(15), colour(5));
    EXPECT_EQ(colour(20), 63 * 256 + 159);
}

TEST_F(PlotWindowTest, HasALargerReadOutWhereTheScreenHasRoom) {
    PlotitForm().Load();
    EXPECT_EQ(PlotitForm().Command1.Font(), (TextFont{10.5F, false}));
    EXPECT_EQ(PlotitForm().TestIt.Font(), (TextFont{10.5F, false}));
    EXPECT_EQ(PlotitForm().XYCoords.Font(), (TextFont{12.0F, true}));
    EXPECT_EQ(PlotitForm().XYLabel.Font(), (TextFont{12.0F, false}));
    EXPECT_EQ(PlotitForm().OutFileLbl.Font(), (TextFont{12.0F, false}));
}

TEST(PlotWindowOnASmallScreen, KeepsTheReadOutSmall) {
    test::TestDesktop desktop;
    desktop.screenWidthPixels = 640;
    PlotitForm().Load();
    EXPECT_EQ(PlotitForm().XYCoords.Font(), (TextFont{9.75F, true}));
    EXPECT_EQ(PlotitForm().XYLabel.Font(), (TextFont{9.75F, false}));
}

TEST_F(PlotWindowTest, BringsTheProgressWindowAlong) {
    PlotitForm().Load();
    const ProgressWindow& progress = CmpltFrmForm();
    EXPECT_TRUE(progress.IsLoaded());
    EXPECT_FALSE(progress.IsShown());
    EXPECT_EQ(progress.Caption(), "% Complete");
    EXPECT_EQ(progress.Label3.Caption(), "Reading Data");
    EXPECT_EQ(progress.Label1.Caption(), "0");
    EXPECT_EQ(progress.Label2.Caption(), "100");
    EXPECT_EQ(progress.ProgressBar1.Value(), 0);
    PlotitForm().Unload();
    EXPECT_FALSE(progress.IsLoaded());
}

TEST_F(PlotWindowTest, KnowsWhenItIsGone) {
    PlotitForm().Load();
    UnloadPlotWindows();
    EXPECT_FALSE(Store().PlotitLoaded);
    EXPECT_FALSE(PlotitForm().IsLoaded());
    UnloadPlotWindows();
}

}  // namespace
}  // namespace halvern
