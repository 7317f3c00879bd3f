#pragma once

#include <QPoint>

#include <string>

#include "desktop/session.h"
#include "desktop/surface_view.h"

namespace halvern::test {

/// The title of the plot window.
inline constexpr const char* kPlotWindow = "Quillon V2.0";

/// A session whose user works on the plot.
struct PlotSession : Session {
    /// The surface of the plot window.
    static SurfaceView& SurfaceOfPlot();

    /// A place on the plot: its pixel on the screen, and the page position that this pixel has, as a script writes it.
    struct PlotPlace {
        QPoint onScreen;
        std::string x, y;
    };
    static PlotPlace PlaceAt(User& user, double x, double y);
    /// The same for a position along the x axis, in the middle of the box's height.
    static PlotPlace PlaceAtData(User& user, double x);

    /// Clicks with keys held down: "ctrl", "ctrl shift".
    static void ClickWith(User& user, const std::string& keys, int button, QPoint place);
    static void PressDone(User& user);
    /// Whether the plot is shown under this second help line.
    static bool PlotShows(const std::string& help);

    /// Nine digits say every single exactly.
    static std::string NineDigits(float value);
};

}  // namespace halvern::test
