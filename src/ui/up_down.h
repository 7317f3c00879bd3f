#pragma once

#include <cstdint>

#include "ui/control.h"
#include "ui/text_box.h"

namespace halvern {

/// A spin control: two arrows beside a text box, which shows the digits of its value. Its caption is its value.
class UpDown : public Control {
  public:
    /// Given     buddy   the box that follows the value; it outlives the control
    UpDown(TextBox& buddy, std::int32_t minimum, std::int32_t maximum, std::int32_t value);

    std::int32_t Value() const { return value_; }
    /// A value outside the limits becomes the nearer limit. The box shows it, whatever it showed.
    void SetValue(std::int32_t value);

    std::int32_t Minimum() const { return minimum_; }
    std::int32_t Maximum() const { return maximum_; }
    /// A value that the new limit shuts out becomes that limit; the box is left alone.
    void SetMinimum(std::int32_t minimum);
    void SetMaximum(std::int32_t maximum);

    /// The user presses an arrow: one step up or down.
    void StepUp() { SetValue(value_ + 1); }
    void StepDown() { SetValue(value_ - 1); }

  private:
    std::int32_t Within(std::int32_t value) const;
    void Take(std::int32_t value);

    TextBox& buddy_;
    std::int32_t minimum_;
    std::int32_t maximum_;
    std::int32_t value_;
};

}  // namespace halvern
