#include "desktop/screen_capture.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QScreen>

namespace halvern {

namespace {

/// A picture of the screen, and where its top left lies in the widget; null where the display does not allow it.
struct Shot {
    QPixmap picture;
    QPoint place;
};

// Asked by the window, the display shows what is on the screen at its place, other windows included; the place of a
// window on a screen of high density may lie between two of the toolkit's own positions. Beyond the edges of the screen
// there is nothing to be seen, and the display would give whatever it has in its memory.
Shot ShotOf(const QWidget& widget) {
    if (QGuiApplication::platformName() != QLatin1String("xcb") || !widget.isVisible())
        return {};
    QScreen* const screen = widget.screen();
    const QRect onScreen(widget.mapToGlobal(QPoint()), widget.size());
    const QRect seen = (onScreen & screen->geometry()).translated(-onScreen.topLeft());
    if (seen.isEmpty())
        return {};
    const QPoint inWindow = widget.mapTo(widget.window(), seen.topLeft());
    return {screen->grabWindow(widget.window()->winId(), inWindow.x(), inWindow.y(), seen.width(), seen.height()),
            seen.topLeft()};
}

}  // namespace

QImage CaptureOnScreen(QWidget& widget, const QRect& part) {
    // By the time that it answers the first time, the display has told which windows have lost a cover.
    static_cast<void>(ShotOf(widget));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QPixmap picture = widget.grab();
    const Shot shot = ShotOf(widget);
    QPainter(&picture).drawPixmap(shot.place, shot.picture);
    picture.setDevicePixelRatio(1.0);
    return picture.toImage().copy(part);
}

}  // namespace halvern
