#include "desktop/surface_view.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace halvern {

namespace {

/// Left and right; the program knows no other buttons.
int ButtonsOf(Qt::MouseButtons buttons) {
    return (buttons.testFlag(Qt::LeftButton) ? kLeftButton : 0) +
           (buttons.testFlag(Qt::RightButton) ? kRightButton : 0);
}

int ShiftOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? kShift : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? kCtrl : 0) + (modifiers.testFlag(Qt::AltModifier) ? kAlt : 0);
}

}  // namespace

SurfaceView::SurfaceView(Form& form, EventGate& gate, QWidget* parent) : QWidget(parent), form_(&form), gate_(gate) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    canvas_.Touched = [this] { update(); };
}

bool SurfaceView::FollowSize() {
    if (!canvas_.SetSize(size(), devicePixelRatioF()))
        return false;
    update();
    return true;
}

void SurfaceView::paintEvent(QPaintEvent* event) {
    const double ratio = devicePixelRatioF();
    const QRectF lost = event->rect();
    QPainter(this).drawImage(lost, canvas_.Image(), QRectF(lost.topLeft() * ratio, lost.size() * ratio));
}

void SurfaceView::Tell(Handler handler, int Button, const QMouseEvent& event) {
    if (form_ == nullptr)
        return;
    const auto [X, Y] = canvas_.PageAt(event.position());
    const int Shift = ShiftOf(event.modifiers());
    Form& form = *form_;
    gate_.Run([&form, handler, Button, Shift, x = X, y = Y] { (form.*handler)(Button, Shift, x, y); },
              "mouse " + form.Name());
}

void SurfaceView::mousePressEvent(QMouseEvent* event) {
    if (ButtonsOf(event->button()) == 0)
        return;
    pressed_ |= event->button();
    Tell(&Form::Form_MouseDown, ButtonsOf(event->button()), *event);
}

void SurfaceView::mouseMoveEvent(QMouseEvent* event) {
    Tell(&Form::Form_MouseMove, ButtonsOf(event->buttons()), *event);
}

// The press before it may have gone elsewhere: it has closed a menu, or a box has come up meanwhile.
void SurfaceView::mouseReleaseEvent(QMouseEvent* event) {
    if (ButtonsOf(event->button()) == 0 || !pressed_.testFlag(event->button()))
        return;
    pressed_ &= ~Qt::MouseButtons(event->button());
    Tell(&Form::Form_MouseUp, ButtonsOf(event->button()), *event);
}

}  // namespace halvern
