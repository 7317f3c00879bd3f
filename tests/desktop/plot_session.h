#pragma once

#include <QColor>
#include <QFrame>
#include <QPoint>

#include <memory>
#include <string>

#include "desktop/session.h"
#include "desktop/surface_view.h"

namespace halvern::test {

/// The title of the plot window.
inline constexpr const char* kPlotWindow = "Quillon V2.0";

/// A session whose user works on the plot.
struct PlotSession : Session {
    /// From the start on: the raw dc/dt of a boundary, on a plot that has the keyboard. Returns the window's number.
    std::string ShowRawRate(User& user);
    /// Ends the program from the main window.
    static void Leave(User& user);

    /// The surface of the plot window.
    static SurfaceView& SurfaceOfPlot();

    /// Lays a window of one colour over a part of the plot, until it is let go between two events of the program.
    static std::shared_ptr<QFrame> Cover(User& user);
    static QColor ColourOfCover() { return {0xC0, 0, 0}; }
    static void Uncover(User& user, std::shared_ptr<QFrame>& cover);

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
