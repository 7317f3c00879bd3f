#include "desktop/plot_session.h"

#include <QApplication>

#include <cstdio>
#include <stdexcept>

#include "desktop/moving_boundary.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"

namespace halvern::test {

std::string PlotSession::ShowRawRate(User& user) {
    Start(user);
    Load(user, WriteMovingBoundary(folder));
    ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Set_MenManually});
    user.AwaitWindow("Set Meniscus Position");
    user.Type("5.98");
    user.Press("Return");
    user.AwaitNoWindow("Set Meniscus Position");
    ChooseItems(user, 'd', {&Menus().KeldIt});
    const std::string window = user.AwaitWindow(kPlotWindow);
    // Drawn, and nothing more to come of its coming up.
    user.Await("the plot", [] { return PlotShows("Raw <dc/dt> vs S"); });
    return window;
}

void PlotSession::Leave(User& user) {
    TurnToMainWindow(user);
    Exit(user);
}

SurfaceView& PlotSession::SurfaceOfPlot() {
    for (QWidget* widget : QApplication::allWidgets())
        if (auto* surface = dynamic_cast<SurfaceView*>(widget);
            surface != nullptr && surface->window()->windowTitle() == QLatin1String(kPlotWindow))
            return *surface;
    throw std::logic_error("the plot has no surface");
}

std::shared_ptr<QFrame> PlotSession::Cover(User& user) {
    const auto cover = user.Look([] {
        auto frame = std::make_shared<QFrame>(nullptr, Qt::ToolTip);
        frame->setStyleSheet("background: " + ColourOfCover().name());
        frame->setGeometry(QRect(SurfaceOfPlot().mapToGlobal(QPoint(200, 150)), QSize(150, 400)));
        frame->show();
        return frame;
    });
    user.Await("the cover", [&] {
        const QPoint middle = cover->geometry().center();
        const QImage pixel = cover->screen()->grabWindow(0, middle.x(), middle.y(), 1, 1).toImage();
        return pixel.pixelColor(0, 0) == ColourOfCover();
    });
    return cover;
}

void PlotSession::Uncover(User& user, std::shared_ptr<QFrame>& cover) {
    user.Look([&] {
        cover.reset();
        return true;
    });
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
    user.Do(user.MoveTo(place) + " keydown " + keys + " click " + std::to_string(button) + " keyup " + keys);
}

void PlotSession::PressDone(User& user) { PressButton(user, "Done"); }

bool PlotSession::PlotShows(const std::string& help) {
    return PlotitForm().IsShown() && std::string(Store().PlotHelp2) == help;
}

std::string PlotSession::NineDigits(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", static_cast<double>(value));
    return text;
}

}  // namespace halvern::test
