#include "conditioning/meniscus.h"

#include <gtest/gtest.h>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/session.h"

namespace halvern {
namespace {

struct Meniscus : ::testing::Test {
    test::Session session;
    PlotWindow& plot = PlotitForm();

    /// Ctrl with the left button at a radius.
    void Pick(float radius) {
        const auto X = static_cast<float>((static_cast<double>(radius) - plot.XAxisMin) * plot.XScale);
        plot.Form_MouseDown(kLeftButton, kCtrl, X, 50.0F);
        plot.Form_MouseUp(kLeftButton, kCtrl, X, 50.0F);
    }
};

TEST_F(Meniscus, IsPickedOnTheFirstScanOfOneSpeed) {
    session.LoadSpeeds({42000, 42000, 42000, 42000});
    Store().PlotHelp2 = "what stood before";
    plot.Show();
    session.desktop.story.clear();
    Menus().Get_MenFromScan.Click();
    EXPECT_EQ(session.desktop.story, (std::vector<std::string>{"hide Plotit", "show Plotit"}));
    const auto& S = Store();
    EXPECT_EQ(S.PlotHelp1, "Use <Ctrl>LMB to Set the Meniscus Position");
    EXPECT_EQ(S.PlotHelp2, "what stood before");
    EXPECT_EQ(S.PlotXTitle, "Radius (cm)");
    EXPECT_EQ(S.PlotYTitle, "Conc");
    EXPECT_EQ(S.PlotCount, 24);
    EXPECT_TRUE(S.PlotReady);
    EXPECT_TRUE(S.PickMeniscus);
    EXPECT_FALSE(S.PickDataLimits);
    EXPECT_FALSE(S.PickJitterPoint);
    EXPECT_FALSE(S.PlotLnAxis);
    for (int I = 1; I <= 12; ++I) {
        EXPECT_EQ(S.PlotX(I), S.ScanData(I, 1, 1));
        EXPECT_EQ(S.PlotY(I), S.ScanData(I, 2, 1));
        EXPECT_EQ(S.PlotSym(I), I == 1 ? -58 : -121);
        EXPECT_EQ(S.PlotX(12 + I), S.ScanData(I, 1, 1));
        EXPECT_EQ(S.PlotSym(12 + I), 1);
    }
    EXPECT_TRUE(plot.IsShown());
    EXPECT_TRUE(plot.Command1.IsShown());
    EXPECT_FALSE(plot.TestIt.IsShown());
}

TEST_F(Meniscus, OffersDcDtAtOnceButIsStoredByDone) {
    session.LoadSpeeds({42000, 42000, 42000, 42000});
    Menus().Get_MenFromScan.Click();
    EXPECT_TRUE(Menus().KeldIt.IsEnabled());
    EXPECT_TRUE(Menus().DoWideStraight.IsEnabled());
    EXPECT_TRUE(Menus().UseWSSmoothing.IsEnabled());
    Pick(5.905F);
    EXPECT_NEAR(Store().Meniscus, 5.905F, 1E-6F);
    EXPECT_EQ(Store().ScanMeniscus(1), 6.0F);
    plot.Command1.Click();
    EXPECT_EQ(Store().ScanMeniscus(1), Store().Meniscus);
    EXPECT_EQ(Store().ScanMeniscus(4), Store().Meniscus);
    EXPECT_EQ(Store().ScanMeniscus(5), 6.0F);
    EXPECT_FALSE(Store().PickMeniscus);
    EXPECT_FALSE(plot.IsShown());
    EXPECT_FALSE(plot.Command1.IsShown());
    EXPECT_EQ(Store().PlotHelp1, " ");
    EXPECT_EQ(Store().PlotHelp2, " ");
}

TEST_F(Meniscus, OfInterferenceDataOffersTheCorrectionsWithTheFirstPick) {
    test::ScanFile scan;
    scan.type = 'P';
    session.LoadSpeeds({42000, 42000, 42000, 42000}, scan);
    Menus().Get_MenFromScan.Click();
    EXPECT_EQ(Store().PlotYTitle, "Fringes");
    EXPECT_FALSE(Menus().SetJitterLimits.IsEnabled());
    Pick(5.905F);
    EXPECT_TRUE(Menus().SetJitterLimits.IsEnabled());
    EXPECT_TRUE(Menus().DoIntShift.IsEnabled());
}

TEST_F(Meniscus, OfOtherDataOffersNoCorrections) {
    session.LoadSpeeds({42000, 42000, 42000, 42000});
    EXPECT_FALSE(Menus().DoReAddNow.IsShown());
    Menus().Get_MenFromScan.Click();
    Pick(5.905F);
    plot.Command1.Click();
    EXPECT_FALSE(Menus().SetJitterLimits.IsEnabled());
    EXPECT_FALSE(Menus().DoIntShift.IsEnabled());
}

TEST_F(Meniscus, IsPickedSpeedBySpeed) {
    session.LoadSpeeds({42000, 42000, 30000, 30000, 42000});
    const auto before = test::ReportLines().size();
    const auto& S = Store();
    Menus().KeldIt.Enable();
    Menus().Get_MenFromScan.Click();
    EXPECT_FALSE(Menus().KeldIt.IsEnabled());
    EXPECT_TRUE(Menus().DoWideStraight.IsEnabled());
    EXPECT_EQ(S.PlotHelp2, "First Dataset at a Speed of 42000 rpm");
    EXPECT_EQ(S.PlotSym(2), -57 - 64 * 1);
    Pick(5.9012F);
    Store().PlotXTitle = "of a plot in between";
    plot.Command1.Click();

    EXPECT_EQ(S.PlotXTitle, "Radius (cm)");
    EXPECT_TRUE(S.PickMeniscus) << "the pick goes on";
    EXPECT_TRUE(plot.IsShown());
    EXPECT_TRUE(plot.Command1.IsShown());
    EXPECT_EQ(S.PlotHelp2, "First Dataset at a Speed of 30000 rpm");
    EXPECT_EQ(S.PlotSym(2), -57 - 64 * 3) << "lines in the colour of scan 3";
    EXPECT_EQ(S.PlotSym(13), 3);
    EXPECT_EQ(S.Meniscus, 6.0F) << "it starts with the value of this speed";
    Pick(5.9034F);
    plot.Command1.Click();
    plot.Command1.Click();

    EXPECT_FALSE(S.PickMeniscus);
    EXPECT_FALSE(plot.IsShown());
    const float expected[] = {5.9012F, 5.9012F, 5.9034F, 5.9034F, 6.0F};
    for (int K = 1; K <= 5; ++K)
        EXPECT_NEAR(S.ScanMeniscus(K), expected[K - 1], 1E-6F) << K;
    const auto lines = test::ReportLines();
    ASSERT_EQ(lines.size(), before + 3);
    EXPECT_EQ(lines[before], " Meniscus position for 42000rpm is 5.9012 cm.");
    EXPECT_EQ(lines[before + 1], " Meniscus position for 30000rpm is 5.9034 cm.");
    EXPECT_EQ(lines[before + 2], " Meniscus position for 42000rpm is 6. cm.");
}

TEST_F(Meniscus, StartsASecondVisitWithTheStoredValues) {
    session.LoadSpeeds({42000, 42000, 30000, 30000});
    Store().ScanMeniscus(1) = 5.95F;
    Store().ScanMeniscus(3) = 5.97F;
    Menus().Get_MenFromScan.Click();
    EXPECT_EQ(Store().Meniscus, 5.95F);
    plot.Command1.Click();
    EXPECT_EQ(Store().Meniscus, 5.97F);
}

}  // namespace
}  // namespace halvern
