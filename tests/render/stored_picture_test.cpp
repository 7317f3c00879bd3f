// Whole pictures of the plot window, of requests that the test makes.

#include <gtest/gtest.h>

#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "plot/legend.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "render/image_canvas.h"
#include "render/stored_picture.h"
#include "store/analysis_store.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using test::ExpectAsStored;

constexpr int kWidth = 665, kHeight = 500;

struct StoredPicture : ::testing::Test {
    struct Desktop : test::TestDesktop {
        ImageCanvas canvas;
        Canvas& SurfaceOf(Form& /*form*/) override { return canvas; }
    } desktop;
    AnalysisStore& S = Store();
    RequestFiller request;

    StoredPicture() {
        desktop.canvas.SetSize({kWidth, kHeight}, 1.0);
        PlotitForm().Load();
        PlotitForm().SetPlace({0, 0, kWidth * kTwipsPerPixel, kHeight * kTwipsPerPixel});
        S.PlotPixelWidth = kWidth;
        S.PlotPixelHeight = kHeight;
    }

    /// The plot of the request with limits that take in all of it.
    const QImage& Plot() {
        request.Finish();
        S.PlotXMin = S.PlotXMax = S.PlotX(1);
        S.PlotYMin = S.PlotYMax = S.PlotY(1);
        for (std::int32_t i = 2; i <= S.PlotCount; ++i) {
            S.PlotXMin = std::min(S.PlotXMin, S.PlotX(i));
            S.PlotXMax = std::max(S.PlotXMax, S.PlotX(i));
            S.PlotYMin = std::min(S.PlotYMin, S.PlotY(i));
            S.PlotYMax = std::max(S.PlotYMax, S.PlotY(i));
        }
        PlotitForm().Form_Paint();
        return desktop.canvas.Image();
    }

    /// A moving boundary in the manner of a scan: curve k of 200 points.
    void Scan(std::int32_t k, bool lines) {
        const auto pointAt = [k](std::int32_t I) {
            const double radius = 5.9 + 0.0065 * I, middle = 6.1 + 0.12 * k;
            return PlotPoint{static_cast<float>(radius),
                             static_cast<float>(0.6 * (1.0 + std::erf((radius - middle) / 0.06)))};
        };
        if (lines)
            request.Line(1, 200, k, pointAt);
        else
            request.Symbols(1, 200, k, pointAt);
    }
    /// A peak in the manner of dc/dt, `height` high, as lines and symbols.
    void Peak(double height) {
        const auto pointAt = [height](std::int32_t I) {
            const double s = 0.05 * I;
            return PlotPoint{static_cast<float>(s),
                             static_cast<float>(height * std::exp(-std::pow((s - 4.5) / 0.8, 2)))};
        };
        request.Line(1, 200, kBlack, pointAt);
        request.Symbols(1, 200, kBlack, pointAt);
    }
};

TEST_F(StoredPicture, OfRawScans) {
    SetRequestTexts({" ", "Raw Data", "Radius (cm)", "Fringes"});
    for (std::int32_t k = 1; k <= 6; ++k)
        Scan(k, false);
    for (std::int32_t k = 1; k <= 6; ++k)
        Scan(k, true);
    ExpectAsStored(Plot(), "raw-scans");
}

TEST_F(StoredPicture, OfLimitsOnDcDt) {
    SetRequestTexts({"Use <Ctrl>LMB and <Ctrl>RMB to set upper & lower limits", "for calculating g(s*)",
                     "S (Svedbergs)", "<dc/dt>"});
    S.PickDataLimits = true;
    S.DataLimitMin = 2.0F;
    S.DataLimitMax = 7.5F;
    Peak(2.4E-4);
    ExpectAsStored(Plot(), "limits");
}

TEST_F(StoredPicture, OfAZeroLevel) {
    SetRequestTexts(
        {"Use <Ctrl>LMB to Set the Zero Level to be used", "for correcting dc/dt", "S (Svedbergs)", "<dc/dt>"});
    S.PickZeroLevel = true;
    S.Meniscus = 1.5E-5F;
    Peak(2.4E-4);
    ExpectAsStored(Plot(), "zero-level");
}

TEST_F(StoredPicture, OfAMeniscus) {
    SetRequestTexts(
        {"Use <Ctrl>LMB to Set the Meniscus Position", "First Dataset at a Speed of 42000 rpm", "Radius (cm)", "Conc"});
    S.PickMeniscus = true;
    S.Meniscus = 6.02F;
    Scan(2, true);
    Scan(2, false);
    ExpectAsStored(Plot(), "meniscus");
}

TEST_F(StoredPicture, OverLnS) {
    SetRequestTexts({"Plotting Wide Distribution at Selected Radii", "[s* x g(s*)] vs Ln(s*)", "Ln(s*)", "s* x g(s*)"});
    S.PlotLnAxis = true;
    for (const bool lines : {false, true})
        for (std::int32_t run = 1; run <= 3; ++run) {
            const auto pointAt = [run](std::int32_t I) {
                const double LnS = 0.5 + 2.0 * (run - 1) + 0.02 * I;
                const double g =
                    std::exp(-std::pow((LnS - 1.4) / 0.3, 2)) + 0.5 * std::exp(-std::pow((LnS - 4.2) / 0.4, 2));
                return PlotPoint{static_cast<float>(LnS), static_cast<float>(g)};
            };
            lines ? request.Line(1, 100, run, pointAt) : request.Symbols(1, 100, run, pointAt);
        }
    ExpectAsStored(Plot(), "ln-s");
}

TEST_F(StoredPicture, WithAPowerOfTenOnBothAxes) {
    SetRequestTexts({"<g(s*)> vs S", " ", "S (Svedbergs)", "<g(s*)> [fringes/Svedberg]"});
    const auto pointAt = [](std::int32_t I) {
        return PlotPoint{3000.0F + 60.0F * static_cast<float>(I), 4E-7F * static_cast<float>((I * 37) % 100 + 10)};
    };
    request.Symbols(1, 200, kRed, pointAt);
    ExpectAsStored(Plot(), "powers");
}

TEST_F(StoredPicture, OfOneValueAlone) {
    SetRequestTexts({" ", "Average <dc/dt> vs S", "S (Svedbergs)", "<dc/dt>"});
    request.Symbols(1, 3, kBlack, [](std::int32_t) { return PlotPoint{5.0F, -5.0F}; });
    ExpectAsStored(Plot(), "one-value");
    EXPECT_EQ(desktop.messages.size(), 2U);
}

TEST_F(StoredPicture, OfTheLegendInBothOrders) {
    desktop.canvas.SetSize({220, 398}, 1.0);
    PlotitForm().Menu.ShowIt.Click();
    PlotLegendForm().Form_Paint();
    ExpectAsStored(desktop.canvas.Image(), "legend-symbols-first");
    PlotitForm().Menu.Col_Sym.Click();
    ExpectAsStored(desktop.canvas.Image(), "legend-colours-first");
}

}  // namespace
}  // namespace halvern
