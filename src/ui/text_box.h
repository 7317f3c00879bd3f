#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "ui/control.h"

namespace halvern {

/// A box for one line of typed text. Its caption is the text.
///
/// When the user leaves a box whose text was changed, `Validate` is asked first; a text that it refuses keeps the focus
/// in the box. `LostFocus` follows when the focus is gone.
class TextBox : public Control {
  public:
    explicit TextBox(std::string text = {}) : Control(ControlKind::kTextBox, std::move(text)) {}

    const std::string& Text() const { return Caption(); }
    void SetText(std::string text) { SetCaption(std::move(text)); }

    /// The user typed: as SetText, but the box counts as changed.
    void Type(std::string text);
    bool IsChanged() const { return changed_; }

    /// The user leaves the box for another control.
    ///
    /// Result    false if the text was refused: the focus stays
    bool Leave();

    /// Asks for the whole text to be selected as soon as the box can have a selection.
    void SelectAll();
    bool IsAllSelected() const { return allSelected_; }

    /// Asks for the focus; whoever shows the box gives it and takes the wish back.
    void SetFocus();
    bool WantsFocus() const { return wantsFocus_; }
    void FocusGiven() { wantsFocus_ = false; }

    /// What a click in the box does. A box that has it is filled by it: nothing can be typed there.
    std::function<void()> Click;
    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
    /// Given     Cancel   false; true refuses the text
    std::function<void(bool& Cancel)> Validate;

  private:
    bool changed_ = false;
    bool allSelected_ = false;
    bool wantsFocus_ = false;
};

}  // namespace halvern
