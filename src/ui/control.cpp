#include "ui/control.h"

namespace halvern {

void Control::Changed() {
    if (observer_ != nullptr)
        observer_->ControlChanged(*this);
}

void Control::SetCaption(std::string caption) {
    if (caption_ == caption)
        return;
    caption_ = std::move(caption);
    Changed();
}

void Control::SetEnabled(bool enabled) {
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    Changed();
}

void Control::SetShown(bool shown) {
    if (shown_ == shown)
        return;
    shown_ = shown;
    Changed();
}

void Control::SetFont(TextFont font) {
    if (font_ == font)
        return;
    font_ = font;
    Changed();
}

void Control::SetPlace(const Place& place) {
    if (place_ == place)
        return;
    place_ = place;
    Changed();
}

void ProgressBar::SetValue(int value) {
    if (value_ == value)
        return;
    value_ = value;
    Changed();
}

}  // namespace halvern
