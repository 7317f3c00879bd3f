#include <cmath>

#include "plot/drawn_plot.h"

namespace halvern {
namespace {

using test::Drew;
using test::ExpectLine;
using test::kNear;
using test::Mark;

/// A window of 10000 by 6000 twips has tick labels of 12 points.
struct AxisLabels : test::DrawnPlot {
    AxisLabels() {
        Store().PlotReady = true;
        plot.Resized(10000, 6000, false);
        Store().PlotHelp1 = Store().PlotHelp2 = " ";
    }
    void PaintPlot() { Paint({{10.0F, 10.0F, 0}, {20.0F, 20.0F, 0}}); }

    /// Labels of the x axis: all that are printed with their top at -1.
    std::vector<Mark> XLabels() const {
        return TextsAt([](const Mark& m) { return m.y1 == -1.0F; });
    }
    std::vector<Mark> YLabels() const {
        return TextsAt([](const Mark& m) { return m.x1 < 0.0F && m.y1 != -1.0F && m.cell == 0; });
    }
    std::vector<Mark> SStarLabels() const {
        return TextsAt([](const Mark& m) { return m.y1 == 97.0F; });
    }
    template <class Condition>
    std::vector<Mark> TextsAt(Condition condition) const {
        std::vector<Mark> found;
        for (const Mark& mark : canvas.Of(Drew::kText))
            if (condition(mark))
                found.push_back(mark);
        return found;
    }
};

TEST_F(AxisLabels, HaveTicksBetweenTheCornersInsideTheBox) {
    PaintPlot();
    const auto ticks = Ticks();
    ASSERT_EQ(ticks.size(), 10U) << "five on the bottom edge, five on the left";
    for (std::size_t i = 0; i < 5; ++i) {
        const float p = 100.0F / 6.0F * static_cast<float>(i + 1);
        ExpectLine(ticks[i], p, 0.0F, p, 2.0F, 0x000000);
        ExpectLine(ticks[i + 5], 0.0F, p, 2.0F, p, 0x000000);
    }
}

TEST_F(AxisLabels, StandBelowTheirTicks) {
    PaintPlot();
    const auto labels = XLabels();
    ASSERT_EQ(labels.size(), 7U);
    const char* const texts[] = {"0.000", "0.200", "0.400", "0.600", "0.800", "1.000", "1.200"};
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(labels[i].text, texts[i]);
        EXPECT_EQ(labels[i].points, 12);
        EXPECT_NEAR(MiddleOf(labels[i]), 100.0F / 6.0F * static_cast<float>(i), kNear);
    }
}

TEST_F(AxisLabels, CallTheMiddleOfASymmetricAxisZero) {
    View(-1.0F, 1.0F, -1.0F, 1.0F);
    PaintPlot();
    EXPECT_EQ(XLabels().at(3).text, "0.000");
    EXPECT_EQ(YLabels().at(3).text, "0.000");
    EXPECT_EQ(XLabels().at(0).text, "-1.200");
}

TEST_F(AxisLabels, OfTheYAxisAreAlignedABlankLeftOfTheBox) {
    PaintPlot();
    const auto labels = YLabels();
    ASSERT_EQ(labels.size(), 7U);
    EXPECT_EQ(labels[1].text, "0.200");
    for (std::size_t j = 0; j < 7; ++j) {
        EXPECT_NEAR(labels[j].x1 + WidthOf(labels[j]), -0.1F * 12.0F, kNear);
        EXPECT_NEAR(labels[j].y1, 100.0F / 6.0F * static_cast<float>(j) + 2.0F * 0.25F * 12.0F / 3.0F, kNear);
    }
}

TEST_F(AxisLabels, LeaveThePowerOfTenToTheTitle) {
    View(0.0F, 0.05F, 3500.0F, 15000.0F);
    PaintPlot();
    // An axis from 0 to 0.06 takes out 10^-2: 0.000 to 6.000.
    EXPECT_EQ(XLabels().front().text, "0.000");
    EXPECT_EQ(XLabels().back().text, "6.000");
    // 2000 to 16000: the smaller end decides, the larger gets the long label.
    EXPECT_EQ(YLabels().front().text, "2.000");
    EXPECT_EQ(YLabels().back().text, "16.000");
}

TEST_F(AxisLabels, OfTenOrATenthKeepTheirPower) {
    Store().PlotXTitle = "x";
    View(20.0F, 80.0F, 0.2F, 0.8F);
    PaintPlot();
    EXPECT_EQ(canvas.Texts("x").size(), 1U);
    EXPECT_EQ(XLabels().back().text, "90.000");
    EXPECT_EQ(YLabels().back().text, "0.900");
}

TEST_F(AxisLabels, RepeatWhereThreeDecimalsAreTooFew) {
    View(1.0F, 1.001F, 0.0F, 1.0F);
    PaintPlot();
    const auto labels = XLabels();
    bool repeated = false;
    for (std::size_t i = 1; i < labels.size(); ++i)
        repeated = repeated || labels[i].text == labels[i - 1].text;
    EXPECT_TRUE(repeated);
}

TEST_F(AxisLabels, TellSStarOverAnAxisOfItsLogarithm) {
    Store().PlotLnAxis = true;
    View(-1.0F, 1.0F, 0.0F, 1.0F);  // -1.2 to 1.2 in six steps of 0.4
    PaintPlot();
    const auto labels = SStarLabels();
    ASSERT_EQ(labels.size(), 5U);
    const char* const texts[] = {"4.49E-01", "6.70E-01", "1.00E+00", "1.49E+00", "2.23E+00"};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(labels[i].text, texts[i]);
        EXPECT_EQ(labels[i].colour, 0x800000);
        EXPECT_NEAR(MiddleOf(labels[i]), 100.0F / 6.0F * static_cast<float>(i + 1), kNear);
    }
    const Mark sStar = Text("(s*)");
    EXPECT_EQ(sStar.colour, 0x800000);
    EXPECT_NEAR(MiddleOf(sStar), 50.0F, kNear);
    EXPECT_NEAR(sStar.y1, 100.0F - HeightOf(sStar), kNear);
    EXPECT_EQ(YLabels().front().colour, 0x000000);

    const auto ticks = Ticks();
    ASSERT_EQ(ticks.size(), 15U);
    for (std::size_t i = 0; i < 5; ++i) {
        const float p = 100.0F / 6.0F * static_cast<float>(i + 1);
        ExpectLine(ticks[i + 5], p, 100.0F, p, 98.0F, 0x800000);
    }
}

TEST_F(AxisLabels, OfSStarAreMeasuredWithThePowerInsideTheExponential) {
    Store().PlotLnAxis = true;
    // 100 to 600 in steps of 100 takes out 10^2: the text measured is that of e^2 and the like, the one printed has the
    // exponent 80 and more, of the same width. At e^300 it has three digits, and stands off by half a character.
    View(120.0F, 560.0F, 0.0F, 1.0F);
    PaintPlot();
    const auto labels = SStarLabels();
    ASSERT_FALSE(labels.empty());
    const Mark& last = labels.back();
    EXPECT_EQ(last.text.size(), 9U) << last.text;
    const double tick = 100.0 / static_cast<double>(labels.size() + 1) * static_cast<double>(labels.size());
    EXPECT_NEAR(MiddleOf(last), tick + 0.5 * 0.1 * 12.0, kNear);
    // The power is taken out behind the exponential, so that the label is a hundredth of s*.
    const double LnS = plot.XAxisMin + (plot.XAxisMax - plot.XAxisMin) * tick / 100.0;
    EXPECT_NEAR(std::stod(last.text) / (std::exp(LnS) / 100.0), 1.0, 0.01);
}

TEST_F(AxisLabels, WarnOfEqualValuesXFirstAndOnce) {
    View(5.0F, 5.0F, -5.0F, -5.0F);
    PaintPlot();
    ASSERT_EQ(desktop.messages.size(), 2U);
    EXPECT_EQ(desktop.messages[0].text, "WARNING:  All X values are identical.");
    EXPECT_EQ(desktop.messages[1].text, "WARNING:  All Y values are identical.");
    EXPECT_EQ(desktop.messages[0].title, "Data Error");
    EXPECT_EQ(desktop.messages[0].style, 48);
    EXPECT_EQ(Store().PlotXMin, 2.5F);
    EXPECT_EQ(Store().PlotXMax, 10.0F);
    EXPECT_EQ(plot.XAxisMin, 2.0F);
    EXPECT_EQ(plot.XAxisMax, 12.0F);
    EXPECT_EQ(Store().PlotYMin, -10.0F);
    EXPECT_EQ(Store().PlotYMax, -2.5F);
    EXPECT_EQ(plot.YAxisMin, -12.0F);
    EXPECT_EQ(plot.YAxisMax, -2.0F);
    EXPECT_FALSE(XLabels().empty()) << "painting continues";
    PaintPlot();
    EXPECT_EQ(desktop.messages.size(), 2U);
}

TEST_F(AxisLabels, WarnOfZerosAtEachPaint) {
    View(0.0F, 0.0F, 0.0F, 1.0F);
    PaintPlot();
    PaintPlot();
    EXPECT_EQ(desktop.messages.size(), 2U);
    EXPECT_EQ(plot.XAxisMin, -2.0F);
    EXPECT_EQ(plot.XAxisMax, 2.0F);
    EXPECT_EQ(XLabels().size(), 5U);
}

}  // namespace
}  // namespace halvern
