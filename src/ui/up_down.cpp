#include "ui/up_down.h"

#include <algorithm>
#include <string>

namespace halvern {

UpDown::UpDown(TextBox& buddy, std::int32_t minimum, std::int32_t maximum, std::int32_t value)
    : Control(ControlKind::kUpDown, std::to_string(value)),
      buddy_(buddy),
      minimum_(minimum),
      maximum_(maximum),
      value_(value) {}

std::int32_t UpDown::Within(std::int32_t value) const { return std::max(minimum_, std::min(value, maximum_)); }

void UpDown::Take(std::int32_t value) {
    value_ = Within(value);
    SetCaption(std::to_string(value_));
}

void UpDown::SetValue(std::int32_t value) {
    Take(value);
    buddy_.SetText(std::to_string(value_));
}

void UpDown::SetMinimum(std::int32_t minimum) {
    minimum_ = minimum;
    Take(value_);
}

void UpDown::SetMaximum(std::int32_t maximum) {
    maximum_ = maximum;
    Take(value_);
}

}  // namespace halvern
