#include "conditioning/fringe_shift.h"

#include "conditioning/interference_run.h"
#include "support/failure.h"

namespace halvern {
namespace {

struct FringeShift : test::InterferenceRun {
    /// Whole fringes by which each scan stands off, the last one's first.
    void Jumps(std::initializer_list<float> perScan) {
        const std::vector<float> jumps(perScan);
        Signals([&](std::int32_t I, std::int32_t K) {
            return 0.0625F * static_cast<float>(I) + jumps.at(static_cast<std::size_t>(K - 1));
        });
    }
    void CorrectAt(std::int32_t point) {
        M.DoIntShift.Click();
        Pick(RadiusOf(point));
        session.desktop.dialogs.push_back([](Form& form) { form.Unload(); });
        S.PlotDialogOK = true;
        Done();
    }
    void ExpectOffsets(std::initializer_list<float> expected) {
        std::int32_t K = 0;
        for (const float offset : expected)
            EXPECT_EQ(S.JitterOffset(++K), offset) << K;
    }
};

TEST_F(FringeShift, IsPickedOnThreeScansLessTheirOffsets) {
    Jumps({0.0F, 1.0F, 0.0F, 0.0F, 2.0F});
    S.JitterOffset(2) = 0.25F;
    S.Meniscus = 6.0F;
    plot.Show();
    session.desktop.story.clear();
    M.DoIntShift.Click();
    EXPECT_EQ(session.desktop.story, (std::vector<std::string>{"hide Plotit", "show Plotit"}));
    EXPECT_EQ(S.PlotHelp1, "Use <Ctrl>LMB to Set the Point to be used to correct for");
    EXPECT_EQ(S.PlotHelp2, "Integer Fringe Shifts");
    EXPECT_EQ(S.PlotXTitle, "Radius (cm)");
    EXPECT_EQ(S.PlotYTitle, "Fringes");
    EXPECT_TRUE(S.PickMeniscus && S.PickFringePoint && S.PlotReady);
    EXPECT_FALSE(S.PickDataLimits || S.PickJitterPoint || S.PlotLnAxis);
    EXPECT_EQ(S.SavedMeniscus, 6.0F);
    EXPECT_TRUE(plot.Command1.IsShown() && plot.IsShown());
    EXPECT_FALSE(plot.TestIt.IsShown());

    EXPECT_EQ(S.GridPoints, 61);
    ASSERT_EQ(S.PlotCount, 6 * 61);
    const std::int32_t scans[] = {1, 2, 5};
    for (std::int32_t n = 0; n < 3; ++n)
        for (std::int32_t I = 1; I <= 61; ++I) {
            const std::int32_t K = scans[n], line = 122 * n + I;
            EXPECT_EQ(S.PlotSym(line), I == 1 ? -58 : -57 - 64 * K);
            EXPECT_EQ(S.PlotSym(line + 61), K);
            EXPECT_EQ(S.PlotX(line), S.ScanData(I, 1, 1));
            EXPECT_EQ(S.PlotY(line), S.ScanData(I, 2, K) - (K == 2 ? 0.25F : 0.0F));
            EXPECT_EQ(S.PlotY(line + 61), S.PlotY(line));
        }
}

TEST_F(FringeShift, BringsEachScanToItsSuccessor) {
    // Scan 3 stands three fringes above scan 4: three rounds. The last scan is the anchor.
    Jumps({3.0F, -1.0F, 5.0F, 2.0F, 2.0F});
    CorrectAt(30);
    ExpectOffsets({1.0F, -3.0F, 3.0F, 0.0F, 0.0F, 0.0F});
    for (std::int32_t K = 1; K <= kScans; ++K)
        for (std::int32_t I = 1; I <= kPoints; ++I) {
            EXPECT_EQ(S.GridSignal(I, K), 0.0625F * static_cast<float>(I) + 2.0F);
            EXPECT_EQ(S.ScanData(I, 2, K) - S.JitterOffset(K), S.GridSignal(I, K));
        }
    EXPECT_TRUE(S.FringeCorrected);
    EXPECT_FALSE(S.PickFringePoint || S.PickMeniscus);
    EXPECT_EQ(S.Meniscus, 5.905F);
    EXPECT_NEAR(S.FringeRefRadius, RadiusOf(30), 0.0005);
    EXPECT_EQ(M.NoJitterCorrection.Caption(), "&Remove Jitter and Integer Fringe Correction");
    EXPECT_EQ(M.PlotCorrected.Caption(), "&Corrected for Jitter and Interger Fringe Shift");
}

TEST_F(FringeShift, MovesThePointsOfTheFirstScansLengthAlone) {
    Jumps({2.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    S.GridSignal(62, 1) = 42.0F;
    CorrectAt(30);
    EXPECT_EQ(S.GridSignal(61, 1), 0.0625F * 61.0F);
    EXPECT_EQ(S.GridSignal(62, 1), 42.0F);
}

TEST_F(FringeShift, LeavesHalfAFringe) {
    Jumps({0.0F, 0.5F, 0.0F, -0.5F, 0.0F});
    CorrectAt(30);
    ExpectOffsets({0.0F, 0.0F, 0.0F, 0.0F, 0.0F});
}

TEST_F(FringeShift, ComparesEachScanWithTheNextAsMoved) {
    // Steps of 0.4375 add up to more than half a fringe against the last scan, but not between neighbours.
    Jumps({1.75F, 1.3125F, 0.875F, 0.4375F, 0.0F});
    CorrectAt(30);
    ExpectOffsets({0.0F, 0.0F, 0.0F, 0.0F, 0.0F});
}

TEST_F(FringeShift, AddsToTheJitterOffset) {
    Jumps({2.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    for (std::int32_t K = 1; K <= kScans; ++K)
        S.JitterOffset(K) = 0.25F;
    CorrectAt(30);
    ExpectOffsets({2.25F, 0.25F, 0.25F, 0.25F, 0.25F});
}

TEST_F(FringeShift, CanBePickedAtTheLastPoint) {
    // One of the five points lies behind the scans, where nothing is added.
    Jumps({2.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    CorrectAt(61);
    ExpectOffsets({2.0F, 0.0F, 0.0F, 0.0F, 0.0F});
}

TEST_F(FringeShift, AveragesFivePointsCentredOneBelowThePick) {
    // A spike of 10 fringes on one point of scan 4 is 2 in the mean, if it lies within the window of points 27 to 31.
    for (const std::int32_t spike : {26, 27, 31, 32}) {
        Signals([&](std::int32_t I, std::int32_t K) { return K == 4 && I == spike ? 10.0F : 0.0F; });
        S.JitterOffset.Zero();
        CorrectAt(30);
        EXPECT_EQ(S.JitterOffset(4), spike == 27 || spike == 31 ? 2.0F : 0.0F) << spike;
    }
}

TEST_F(FringeShift, GoesOnToThePlotOfCorrectedScans) {
    Jumps({1.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    M.DoIntShift.Click();
    Pick(RadiusOf(30));
    bool shown = false;
    session.desktop.dialogs.push_back([&](Form& form) {
        shown = form.Name() == "IncrementalPlot";
        dynamic_cast<Button&>(*form.Controls().at(5)).Click();
    });
    Done();
    EXPECT_TRUE(shown);
    EXPECT_EQ(S.PlotHelp2, "Data Corrected for IF Jitter and Integer Fringe Shift");
    EXPECT_EQ(S.PlotCount, 2 * 5 * 61);
    EXPECT_TRUE(plot.IsShown());
}

TEST_F(FringeShift, FailsTooCloseToTheStartOrBeyondTheEnd) {
    M.DoIntShift.Click();
    S.FringeRefRadius = static_cast<float>(RadiusOf(3));
    EXPECT_FAILURE(9, (CorrectIntegerFringes(), 0));
    S.FringeRefRadius = 7.0F;
    EXPECT_FAILURE(9, (CorrectIntegerFringes(), 0));
}

TEST_F(FringeShift, EndsWhereAFringeIsLostInTheRounding) {
    // From 2^25 on a single counts fours.
    Jumps({0x1p25F, 0x1p25F + 64.0F, 0x1p25F, 0x1p25F, 0x1p25F});
    CorrectAt(30);
    EXPECT_TRUE(S.FringeCorrected);
    ExpectOffsets({0.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    EXPECT_EQ(S.GridSignal(29, 1), 0x1p25F);
    EXPECT_EQ(S.GridSignal(29, 2), 0x1p25F + 64.0F);
}

TEST_F(FringeShift, LeavesAScanTooFarFromItsSuccessor) {
    Jumps({1E9F, 0.0F, 0.0F, 0.0F, 0.0F});
    CorrectAt(30);
    EXPECT_TRUE(S.FringeCorrected);
    EXPECT_EQ(S.JitterOffset(1), 0.0F);
    EXPECT_EQ(S.GridSignal(29, 1), 1E9F);
}

TEST_F(FringeShift, LeavesAScanThatNoNumberOfFringesBringsToItsSuccessor) {
    // One value that is no signal, among others that could move by sixteen million fringes.
    Signals([](std::int32_t I, std::int32_t K) { return K == 3 && I == 28 ? 1E12F : 0.0625F * static_cast<float>(I); });
    CorrectAt(30);
    EXPECT_TRUE(S.FringeCorrected);
    ExpectOffsets({0.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    EXPECT_EQ(S.GridSignal(29, 3), 0.0625F * 29.0F);
    EXPECT_EQ(S.GridSignal(29, 2), 0.0625F * 29.0F);
}

TEST_F(FringeShift, IsRemovedWithTheJitterCorrection) {
    Jumps({2.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    CorrectAt(30);
    M.NoJitterCorrection.Click();
    EXPECT_FALSE(S.FringeCorrected);
    ExpectOffsets({0.0F, 0.0F, 0.0F, 0.0F, 0.0F});
}

}  // namespace
}  // namespace halvern
