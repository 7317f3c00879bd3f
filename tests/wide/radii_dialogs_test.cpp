#include "wide/radii_dialogs.h"

#include <cmath>

#include "support/failure.h"
#include "support/layout.h"
#include "wide/integral.h"
#include "wide/wide_run.h"

namespace halvern {
namespace {

struct RadiiDialogs : test::WideRun {
    RadiiDialogs() {
        MakeScans(45, 3);
        Calculate();
        S.PlotCount = 0;
        S.PlotReady = false;
        S.PlotLnAxis = false;
        plot.Hide();
    }
    template <class Look>
    void InDialog(const WidePlot& of, Look look) {
        RadiiDialog dialog(of);
        dialog.Load();
        look(dialog);
        dialog.Unload();
    }
};

TEST_F(RadiiDialogs, OfferTheRadiiCalculatedWithTheMiddleOneTicked) {
    S.WDRadiusValid(9) = false;
    for (const WidePlot* of : {&kPlotRadii, &kPlotLogWD, &kPlotIntegral})
        InDialog(*of, [&](RadiiDialog& dialog) {
            EXPECT_EQ(dialog.Name(), of->form);
            EXPECT_EQ(dialog.Caption(), "Radii To Plot");
            const char* const captions[] = {"6.0", "6.1", "6.2", "6.3", "6.4", "6.5",
                                            "6.6", "6.7", "6.8", "6.9", "7.0"};
            for (std::size_t i = 0; i < 11; ++i) {
                EXPECT_EQ(dialog.UseRadii[i].Caption(), captions[i]);
                EXPECT_EQ(dialog.UseRadii[i].Value(), i == 5 ? 1 : 0);
                EXPECT_EQ(dialog.UseRadii[i].IsEnabled(), i != 8);
                EXPECT_EQ(dialog.UseRadii[i].Name(), "UseRadii(" + std::to_string(i) + ")");
            }
        });
}

TEST_F(RadiiDialogs, TickNothingWhereTheMiddleRadiusIsMissing) {
    S.WDRadiusValid(6) = false;
    InDialog(kPlotRadii, [](RadiiDialog& dialog) {
        for (const CheckBox& box : dialog.UseRadii)
            EXPECT_EQ(box.Value(), 0);
    });
}

// Radii 2 and 9 of three speed runs of 15 scans each; J runs against the scans.
TEST_F(RadiiDialogs, LayEachRadiusDownAsSymbolsAndThenAsALine) {
    AnswerOk({1, 8}, {5});
    PlotSvsG_Click();
    ASSERT_EQ(S.PlotCount, 4 * 44);
    std::int32_t P = 0;
    for (const bool line : {false, true})
        for (const std::int32_t K : {2, 9})
            for (std::int32_t J = 2; J <= 45; ++J) {
                ++P;
                EXPECT_EQ(S.PlotX(P), S.WDSValue(J, K));
                EXPECT_EQ(S.PlotY(P), S.WDGofS(J, K));
                const int symbol = (45 - J + 1) / 15 + 1;               // the run of scan 47 - J
                const int before = J == 2 ? 0 : (45 - J + 2) / 15 + 1;  // the run of scan 48 - J
                EXPECT_EQ(S.PlotSym(P), !line ? symbol : J == 2 ? -58 : -57 - 64 * before) << J;
            }
    EXPECT_EQ(S.PlotHelp1, "Plotting Wide Distribution at Selected Radii");
    EXPECT_EQ(S.PlotHelp2, "g(s*) vs s*");
    EXPECT_EQ(S.PlotXTitle, "s* (Svedbergs)");
    EXPECT_EQ(S.PlotYTitle, "g(s*)");
    EXPECT_TRUE(S.PlotReady && S.PlotDialogOK && plot.IsShown());
    EXPECT_FALSE(S.PlotLnAxis);
}

TEST_F(RadiiDialogs, OfASingleSpeedHaveOneColour) {
    for (std::int32_t K = 1; K <= 45; ++K)
        S.ScanSpeedIndex(K) = 1;
    AnswerOk();
    PlotLnS_Click();
    ASSERT_EQ(S.PlotCount, 88);
    for (std::int32_t P = 1; P <= 44; ++P) {
        EXPECT_EQ(S.PlotSym(P), 1);
        EXPECT_EQ(S.PlotSym(44 + P), P == 1 ? -58 : -121);
    }
}

TEST_F(RadiiDialogs, PlotSTimesGOverLnS) {
    AnswerOk();
    PlotLnS_Click();
    for (std::int32_t J = 2; J <= 45; ++J) {
        EXPECT_EQ(S.PlotX(J - 1), static_cast<float>(std::log(static_cast<double>(S.WDSValue(J, 6)))));
        EXPECT_EQ(S.PlotY(J - 1), S.WDGofS(J, 6) * S.WDSValue(J, 6));
    }
    EXPECT_EQ(S.PlotHelp2, "[s* x g(s*)] vs Ln(s*)");
    EXPECT_EQ(S.PlotXTitle, "Ln(s*)");
    EXPECT_EQ(S.PlotYTitle, "s* x g(s*)");
    EXPECT_TRUE(S.PlotReady && S.PlotLnAxis);
}

/// The running integral, long-hand in double.
std::vector<double> IntegralByHand(std::int32_t K, std::int32_t N) {
    const auto& S = Store();
    const auto A = [&](std::int32_t J) { return static_cast<double>(S.WDGofS(J, K) * S.WDSValue(J, K)); };
    const auto B = [&](std::int32_t J) {
        return static_cast<double>(static_cast<float>(std::log(static_cast<double>(S.WDSValue(J, K)))));
    };
    std::vector<double> integral(static_cast<std::size_t>(N) + 1);
    integral[2] = B(2) * 0.5 * A(2) * (B(3) - B(2));
    for (std::int32_t J = 3; J < N; ++J)
        integral[static_cast<std::size_t>(J)] =
            (B(J) - B(J - 1)) * B(J) * A(J) + integral[static_cast<std::size_t>(J - 1)];
    integral[static_cast<std::size_t>(N)] =
        B(N) * 0.5 * A(N) * (B(N) - B(N - 1)) + integral[static_cast<std::size_t>(N - 1)];
    return integral;
}

TEST_F(RadiiDialogs, PlotTheIntegralOverLnSOfEachPoint) {
    AnswerOk({3}, {5});
    S.WDGofS(2, 4) = 0.5F;  // as if something sedimented there too
    plot.Hide();
    PlotIntegralWD_Click();
    EXPECT_TRUE(plot.IsShown());
    const auto integral = IntegralByHand(4, 45);
    for (std::int32_t J = 2; J <= 45; ++J) {
        EXPECT_EQ(S.PlotX(J - 1), static_cast<float>(std::log(static_cast<double>(S.WDSValue(J, 4)))));
        EXPECT_NEAR(S.PlotY(J - 1), integral[static_cast<std::size_t>(J)], 1E-5);
        EXPECT_EQ(S.WDIntegral(J, 4, 1), S.PlotY(J - 1));
    }
    EXPECT_NE(S.WDIntegral(45, 11, 1), 0.0F) << "every valid radius is worked out, chosen or not";
    EXPECT_EQ(S.PlotHelp1, "Plotting Integral of W.D. at Selected Radii");
    EXPECT_EQ(S.PlotHelp2, "Integral of {[s* x g(s*)] vs Ln(s*)}");
    EXPECT_EQ(S.PlotXTitle, "Ln(s*)");
    EXPECT_EQ(S.PlotYTitle, "Integral{s* x g(s*)}");
    EXPECT_TRUE(S.PlotReady && S.PlotLnAxis);
}

TEST_F(RadiiDialogs, WithNothingTickedReplaceTheTitlesAndRaiseNothing) {
    AnswerOk({}, {5});
    PlotSvsG_Click();
    EXPECT_EQ(S.PlotCount, 0);
    EXPECT_EQ(S.PlotYTitle, "g(s*)");
    EXPECT_FALSE(S.PlotReady);
    EXPECT_TRUE(plot.IsShown());
    AnswerOk({}, {5});
    S.PlotLnAxis = true;
    PlotLnS_Click();
    EXPECT_TRUE(S.PlotLnAxis) << "unchanged without points";
    S.PlotLnAxis = false;
    AnswerOk({}, {5});
    PlotIntegralWD_Click();
    EXPECT_TRUE(S.PlotLnAxis) << "raised in every case";
}

TEST_F(RadiiDialogs, NeverReadTheColumnsOfARadiusThatWasLeftOut) {
    S.WDRadiusValid(2) = false;
    AnswerOk({1});
    PlotSvsG_Click();
    EXPECT_EQ(S.PlotCount, 88);
}

TEST_F(RadiiDialogs, DropThePicksOfThePlainPlot) {
    S.PickDataLimits = S.PickMeniscus = S.PickJitterPoint = S.PickZeroLevel = true;
    AnswerOk();
    PlotSvsG_Click();
    EXPECT_FALSE(S.PickDataLimits || S.PickMeniscus || S.PickJitterPoint);
    EXPECT_TRUE(S.PickZeroLevel);
}

TEST_F(RadiiDialogs, HideThePlotWhenTheyAreCancelled) {
    for (void (*command)() : {PlotSvsG_Click, PlotLnS_Click, PlotIntegralWD_Click}) {
        S.PlotLnAxis = true;
        S.PlotDialogOK = true;
        S.PlotYTitle = "as it was";
        plot.Show();
        AnswerCancel();
        command();
        EXPECT_FALSE(S.PlotLnAxis || S.PlotDialogOK || S.PlotDialogCancelled || plot.IsShown());
        EXPECT_EQ(S.PlotYTitle, "as it was");
    }
}

TEST_F(RadiiDialogs, ClosedByTheirFrameGoOnWithTheRequestThatStood) {
    AnswerOk();
    PlotSvsG_Click();
    plot.Hide();
    desktop.dialogs.push_back([](Form& form) { form.Unload(); });
    PlotLnS_Click();
    EXPECT_EQ(S.PlotCount, 88);
    EXPECT_TRUE(plot.IsShown());
    EXPECT_EQ(S.PlotYTitle, "g(s*)");
}

TEST_F(RadiiDialogs, FailOfALogarithmOfNothing) {
    S.WDSValue(20, 6) = 0.0F;
    AnswerOk();
    EXPECT_FAILURE(5, (PlotLnS_Click(), 0));
}

TEST_F(RadiiDialogs, HaveRoomForAllRadiiOfTheLargestDataSet) {
    MakeScans(kMostScans, 5);
    Calculate();
    for (void (*command)() : {PlotSvsG_Click, PlotLnS_Click, PlotIntegralWD_Click}) {
        S.PlotCount = 0;
        AnswerOk({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
        command();
        EXPECT_EQ(S.PlotCount, 10978);
        EXPECT_EQ(S.PlotSym(10978), -57 - 64 * 1) << "the line to the first scan";
        EXPECT_EQ(S.PlotSym(10978 - 498), kPenUp) << "the last of eleven lines of 499 points";
    }
}

TEST_F(RadiiDialogs, HaveABoxForEachRadiusAndAreCancelledByEscape) {
    RadiiDialog dialog(kPlotRadii);
    std::vector<std::string> names{"Label1", "Frame1"};
    for (int i = 0; i < 11; ++i)
        names.push_back("UseRadii(" + std::to_string(i) + ")");
    names.insert(names.end(), {"PlotEmUp", "NeverMind2"});
    EXPECT_EQ(test::NamesOn(dialog), names);
    EXPECT_EQ(dialog.CancelButton(), &dialog.NeverMind2);
    test::ExpectLaidOut(dialog);
    for (const CheckBox& box : dialog.UseRadii)
        EXPECT_TRUE(test::IsWithin(box.Where(), dialog.Frame1.Where()));
}

TEST_F(RadiiDialogs, MakeNoPlotOfASinglePoint) {
    for (void (*command)() : {PlotSvsG_Click, PlotLnS_Click, PlotIntegralWD_Click}) {
        S.PlotCount = 1;
        S.PlotReady = false;
        desktop.dialogs.push_back([](Form& form) { form.Unload(); });
        command();
        EXPECT_FALSE(S.PlotReady);
    }
}

}  // namespace
}  // namespace halvern
