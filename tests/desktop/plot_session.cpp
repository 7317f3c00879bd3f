#include "desktop/plot_session.h"

#include <QApplication>
#include <QPushButton>

#include <cstdio>
#include <stdexcept>

#include "plot/plot_window.h"
#include "store/analysis_store.h"

namespace halvern::test {

SurfaceView& PlotSession::SurfaceOfPlot() {
    for (QWidget* widget : QApplication::allWidgets())
        if (auto* surface = dynamic_cast<SurfaceView*>(widget);
            surface != nullptr && surface->window()->windowTitle() == QLatin1String(kPlotWindow))
            return *surface;
    throw std::logic_error("the plot has no surface");
}

PlotSession::PlotPlace PlotSession::PlaceAt(User& user, double x, double y) {
    return user.Look([=] {
        SurfaceView& surface = SurfaceOfPlot();
        const QPoint pixel =
            QPointF((x + 25.0) / 135.0 * surface.width(), (120.0 - y) / 145.0 * surface.height()).toPoint();
        const auto [pageX, pageY] = surface.Surface().PageAt(pixel);
        return PlotPlace{surface.mapToGlobal(pixel), "@" + NineDigits(pageX), "@" + NineDigits(pageY)};
    });
}

PlotSession::PlotPlace PlotSession::PlaceAtData(User& user, double x) {
    return PlaceAt(user, user.Look([=] { return (x - PlotitForm().XAxisMin) * PlotitForm().XScale; }), 50.0);
}

void PlotSession::ClickWith(User& user, const std::string& keys, int button, QPoint place) {
    user.Do("mousemove " + std::to_string(place.x()) + " " + std::to_string(place.y()) + " keydown " + keys +
            " click " + std::to_string(button) + " keyup " + keys);
}

void PlotSession::PressDone(User& user) {
    user.Click(user.Look([] {
        for (QPushButton* button : QApplication::activeWindow()->findChildren<QPushButton*>())
            if (button->isVisible() && button->text() == QLatin1String("Done"))
                return button->mapToGlobal(button->rect().center());
        return QPoint();
    }));
}

bool PlotSession::PlotShows(const std::string& help) {
    return PlotitForm().IsShown() && std::string(Store().PlotHelp2) == help;
}

std::string PlotSession::NineDigits(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", static_cast<double>(value));
    return text;
}

}  // namespace halvern::test
