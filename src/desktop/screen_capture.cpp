#include "desktop/screen_capture.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

namespace halvern {

namespace {

/// Null where the display does not allow it.
QPixmap GrabScreen(const QWidget& widget, const QRect& part) {
    if (QGuiApplication::platformName() != QLatin1String("xcb") || !widget.isVisible())
        return {};
    QScreen* const screen = widget.screen();
    const double ratio = widget.devicePixelRatioF();
    const QRectF inWindow(QPointF(part.topLeft()) / ratio, QSizeF(part.size()) / ratio);
    const QPoint corner = widget.mapToGlobal(inWindow.topLeft().toPoint()) - screen->geometry().topLeft();
    const QSize size(qCeil(inWindow.width()), qCeil(inWindow.height()));
    return screen->grabWindow(0, corner.x(), corner.y(), size.width(), size.height());
}

}  // namespace

QImage CaptureOnScreen(QWidget& widget, const QRect& part) {
    // By the time that it answers the first time, the display has told which windows have lost a cover.
    static_cast<void>(GrabScreen(widget, part));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QPixmap picture = GrabScreen(widget, part);
    if (picture.isNull())
        picture = widget.grab();
    return picture.toImage().copy(QRect(QPoint(), part.size()));
}

}  // namespace halvern
