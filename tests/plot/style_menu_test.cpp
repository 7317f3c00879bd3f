#include <gtest/gtest.h>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct Style : ::testing::Test {
    test::TestDesktop desktop;
    PlotWindow& plot = PlotitForm();
    AnalysisStore& S = Store();

    Style() {
        S.ShowXYDefault = true;
        plot.Load();
    }
};

TEST_F(Style, NeverOmitsLinesAndSymbolsTogether) {
    plot.Menu.Nolines.Click();
    EXPECT_TRUE(S.OmitLines);
    EXPECT_TRUE(plot.Menu.Nolines.IsTicked());
    EXPECT_FALSE(plot.Menu.NoSymbols.IsEnabled());
    plot.Menu.Nolines.Click();
    EXPECT_FALSE(S.OmitLines);
    EXPECT_FALSE(plot.Menu.Nolines.IsTicked());
    EXPECT_TRUE(plot.Menu.NoSymbols.IsEnabled());
    plot.Menu.NoSymbols.Click();
    EXPECT_TRUE(S.OmitSymbols);
    EXPECT_TRUE(plot.Menu.NoSymbols.IsTicked());
    EXPECT_FALSE(plot.Menu.Nolines.IsEnabled());
    plot.Menu.NoSymbols.Click();
    EXPECT_FALSE(S.OmitSymbols);
    EXPECT_TRUE(plot.Menu.Nolines.IsEnabled());
}

TEST_F(Style, OffersTheOtherSizeOfSymbols) {
    EXPECT_TRUE(S.LargeSymbols) << "the large ones are on offer";
    EXPECT_EQ(plot.Menu.LargePoints.Caption(), "Large Symbols");
    plot.Menu.LargePoints.Click();
    EXPECT_FALSE(S.LargeSymbols);
    EXPECT_EQ(plot.Menu.LargePoints.Caption(), "Small Symbols");
    plot.Menu.LargePoints.Click();
    EXPECT_TRUE(S.LargeSymbols);
    EXPECT_EQ(plot.Menu.LargePoints.Caption(), "Large Symbols");
}

TEST_F(Style, FillsSymbolsOrNot) {
    plot.Menu.UseFilled.Click();
    EXPECT_FALSE(S.FilledSymbols);
    EXPECT_FALSE(plot.Menu.UseFilled.IsTicked());
    plot.Menu.UseFilled.Click();
    EXPECT_TRUE(S.FilledSymbols);
    EXPECT_TRUE(plot.Menu.UseFilled.IsTicked());
}

TEST_F(Style, CyclesSymbolsOrColoursFirst) {
    plot.Menu.Col_Sym.Click();
    EXPECT_FALSE(S.CycleSymbolsFirst);
    EXPECT_EQ(plot.Menu.Col_Sym.Caption(), "Cycle Colors 1st");
    plot.Menu.Col_Sym.Click();
    EXPECT_TRUE(S.CycleSymbolsFirst);
    EXPECT_EQ(plot.Menu.Col_Sym.Caption(), "Cycle Symbols 1st");
}

TEST_F(Style, HidesAndShowsTheReadOut) {
    plot.Menu.ShowEm.Click();
    EXPECT_FALSE(plot.XYCoords.IsShown());
    EXPECT_EQ(plot.Menu.ShowEm.Caption(), "&Show (X,Y)");
    plot.Menu.ShowEm.Click();
    EXPECT_TRUE(plot.XYCoords.IsShown());
    EXPECT_EQ(plot.Menu.ShowEm.Caption(), "&Hide (X,Y)");
}

TEST_F(Style, RepaintsOnlyWhatIsReady) {
    for (MenuItem* item : {&plot.Menu.Nolines, &plot.Menu.LargePoints, &plot.Menu.UseFilled, &plot.Menu.Col_Sym})
        item->Click();
    EXPECT_TRUE(desktop.messages.empty()) << "the paint handler would tell that there are no data";
}

}  // namespace
}  // namespace halvern
