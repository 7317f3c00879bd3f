#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/data_files.h"
#include "support/test_desktop.h"
#include "wide/radii_dialogs.h"

namespace halvern::test {

/// A data set in the store, made by the test: `scans` scans of 1401 points from 5.801 cm on in steps of 0.001 cm, at
/// rising omega squared t, and a boundary of 1 that moves at 20 Svedbergs from 5.9 cm.
struct WideRun : ::testing::Test {
    DataFolder folder;
    TestDesktop desktop;
    PlotWindow& plot = PlotitForm();
    AnalysisStore& S = Store();
    MainMenu& M = Menus();

    static constexpr std::int16_t kPoints = 1401;
    static constexpr float kMeniscusCm = 5.9F;

    WideRun() { plot.Load(); }

    static double Boundary(double w2t) { return 5.9 * std::exp(20E-13 * w2t); }

    void MakeScans(std::int32_t scans, std::int32_t speeds = 1) {
        S.NumFiles = scans;
        S.NumSpeeds = static_cast<std::int16_t>(speeds);
        S.MultipleSpeeds = speeds > 1;
        S.IsInterference = true;
        S.SmoothWindow = kDefaultSmoothWindow;
        for (std::int32_t K = 1; K <= kMostScans; ++K)
            S.ScanMeniscus(K) = K <= scans ? kMeniscusCm : kDefaultMeniscus;
        for (std::int32_t K = 1; K <= scans; ++K)
            MakeScan(K, static_cast<std::int16_t>((K - 1) * speeds / scans + 1));
    }
    void MakeScan(std::int32_t K, std::int16_t run) {
        S.ScanSpeedIndex(K) = run;
        if (S.SpeedFirstScan(run) == 0)
            S.SpeedFirstScan(run) = static_cast<std::int16_t>(K);
        S.ScanSpeed(K) = 10000 * run;
        S.ScanPoints(K) = kPoints;
        S.ScanW2t(K) = 1E10F + 5E9F * static_cast<float>(K);
        const double boundary = Boundary(S.ScanW2t(K));
        const double plateau = (5.9 / boundary) * (5.9 / boundary);
        for (std::int32_t J = 1; J <= kPoints; ++J) {
            const double radius = 5.8 + 0.001 * J;
            S.ScanData(J, 1, K) = static_cast<float>(radius);
            S.ScanData(J, 2, K) =
                radius < 5.9 ? 0.0F : static_cast<float>(plateau * 0.5 * (1.0 + std::erf((radius - boundary) / 0.05)));
        }
    }

    /// The user presses OK, or Cancel, in the dialog of radii.
    void AnswerOk(std::vector<int> ticked = {}, std::vector<int> unticked = {}) {
        desktop.dialogs.push_back([=](Form& form) {
            auto& dialog = dynamic_cast<RadiiDialog&>(form);
            for (const int box : ticked)
                dialog.UseRadii.at(static_cast<std::size_t>(box)).SetValue(1);
            for (const int box : unticked)
                dialog.UseRadii.at(static_cast<std::size_t>(box)).SetValue(0);
            dialog.PlotEmUp.Click();
        });
    }
    void AnswerCancel() {
        desktop.dialogs.push_back([](Form& form) { dynamic_cast<RadiiDialog&>(form).NeverMind2.Click(); });
    }
    void Calculate() {
        AnswerOk();
        DoWideStraight_Click();
    }
};

}  // namespace halvern::test
