#include "plot/show_plot.h"

#include <gtest/gtest.h>

#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct ShowPlotTest : ::testing::Test {
    test::TestDesktop desktop;

    void Request(std::initializer_list<PlotPoint> points) {
        BeginPlainRequest();
        const auto* first = points.begin();
        RequestFiller request;
        request.Line(1, static_cast<std::int32_t>(points.size()), kBlack, [&](std::int32_t I) { return first[I - 1]; });
        request.Finish();
    }
};

TEST_F(ShowPlotTest, TakesTheLimitsOverEveryPointWhateverIsDrawnAtIt) {
    Request({{1.0F, 5.0F}, {-2.0F, 7.0F}, {3.0F, 6.0F}});
    auto& S = Store();
    S.PlotSym(2) = 0;  // skipped when drawn, counted here
    FindDataLimits(S.PlotX, S.PlotY, S.PlotCount);
    EXPECT_EQ(S.PlotXMin, -2.0F);
    EXPECT_EQ(S.PlotXMax, 3.0F);
    EXPECT_EQ(S.PlotYMin, 5.0F);
    EXPECT_EQ(S.PlotYMax, 7.0F);
}

TEST_F(ShowPlotTest, TakesStaleLimitsWithoutAPointAndDrawsNothing) {
    Request({{4.0F, 5.0F}, {6.0F, 7.0F}});
    Request({});
    ShowPlot(false);
    const auto& S = Store();
    EXPECT_EQ(S.PlotCount, 0);
    EXPECT_FALSE(S.PlotReady);
    EXPECT_EQ(S.PlotXMin, 4.0F);
    EXPECT_EQ(S.PlotXMax, 4.0F);
    EXPECT_TRUE(PlotitForm().IsShown());
    EXPECT_EQ(PlotitForm().XAxisMax, 0.0F);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ShowPlotTest, IsNotReadyWithASinglePoint) {
    Request({{4.0F, 5.0F}});
    EXPECT_EQ(Store().PlotCount, 1);
    EXPECT_FALSE(Store().PlotReady);
    PlotitForm().Form_Paint();
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "There Are No Data To Plot Yet!\r\n       Load a Data File 1st.");
    EXPECT_EQ(desktop.messages[0].title, "Load Data");
    EXPECT_EQ(desktop.messages[0].style, 48);
}

TEST_F(ShowPlotTest, WorksOutTheAxesAndShowsTheWindowUnzoomed) {
    Request({{0.0F, 0.0F}, {100.0F, 1.0F}});
    auto& plot = PlotitForm();
    plot.Menu.Zoomout.Enable();
    ShowPlot(false);
    EXPECT_EQ(plot.XAxisMin, 0.0F);
    EXPECT_EQ(plot.XAxisMax, 120.0F);
    EXPECT_EQ(plot.XScale, static_cast<float>(100.0 / 120.0));
    EXPECT_TRUE(plot.IsShown());
    EXPECT_FALSE(plot.Menu.Zoomout.IsEnabled());
}

TEST_F(ShowPlotTest, CanWaitForTheWindow) {
    Request({{0.0F, 0.0F}, {100.0F, 1.0F}});
    desktop.dialogs.push_back([](Form& form) { form.Hide(); });
    ShowPlot(true);
    EXPECT_TRUE(desktop.dialogs.empty());
}

TEST(PlotRequest, HasCodesOf16Bits) {
    EXPECT_EQ(LineCode(0), -57);
    EXPECT_EQ(LineCode(kBlack), -121);
    EXPECT_EQ(LineCode(kRed), -185);
    EXPECT_EQ(LineCode(500), -57 - 64 * 500);
    EXPECT_FAILURE(6, LineCode(512));
}

TEST_F(ShowPlotTest, APlainRequestDropsThePicksOfThePlainPlotOnly) {
    auto& S = Store();
    Boolean* const dropped[] = {&S.PlotReady, &S.PickDataLimits, &S.PickMeniscus, &S.PickJitterPoint};
    Boolean* const kept[] = {&S.PickZeroLevel, &S.PickFringePoint, &S.PickSLimits};
    for (Boolean* flag : dropped)
        *flag = true;
    for (Boolean* flag : kept)
        *flag = true;
    BeginPlainRequest();
    for (const Boolean* flag : dropped)
        EXPECT_FALSE(*flag);
    for (const Boolean* flag : kept)
        EXPECT_TRUE(*flag);
    EXPECT_TRUE(S.PlotitLoaded);
}

}  // namespace
}  // namespace halvern
