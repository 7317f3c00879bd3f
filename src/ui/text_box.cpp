#include "ui/text_box.h"

namespace halvern {

void TextBox::Type(std::string text) {
    allSelected_ = false;
    changed_ = true;
    SetText(std::move(text));
}

bool TextBox::Leave() {
    bool Cancel = false;
    if (changed_ && Validate)
        Validate(Cancel);
    if (Cancel)
        return false;
    changed_ = false;
    wantsFocus_ = false;  // the box has had the focus until here
    if (LostFocus)
        LostFocus();
    return true;
}

void TextBox::SelectAll() {
    allSelected_ = true;
    Changed();
}

void TextBox::SetFocus() {
    wantsFocus_ = true;
    Changed();
}

}  // namespace halvern
