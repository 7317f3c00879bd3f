#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "support/test_desktop.h"

namespace halvern::test {

/// A point of the request with its code.
struct CodedPoint {
    float x, y;
    std::int16_t code;
};

/// The plot of a request, drawn on a canvas that keeps what is drawn.
///
/// The view is 0 to 100 by 0 to 100 unless the test changes it; that makes axes from 0 to 120 in steps of 20, and a page
/// unit of 1.2 data units.
struct DrawnPlot : ::testing::Test {
    TestDesktop desktop;
    RecordingCanvas& canvas = desktop.surface;
    PlotWindow& plot = PlotitForm();

    DrawnPlot() {
        plot.Load();
        View(0.0F, 100.0F, 0.0F, 100.0F);
    }

    static void View(float xMin, float xMax, float yMin, float yMax) {
        auto& S = Store();
        S.PlotXMin = xMin;
        S.PlotXMax = xMax;
        S.PlotYMin = yMin;
        S.PlotYMax = yMax;
    }

    void Paint(const std::vector<CodedPoint>& points = {}) {
        auto& S = Store();
        S.PlotCount = 0;
        for (const CodedPoint& point : points) {
            ++S.PlotCount;
            S.PlotX(S.PlotCount) = point.x;
            S.PlotY(S.PlotCount) = point.y;
            S.PlotSym(S.PlotCount) = point.code;
        }
        S.PlotReady = true;
        plot.Form_Paint();
    }

    /// Lines of one pixel: those of the curves and the picks, not the ticks.
    std::vector<Mark> ThinLines() const {
        std::vector<Mark> thin;
        for (const Mark& mark : canvas.Of(Drew::kLine))
            if (mark.width == 1)
                thin.push_back(mark);
        return thin;
    }
    std::vector<Mark> Ticks() const {
        std::vector<Mark> ticks;
        for (const Mark& mark : canvas.Of(Drew::kLine))
            if (mark.width == 2)
                ticks.push_back(mark);
        return ticks;
    }

    Mark Text(std::string_view text) const {
        const auto found = canvas.Texts(text);
        EXPECT_EQ(found.size(), 1U) << text;
        return found.empty() ? Mark{Drew::kText} : found.front();
    }
    /// Width of a text in page units on the recording canvas, worked here anew.
    static float WidthOf(const Mark& text) {
        return RecordingCanvas::kCharacter * static_cast<float>(text.text.size()) * static_cast<float>(text.points);
    }
    static float HeightOf(const Mark& text) { return -RecordingCanvas::kLine * static_cast<float>(text.points); }
    static float MiddleOf(const Mark& text) { return text.x1 + WidthOf(text) / 2.0F; }
};

inline constexpr float kNear = 1E-4F;

inline void ExpectLine(const Mark& line, float x1, float y1, float x2, float y2, Colour colour) {
    EXPECT_NEAR(line.x1, x1, kNear);
    EXPECT_NEAR(line.y1, y1, kNear);
    EXPECT_NEAR(line.x2, x2, kNear);
    EXPECT_NEAR(line.y2, y2, kNear);
    EXPECT_EQ(line.colour, colour);
}

}  // namespace halvern::test
