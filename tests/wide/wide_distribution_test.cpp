#include "wide/wide_distribution.h"

#include <cmath>

#include "store/report.h"
#include "support/failure.h"
#include "wide/wide_run.h"

namespace halvern {
namespace {

struct WideDistributionTest : test::WideRun {
    std::vector<std::string> LastLines(std::size_t count) const {
        const auto lines = test::ReportLines();
        return {lines.end() - static_cast<std::ptrdiff_t>(count), lines.end()};
    }
};

TEST_F(WideDistributionTest, TellsInTheReportWhetherItIsSmoothed) {
    MakeScans(45);
    Calculate();
    EXPECT_EQ(LastLines(3), (std::vector<std::string>{" ", " * Calculating Wide Straight Distribution *",
                                                      " * Calculated Distribution Will Not Be Smoothed *"}));
    S.UseSmoothing = true;
    S.SmoothWindow = 5;
    Calculate();
    EXPECT_EQ(LastLines(3), (std::vector<std::string>{" * Calculating Wide Straight Distribution *",
                                                      " * Calculated Distribution Will Be Smoothed *",
                                                      " * Current Smoothing Window is 5 out of 45 points"}));
    EXPECT_EQ(desktop.pointers,
              (std::vector<int>{kPointerHourglass, kPointerNormal, kPointerHourglass, kPointerNormal}));
}

TEST_F(WideDistributionTest, HasElevenRadiiJustUnderTheRoundNumbers) {
    MakeScans(45);
    Calculate();
    float R = 6.0F;
    for (std::int32_t K = 1; K <= 11; ++K) {
        EXPECT_EQ(S.WDRadius(K), R) << K;
        EXPECT_TRUE(S.WDRadiusValid(K)) << K;
        R += 0.1F;
    }
    EXPECT_EQ(S.WDRadius(2), 6.0999999F);
    EXPECT_EQ(S.WDRadius(11), 6.999999F);
    EXPECT_FALSE(S.WDRadiusValid(12));
    EXPECT_TRUE(M.PlotWideD.IsEnabled() && M.WDOut.IsEnabled());
}

TEST_F(WideDistributionTest, WithdrawsAllFiftyRadiiFirst) {
    MakeScans(45);
    for (std::int32_t K = 1; K <= 50; ++K)
        S.WDRadiusValid(K) = true;
    Calculate();
    for (std::int32_t K = 1; K <= 50; ++K)
        EXPECT_EQ(S.WDRadiusValid(K), K <= 11) << K;
}

// What is reported is on the screen before the calculation starts, and the list has scrolled on.
TEST_F(WideDistributionTest, ShowsItsLinesAndScrollsBeforeItCalculates) {
    MakeScans(45);
    for (int i = 0; i < 10; ++i)
        AddLine("line");
    std::vector<std::size_t> lines, tops;
    desktop.atPass = [&] {
        lines.push_back(static_cast<std::size_t>(OutFileBox().ListCount()));
        tops.push_back(static_cast<std::size_t>(OutFileBox().TopIndex()));
        EXPECT_FALSE(S.WDRadiusValid(6));
    };
    AnswerOk();
    DoWideStraight_Click();
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[0], 13U);
    EXPECT_EQ(tops[0], 0U);
    EXPECT_EQ(tops[1], 5U);
}

// The whole calculation at one radius, long-hand, in double with a rounding to single at each store.
TEST_F(WideDistributionTest, IsTheDerivativeOfTheSignalCorrectedForDilution) {
    constexpr int N = 45;
    MakeScans(N);
    for (std::int32_t K = 1; K <= N; ++K)
        S.JitterOffset(K) = 0.001F * static_cast<float>(K % 5);
    Calculate();
    // 6.5 cm is nominally 6.4999995; the first grid point at or beyond it is number 700, at 6.5.
    const auto f = [](double value) { return static_cast<float>(value); };
    const int idx = 700;
    const float radius = S.ScanData(idx, 1, 1);
    ASSERT_NEAR(radius, 6.5, 1E-6);
    std::vector<float> C(N + 1), s(N + 1), W(N + 1), g(N + 1), mid(N + 1);
    for (int J = 1; J <= N; ++J) {
        const int scan = N - J + 1;
        float sum = 0.0F;
        for (int I = idx - 6; I <= idx + 4; ++I)
            sum = f(static_cast<double>(sum) + f(static_cast<double>(S.ScanData(I, 2, scan)) - S.JitterOffset(scan)));
        const auto j = static_cast<std::size_t>(J);
        C[j] = f(sum / 11.0);
        s[j] = f(std::log(static_cast<double>(radius / 5.9F)) / S.ScanW2t(scan));
        W[j] = S.ScanW2t(scan);
    }
    for (std::size_t J = 2; J <= N; ++J) {
        g[J] = f((static_cast<double>(C[J]) - C[J - 1]) / (static_cast<double>(s[J]) - s[J - 1]) * 1E-13);
        mid[J] = f((static_cast<double>(s[J - 1]) + s[J]) * 0.5 * 1E13);
    }
    std::vector<float> G0(N + 1), Ga(N + 1), ss(N + 1), integral(N + 1);
    for (std::size_t J = 1; J <= N; ++J) {
        Ga[J] = G0[J] = f(g[J] * 1E13);
        ss[J] = f(mid[J] * 1E-13);
    }
    for (int pass = 0; pass < 3; ++pass) {
        integral[1] = 0.0F;  // s* and g(s*) of the placeholder are 0
        for (std::size_t J = 2; J < N; ++J)
            integral[J] =
                f((static_cast<double>(ss[J]) - ss[J - 1]) * (static_cast<double>(ss[J]) * Ga[J]) + integral[J - 1]);
        integral[N] = f(ss[N] * 0.5 * Ga[N] * (static_cast<double>(ss[N]) - ss[N - 1]) + integral[N - 1]);
        for (std::size_t J = 2; J <= N; ++J)
            Ga[J] = f(G0[J] - (static_cast<double>(W[J]) / ss[J]) * (static_cast<double>(integral[J]) + integral[J]));
    }
    EXPECT_EQ(S.WDGofS(1, 6), 0.0F);
    EXPECT_EQ(S.WDSValue(1, 6), 0.0F);
    float largest = 0.0F, sOfLargest = 0.0F;
    for (std::int32_t J = 2; J <= N; ++J) {
        const auto j = static_cast<std::size_t>(J);
        EXPECT_EQ(S.WDSValue(J, 6), mid[j]) << J;
        // Extended and double work may differ in the last bit of a store.
        EXPECT_NEAR(S.WDGofS(J, 6), f(Ga[j] * 1E-13), 1E-5 * std::fabs(S.WDGofS(J, 6)) + 1E-9) << J;
        if (S.WDGofS(J, 6) > largest) {
            largest = S.WDGofS(J, 6);
            sOfLargest = S.WDSValue(J, 6);
        }
    }
    EXPECT_NEAR(sOfLargest, 20.0F, 1.0F) << "the boundary moves at 20 Svedbergs";
}

TEST_F(WideDistributionTest, SmoothsGButNeverS) {
    MakeScans(45);
    Calculate();
    ScanCurve g;
    g.Fill(0.0F);
    std::vector<float> s;
    for (std::int32_t J = 1; J <= 45; ++J) {
        g(J) = S.WDGofS(J, 3);
        s.push_back(S.WDSValue(J, 3));
    }
    std::int16_t Window = 5;
    SmoothData(g, 45, 3.0F, Window);
    S.UseSmoothing = true;
    S.SmoothWindow = 5;
    Calculate();
    for (std::int32_t J = 1; J <= 45; ++J) {
        EXPECT_EQ(S.WDGofS(J, 3), g(J));
        EXPECT_EQ(S.WDSValue(J, 3), s[static_cast<std::size_t>(J - 1)]);
    }
}

TEST_F(WideDistributionTest, LeavesOutRadiiThatTheScansDoNotReach) {
    MakeScans(45);
    S.ScanPoints(7) = 700;  // up to 6.5 cm
    Calculate();
    EXPECT_NEAR(S.MinLastRadius, 6.5F, 1E-6F);
    EXPECT_NEAR(S.MaxFirstRadius, 5.801F, 1E-6F);
    for (std::int32_t K = 1; K <= 11; ++K)
        EXPECT_EQ(S.WDRadiusValid(K), S.WDRadius(K) < S.MinLastRadius) << K;
    EXPECT_FALSE(S.WDRadiusValid(7));
}

TEST_F(WideDistributionTest, TakesALimitAsOutOfReach) {
    MakeScans(45);
    S.ScanData(1, 1, 3) = S.WDRadius(2) = 6.0999999F;
    Calculate();
    EXPECT_FALSE(S.WDRadiusValid(1));
    EXPECT_FALSE(S.WDRadiusValid(2)) << "the first radius itself is not beyond it";
    EXPECT_TRUE(S.WDRadiusValid(3));
}

TEST_F(WideDistributionTest, HoldsRadiusKAgainstTheMeniscusOfScanK) {
    MakeScans(45);
    S.ScanMeniscus(4) = 6.4F;
    S.ScanMeniscus(20) = 6.9F;
    Calculate();
    EXPECT_FALSE(S.WDRadiusValid(4)) << "6.3 cm against the meniscus of scan 4";
    EXPECT_TRUE(S.WDRadiusValid(5)) << "though scan 20 begins far beyond it";
    S.ScanMeniscus(5) = S.WDRadius(5);
    Calculate();
    EXPECT_FALSE(S.WDRadiusValid(5)) << "at the meniscus itself s* is 0";
}

TEST_F(WideDistributionTest, HoldsRadiiBeyondTheLastScanAgainstTheDefaultMeniscus) {
    MakeScans(5);
    S.ScanMeniscus(8) = 6.9F;
    Calculate();
    for (std::int32_t K = 1; K <= 11; ++K)
        EXPECT_EQ(S.WDRadiusValid(K), K != 8) << K;
}

TEST_F(WideDistributionTest, KeepsTheColumnsOfARadiusThatIsLeftOut) {
    MakeScans(45);
    Calculate();
    const float kept = S.WDGofS(31, 11);  // the boundary passes 7 cm at scan 15
    ASSERT_NE(kept, 0.0F);
    S.ScanPoints(1) = 1000;
    Calculate();
    EXPECT_FALSE(S.WDRadiusValid(11));
    EXPECT_EQ(S.WDGofS(31, 11), kept);
}

TEST_F(WideDistributionTest, TakesAGridPointThatLiesAtTheRadius) {
    MakeScans(45);
    for (std::int32_t K = 1; K <= 45; ++K)
        S.ScanData(700, 1, K) = 6.4999995F;  // the nominal 6.5 cm
    Calculate();
    // s* midway between the last two scans.
    const double ratio = std::log(static_cast<double>(6.4999995F / 5.9F));
    const auto sOf = [&](std::int32_t K) { return static_cast<float>(ratio / S.ScanW2t(K)); };
    EXPECT_EQ(S.WDSValue(2, 6), static_cast<float>((static_cast<double>(sOf(45)) + sOf(44)) * 0.5 * 1E13));
}

// The nominal 6.5 cm is a single just under it: a scan that ends there does not reach it, the next single does.
TEST_F(WideDistributionTest, NeedsScansThatGoOnBeyondARadius) {
    MakeScans(45);
    Calculate();
    const float radius = S.WDRadius(6);
    ASSERT_EQ(radius, 6.4999995F);
    S.ScanPoints(7) = 700;
    S.ScanData(700, 1, 7) = radius;
    Calculate();
    EXPECT_EQ(S.MinLastRadius, radius);
    EXPECT_TRUE(S.WDRadiusValid(5));
    EXPECT_FALSE(S.WDRadiusValid(6));
    S.ScanData(700, 1, 7) = std::nextafter(radius, 7.0F);
    Calculate();
    EXPECT_TRUE(S.WDRadiusValid(6));
    EXPECT_FALSE(S.WDRadiusValid(7));
}

TEST_F(WideDistributionTest, OffersRadiiOutOfReachDisabled) {
    MakeScans(45);
    S.ScanPoints(7) = 699;  // up to 6.499 cm
    desktop.dialogs.push_back([](Form& form) {
        auto& dialog = dynamic_cast<RadiiDialog&>(form);
        for (std::size_t i = 0; i < 11; ++i) {
            EXPECT_EQ(dialog.UseRadii[i].IsEnabled(), i < 5) << i;
            EXPECT_EQ(dialog.UseRadii[i].Value(), 0) << i;
        }
        dialog.PlotEmUp.Click();
    });
    DoWideStraight_Click();
    EXPECT_EQ(S.PlotCount, 0);
}

struct AbsorbanceWideDistribution : WideDistributionTest {
    AbsorbanceWideDistribution() {
        MakeScans(30);
        S.IsInterference = false;
        for (std::int32_t K = 1; K <= 30; ++K)
            S.JitterOffset(K) = 100.0F;  // not for these data
    }
};

TEST_F(AbsorbanceWideDistribution, IsWorkedOnAGridOfItsOwn) {
    // Scan K starts K hundred-thousandths of a centimetre off, and lies on coarser radii.
    for (std::int32_t K = 1; K <= 30; ++K) {
        S.ScanPoints(K) = 460;
        for (std::int32_t J = 1; J <= 460; ++J) {
            S.ScanData(J, 1, K) = static_cast<float>(5.85 + 0.003 * J + 1E-5 * K);
            S.ScanData(J, 2, K) = static_cast<float>(K + 0.25 * J);
        }
    }
    S.ScanPoints(5) = 400;  // ends at 7.05005 cm
    Calculate();
    EXPECT_EQ(S.GridPoints, 1250) << "7.05 cm is point 1250 of 5.8 cm and thousandths";
    EXPECT_EQ(S.GridSignal(1, 1), 1.25F) << "flat in front of the data";
    EXPECT_EQ(S.GridSignal(30, 7), 7.25F);
    // At 6.5 cm the scan's point is (6.5 - 5.85 - 1E-5 K) / 0.003.
    for (const std::int32_t K : {1, 15, 30})
        EXPECT_NEAR(S.GridSignal(700, K), K + 0.25 * (0.65 - 1E-5 * K) / 0.003, 1E-3);
    EXPECT_NEAR(S.GridSignal(1250, 5), 5.0 + 0.25 * (1.25 - 0.05 - 5E-5) / 0.003, 1E-3) << "the last point";
    EXPECT_NEAR(S.GridRadius(700), 6.5F, 1E-6F);
}

TEST_F(AbsorbanceWideDistribution, KeepsRawRadiiBehindTheGridOfTheLastScan) {
    for (std::int32_t J = 1; J <= kPoints; ++J)
        S.ScanData(J, 1, 30) = static_cast<float>(5.8 + 0.0005 * J);  // up to 6.5005 cm
    Calculate();
    EXPECT_EQ(S.GridPoints, 700);
    EXPECT_NEAR(S.GridRadius(700), 6.5F, 1E-6F);
    EXPECT_EQ(S.GridRadius(701), S.ScanData(701, 1, 30));
    EXPECT_NE(S.GridSignal(1350, 1), 0.0F) << "of longer scans more stands there, and is not read";
}

// The grid ends with 6.5 cm, point 700, and the eleven points around that radius are 694 to 704.
TEST_F(AbsorbanceWideDistribution, AveragesUpToFourPointsBeyondTheGrid) {
    S.ScanPoints(30) = 700;
    S.ScanData(700, 1, 30) = 6.5004F;
    const auto calculated = [&] {
        Calculate();
        EXPECT_EQ(S.GridPoints, 700);
        EXPECT_TRUE(S.WDRadiusValid(6));
        std::vector<float> g;
        for (std::int32_t J = 2; J <= 30; ++J)
            g.push_back(S.WDGofS(J, 6));
        return g;
    };
    const auto before = calculated();

    // A longer scan has its own signal there. Grid and data lie within a thousandth of a point of each other.
    S.ScanData(707, 2, 10) += 1.0F;
    EXPECT_EQ(calculated(), before);
    S.ScanData(704, 2, 10) += 1.0F;
    const auto longer = calculated();
    EXPECT_NE(longer, before);
    // Scan 10 is point 21, which has part in the g of points 21 and 22; what integrates them only follows.
    EXPECT_EQ(std::vector(longer.begin(), longer.begin() + 19), std::vector(before.begin(), before.begin() + 19));

    // Where the short scan has ended, what stood there before counts.
    S.GridSignal(705, 30) = 5.0F;
    EXPECT_EQ(calculated(), longer);
    S.GridSignal(704, 30) = 5.0F;
    EXPECT_NE(calculated(), longer);
}

// 6.9 cm is nominally 6.899999; the grid of a scan that ends just beyond that ends with 6.899.
TEST_F(AbsorbanceWideDistribution, FailsOfARadiusBetweenTheEndsOfGridAndScans) {
    Calculate();
    const float radius = S.WDRadius(10);
    const float last = std::nextafter(radius, 7.0F);
    ASSERT_LT(last, static_cast<float>(1100 * 0.001F + 5.8)) << "point 1100 of the grid";
    S.ScanPoints(30) = 1100;
    S.ScanData(1100, 1, 30) = last;
    EXPECT_FAILURE(9, (DoWideStraight_Click(), 0));
    EXPECT_EQ(S.GridPoints, 1099);
}

TEST(WideGrid, StartsBehind5Point8Centimetres) {
    Curve radii, values;
    radii.Fill(0.0F);
    values.Fill(0.0F);
    for (std::int32_t I = 1; I <= 3; ++I) {
        radii(I) = 5.80F + 0.002F * static_cast<float>(I);
        values(I) = static_cast<float>(10 * I);
    }
    std::int16_t points = 0;
    InterpolateToGrid(radii, values, 3, points, 0.001F);
    ASSERT_EQ(points, 6);
    EXPECT_EQ(radii(1), static_cast<float>(static_cast<double>(0.001F) + 5.8));
    const float expected[] = {10.0F, 10.0F, 15.0F, 20.0F, 25.0F, 30.0F};
    for (std::int32_t I = 1; I <= 6; ++I)
        EXPECT_NEAR(values(I), expected[I - 1], 0.01F) << I;
}

// Each point is a product stored as a single, and its sum with 5.8 cm stored as one again.
TEST(WideGrid, IsRoundedAtTheProductAndAtTheSum) {
    Curve radii, values;
    radii.Fill(0.0F);
    values.Fill(0.0F);
    radii(1) = 5.8F;
    radii(2) = 8.0F;
    std::int16_t points = 0;
    InterpolateToGrid(radii, values, 2, points, 0.001F);
    ASSERT_EQ(points, 2000);
    int otherwise = 0;
    for (std::int32_t J = 1; J <= 2000; ++J) {
        const double product = static_cast<double>(J) * 0.001F;
        EXPECT_EQ(radii(J), static_cast<float>(static_cast<float>(product) + 5.8)) << J;
        otherwise += radii(J) != static_cast<float>(product + 5.8) ? 1 : 0;
    }
    EXPECT_GT(otherwise, 0) << "the points where the first rounding shows";
}

TEST_F(WideDistributionTest, OffersTheRadiiAndPlotsOverLnS) {
    MakeScans(45);
    desktop.dialogs.push_back([&](Form& form) {
        EXPECT_EQ(form.Name(), "PlotLogWD");
        EXPECT_FALSE(S.PlotReady);
        dynamic_cast<RadiiDialog&>(form).PlotEmUp.Click();
    });
    DoWideStraight_Click();
    EXPECT_TRUE(S.PlotReady && S.PlotLnAxis && plot.IsShown());
    EXPECT_EQ(S.PlotCount, 88);
}

TEST_F(WideDistributionTest, HidesThePlotWhenItsDialogIsCancelled) {
    MakeScans(45);
    plot.Show();
    S.PlotReady = true;
    S.PlotLnAxis = true;
    AnswerCancel();
    DoWideStraight_Click();
    EXPECT_FALSE(S.PlotReady || S.PlotLnAxis || plot.IsShown() || S.PlotDialogCancelled);
    EXPECT_TRUE(M.PlotWideD.IsEnabled()) << "the distribution is there";
}

TEST_F(WideDistributionTest, FailsOfTwoNeighboursOfEqualS) {
    MakeScans(10);
    S.ScanW2t(5) = S.ScanW2t(4);
    EXPECT_FAILURE(11, (DoWideStraight_Click(), 0));
    EXPECT_FALSE(M.PlotWideD.IsEnabled());
}

TEST_F(WideDistributionTest, FailsOfAScanWithoutOmegaSquaredT) {
    MakeScans(10);
    S.ScanW2t(1) = 0.0F;
    EXPECT_FAILURE(11, (DoWideStraight_Click(), 0));
}

TEST_F(WideDistributionTest, FailsOfARadiusAmongTheFirstPoints) {
    MakeScans(10);
    for (std::int32_t K = 1; K <= 10; ++K)
        for (std::int32_t J = 1; J <= kPoints; ++J)
            S.ScanData(J, 1, K) = static_cast<float>(5.995 + 0.001 * J);  // 6 cm is point 5
    EXPECT_FAILURE(9, (DoWideStraight_Click(), 0));
}

}  // namespace
}  // namespace halvern
