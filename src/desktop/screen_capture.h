#pragma once

#include <QImage>
#include <QRect>
#include <QWidget>

namespace halvern {

/// What the screen shows of a part of a widget, with whatever covers it. What reaches beyond the screen is there as the
/// widget itself shows it, and so is everything on a display that lets no program look at the screen.
///
/// Given     part   pixels of the screen, from the widget's top left
/// Note      events other than the user's pass meanwhile, so that a menu that has just been closed is not on the picture
QImage CaptureOnScreen(QWidget& widget, const QRect& part);

}  // namespace halvern
