#pragma once

#include <string_view>

#include "ui/text_box.h"
#include "ui/up_down.h"

namespace halvern {

/// What may be typed into the box beside a spin control. The spin control has limits of its own, which may be narrower.
struct TypedLimits {
    double above;
    double below;
    std::string_view message;  ///< for what is no number, or none between the two
};

/// The user leaves the box: the spin control takes the typed number, rounded to an integer, or a message titled "Data Entry
/// Error" tells what is wrong, and the box gets the digits of the old value and the focus back.
///
/// Given     before   stands before the digits
void TakeTypedNumber(TextBox& box, UpDown& spin, const TypedLimits& limits, std::string_view before = {});

}  // namespace halvern
