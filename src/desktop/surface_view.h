#pragma once

#include <QWidget>

#include "desktop/event_gate.h"
#include "render/image_canvas.h"
#include "ui/form.h"

namespace halvern {

/// Shows the surface that a form draws on, and tells the form what the mouse does over it.
class SurfaceView : public QWidget {
  public:
    SurfaceView(Form& form, EventGate& gate, QWidget* parent);

    ImageCanvas& Surface() { return canvas_; }
    /// The surface becomes as large as the widget. Result: whether it had another size.
    bool FollowSize();

    /// From now on the surface has nothing to do with the form, which may go first.
    void LetGo() { form_ = nullptr; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    using Handler = void (Form::*)(int Button, int Shift, float X, float Y);
    void Tell(Handler handler, int Button, const QMouseEvent& event);

    Form* form_;
    EventGate& gate_;
    ImageCanvas canvas_;
    Qt::MouseButtons pressed_;
};

}  // namespace halvern
