#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menu_gates.h"
#include "store/menus.h"
#include "support/session.h"

namespace halvern::test {

/// Five interference scans of 61 points from 5.900 cm on, loaded and with a meniscus of 5.905 cm; the test sets the
/// signals.
struct InterferenceRun : ::testing::Test {
    Session session;
    PlotWindow& plot = PlotitForm();
    AnalysisStore& S = Store();
    MainMenu& M = Menus();

    static constexpr std::int32_t kScans = 5;
    static constexpr std::int32_t kPoints = 61;

    InterferenceRun() {
        session.LoadSpeeds({42000, 42000, 42000, 42000, 42000}, {.type = 'P', .points = kPoints});
        Signals([](std::int32_t, std::int32_t) { return 0.0F; });
        for (std::int32_t K = 1; K <= kScans; ++K)
            S.ScanMeniscus(K) = 5.905F;
        S.Meniscus = 5.905F;
        OfferCorrections();
        M.KeldIt.Enable();
    }

    /// Given     signalAt   fringes at point I of scan K
    void Signals(const std::function<float(std::int32_t I, std::int32_t K)>& signalAt) {
        for (std::int32_t K = 1; K <= kScans; ++K)
            for (std::int32_t I = 1; I <= kPoints; ++I)
                S.ScanData(I, 2, K) = signalAt(I, K);
    }

    /// Ctrl with the left button at a radius, a little less than half a point off, so that no rounding of the page
    /// decides which point is the first beyond it.
    void Pick(double radius) {
        const auto X = static_cast<float>((radius - 0.0004 - plot.XAxisMin) * plot.XScale);
        plot.Form_MouseDown(kLeftButton, kCtrl, X, 50.0F);
        plot.Form_MouseUp(kLeftButton, kCtrl, X, 50.0F);
    }
    void Done() { plot.Command1.Click(); }
    /// The radius of a point of the first scan, cm.
    static double RadiusOf(std::int32_t I) { return 5.9 + 0.001 * (I - 1); }
};

}  // namespace halvern::test
