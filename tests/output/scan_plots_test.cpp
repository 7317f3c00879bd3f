#include "output/scan_plots.h"

#include <gtest/gtest.h>

#include "output/incremental_plot.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

/// Ten scans of 3 + K points.
struct ScanPlots : ::testing::Test {
    test::TestDesktop desktop;
    PlotWindow& plot = PlotitForm();
    AnalysisStore& S = Store();

    ScanPlots() {
        plot.Load();
        S.NumFiles = 10;
        S.PlotEveryNth = 1;
        for (std::int32_t K = 1; K <= 10; ++K) {
            S.ScanPoints(K) = static_cast<std::int16_t>(3 + K);
            S.JitterOffset(K) = 0.125F * static_cast<float>(K);
            for (std::int32_t J = 1; J <= 3 + K; ++J) {
                S.ScanData(J, 1, K) = 5.9F + 0.01F * static_cast<float>(J);
                S.ScanData(J, 2, K) = static_cast<float>(100 * K + J);
            }
        }
        S.GridPoints = 4;
        for (std::int32_t J = 1; J <= 4; ++J) {
            S.GridRadius(J) = 6.0F + 0.001F * static_cast<float>(J);
            for (std::int32_t K = 1; K <= 10; ++K)
                S.GridSignal(J, K) = static_cast<float>(1000 * K + J);
        }
    }
    /// The user sets the increment, with the arrows, and presses OK.
    void AnswerEvery(std::int32_t N) {
        desktop.dialogs.push_back([N](Form& form) {
            auto& dialog = dynamic_cast<IncrementalPlot&>(form);
            dialog.UpDown1.SetValue(N);
            dialog.PlotEmUpScottie.Click();
        });
    }
    void AnswerCancel() {
        desktop.dialogs.push_back([](Form& form) { dynamic_cast<IncrementalPlot&>(form).Nevermind.Click(); });
    }
    void AnswerByTheFrame() {
        desktop.dialogs.push_back([](Form& form) { form.Unload(); });
    }

    /// Goes through the points of the request one after the other.
    std::int32_t at = 0;
    void ExpectPoint(float x, float y, int code) {
        ++at;
        EXPECT_EQ(S.PlotX(at), x) << at;
        EXPECT_EQ(S.PlotY(at), y) << at;
        EXPECT_EQ(S.PlotSym(at), code) << at;
    }
};

TEST_F(ScanPlots, OfRawDataHaveCorrectedMarkersAndRawLines) {
    AnswerEvery(3);
    PlotRaw_Click();
    EXPECT_EQ(S.PlotHelp1, " ");
    EXPECT_EQ(S.PlotHelp2, "Raw Data");
    EXPECT_EQ(S.PlotXTitle, "Radius (cm)");
    EXPECT_EQ(S.PlotYTitle, "Conc");
    const std::int32_t scans[] = {1, 4, 7, 10};
    for (std::int32_t q = 1; q <= 4; ++q) {
        const std::int32_t I = scans[q - 1];
        for (std::int32_t J = 1; J <= 3 + I; ++J)
            ExpectPoint(S.ScanData(J, 1, I), S.ScanData(J, 2, I) - S.JitterOffset(I), q);
    }
    for (const std::int32_t I : scans)
        for (std::int32_t J = 1; J <= 3 + I; ++J)
            ExpectPoint(S.ScanData(J, 1, I), S.ScanData(J, 2, I), J == 1 ? -58 : -57 - 64 * I);
    EXPECT_EQ(S.PlotCount, at);
    EXPECT_TRUE(S.PlotReady);
    EXPECT_FALSE(S.PlotLnAxis);
    EXPECT_TRUE(plot.IsShown());
    EXPECT_EQ(S.PlotEveryNth, 3);
}

TEST_F(ScanPlots, OfCorrectedDataAreLessTheOffsetThroughout) {
    S.IsInterference = true;
    S.FringeCorrected = true;
    AnswerEvery(3);
    PlotCorrected_Click();
    EXPECT_EQ(S.PlotHelp2, "Data Corrected for IF Jitter and Integer Fringe Shift");
    EXPECT_EQ(S.PlotXTitle, "Radius (cm)");
    EXPECT_EQ(S.PlotYTitle, "Fringes");
    const std::int32_t scans[] = {1, 4, 7, 10};
    for (const bool lines : {false, true})
        for (std::int32_t q = 1; q <= 4; ++q) {
            const std::int32_t I = scans[q - 1];
            for (std::int32_t J = 1; J <= 3 + I; ++J)
                ExpectPoint(S.ScanData(J, 1, I), S.ScanData(J, 2, I) - S.JitterOffset(I),
                            !lines   ? q
                            : J == 1 ? -58
                                     : -57 - 64 * q);
        }
    EXPECT_EQ(S.PlotCount, at);
}

TEST_F(ScanPlots, OfCorrectedDataKeepTheLastXTitleWithoutFringes) {
    S.PlotXTitle = "S (Svedbergs)";
    AnswerEvery(1);
    PlotCorrected_Click();
    EXPECT_EQ(S.PlotXTitle, "S (Svedbergs)");
    EXPECT_EQ(S.PlotHelp2, "Data Corrected for IF Jitter");
}

TEST_F(ScanPlots, OfInterpolatedDataAreLinesOnTheCommonGrid) {
    AnswerEvery(5);
    PlotInterp_Click();
    EXPECT_EQ(S.PlotHelp2, "Interpolated Data (deltaX = 0.001 cm)");
    for (const std::int32_t I : {1, 6})
        for (std::int32_t J = 1; J <= 4; ++J)
            ExpectPoint(S.GridRadius(J), S.GridSignal(J, I), J == 1 ? -58 : -57);
    EXPECT_EQ(S.PlotCount, 8);
    EXPECT_FALSE(Menus().PlotInterp.IsShown()) << "out of the user's reach";
}

TEST_F(ScanPlots, HideThePlotWhenTheDialogIsCancelled) {
    S.PickMeniscus = true;
    plot.Show();
    AnswerCancel();
    PlotRaw_Click();
    EXPECT_FALSE(plot.IsShown());
    EXPECT_FALSE(S.PlotDialogCancelled) << "it has been seen";
    EXPECT_FALSE(S.PlotReady);
    EXPECT_EQ(S.PlotCount, 0);
    EXPECT_TRUE(S.PickMeniscus);
}

TEST_F(ScanPlots, OfAnyKindCanBeCancelled) {
    for (const auto command : {PlotRaw_Click, PlotCorrected_Click, PlotInterp_Click}) {
        plot.Show();
        AnswerCancel();
        command();
        EXPECT_FALSE(plot.IsShown());
        EXPECT_EQ(S.PlotCount, 0);
    }
}

TEST_F(ScanPlots, GoByTheLastAnswerWhenTheDialogIsClosedByItsFrame) {
    S.PickMeniscus = true;
    plot.Show();
    AnswerByTheFrame();
    PlotRaw_Click();
    EXPECT_EQ(S.PlotCount, 0);
    EXPECT_TRUE(plot.IsShown());
    EXPECT_FALSE(S.PickMeniscus);
    S.PlotDialogOK = true;
    AnswerByTheFrame();
    PlotRaw_Click();
    EXPECT_GT(S.PlotCount, 0);
}

TEST_F(ScanPlots, AreNotDrawnFromASinglePoint) {
    S.NumFiles = 0;
    AnswerEvery(1);
    PlotRaw_Click();
    EXPECT_EQ(S.PlotCount, 0);
    EXPECT_FALSE(S.PlotReady);
    EXPECT_TRUE(plot.IsShown());
}

TEST_F(ScanPlots, HaveRoomForTheLargestDataSet) {
    S.NumFiles = kMostScans;
    for (std::int32_t K = 1; K <= kMostScans; ++K)
        S.ScanPoints(K) = kMostPoints;
    AnswerEvery(1);
    PlotRaw_Click();
    EXPECT_EQ(S.PlotCount, 2048000);
    EXPECT_EQ(S.PlotSym(2048000), -57 - 64 * 500);
    EXPECT_EQ(S.PlotSym(1024000), 500);
}

TEST(SavePlots, TurnsItsFlagOverUnderACaptionThatTellsTheMode) {
    Store().SavePlotFiles = -1;
    SavePlots_Click();
    EXPECT_EQ(Store().SavePlotFiles, 0);
    EXPECT_EQ(Menus().SavePlots.Caption(), "Discard Plot Files");
    SavePlots_Click();
    EXPECT_EQ(Store().SavePlotFiles, -1);
    EXPECT_EQ(Menus().SavePlots.Caption(), "Save Plot Files");
    EXPECT_FALSE(Menus().SavePlots.IsShown()) << "out of the user's reach";
}

struct IncrementalPlotTest : ::testing::Test {
    test::TestDesktop desktop;
    IncrementalPlot dialog;

    IncrementalPlotTest() {
        Store().NumFiles = 40;
        Store().PlotEveryNth = 2;
        dialog.Load();
    }
    void Type(const char* text) {
        dialog.PlotIncr.Type(text);
        dialog.PlotIncr.Leave();
    }
};

TEST_F(IncrementalPlotTest, ShowsTheLimitAndTheIncrementInUse) {
    EXPECT_EQ(dialog.Caption(), "Choose Plots");
    EXPECT_EQ(dialog.Label3.Caption(), "[ 0 < N < 20");
    EXPECT_EQ(dialog.PlotIncr.Text(), "2");
    EXPECT_EQ(dialog.UpDown1.Value(), 2);
    EXPECT_EQ(dialog.UpDown1.Maximum(), 20);
    EXPECT_EQ(dialog.UpDown1.Minimum(), 1);
}

TEST_F(IncrementalPlotTest, TakesATypedNumberHalfToEven) {
    Type("2.5");
    EXPECT_EQ(dialog.UpDown1.Value(), 2);
    EXPECT_EQ(dialog.PlotIncr.Text(), "2");
    Type("3.5");
    EXPECT_EQ(dialog.UpDown1.Value(), 4);
    Type(" 7 ");
    dialog.PlotEmUpScottie.Click();
    EXPECT_EQ(Store().PlotEveryNth, 7);
    EXPECT_TRUE(Store().PlotDialogOK);
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(IncrementalPlotTest, BringsWhatPassesToTheNearerLimitInSilence) {
    Type("249");
    EXPECT_EQ(dialog.UpDown1.Value(), 20);
    EXPECT_EQ(dialog.PlotIncr.Text(), "20");
    Type("0.25");
    EXPECT_EQ(dialog.UpDown1.Value(), 1);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(IncrementalPlotTest, RefusesWhatIsNoNumberOrOutOfRange) {
    std::size_t messages = 0;
    for (const char* text : {"0", "-1", "250", "three", "", "5x"}) {
        Type(text);
        ASSERT_EQ(desktop.messages.size(), ++messages) << text;
        EXPECT_EQ(desktop.messages.back().text, "The value for the file increment is invalid or out of range!");
        EXPECT_EQ(desktop.messages.back().title, "Data Entry Error");
        EXPECT_EQ(desktop.messages.back().style, 48);
        EXPECT_EQ(dialog.PlotIncr.Text(), "2");
        EXPECT_TRUE(dialog.PlotIncr.WantsFocus());
        EXPECT_EQ(dialog.UpDown1.Value(), 2);
    }
}

TEST_F(IncrementalPlotTest, TellsOfACancel) {
    Store().PlotDialogOK = true;
    dialog.Nevermind.Click();
    EXPECT_FALSE(Store().PlotDialogOK);
    EXPECT_TRUE(Store().PlotDialogCancelled);
    EXPECT_EQ(Store().PlotEveryNth, 2);
    EXPECT_FALSE(dialog.IsLoaded());
    IncrementalPlot next;
    next.Load();
    EXPECT_FALSE(Store().PlotDialogCancelled);
    next.Unload();
}

}  // namespace
}  // namespace halvern
