#pragma once

#include <QLineEdit>

#include "desktop/event_gate.h"
#include "ui/text_box.h"

namespace halvern {

/// Shows a text box. Before the user turns to another control of the window, the box is asked, see Leave.
class TextBoxView : public QLineEdit {
  public:
    TextBoxView(TextBox& box, EventGate& gate, QWidget* parent);

    /// The box has another text, or wants its text selected or the focus.
    void BoxChanged();

    /// The user, who is in the box, turns to another control.
    ///
    /// Result    false if the focus stays: the text was refused, or the box has taken the focus back
    bool Leave();

    /// From now on the widget has nothing to do with the model, which may go first.
    void LetGo() { box_ = nullptr; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void GiveFocus();
    void TellOfFocus();
    void Click();

    TextBox* box_;
    EventGate& gate_;
    bool knowsOfFocus_ = false;  ///< the box; it keeps the focus while other windows have the keyboard
    bool leaving_ = false;
    bool pressBringsFocus_ = false;
    bool keepsSelection_ = false;  ///< until the mouse button is released
};

}  // namespace halvern
