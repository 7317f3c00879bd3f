#include "store/typed_number.h"

#include <string>

#include "store/fixed_text.h"
#include "store/single.h"
#include "store/val.h"
#include "ui/desktop.h"

namespace halvern {

void TakeTypedNumber(TextBox& box, UpDown& spin, const TypedLimits& limits, std::string_view before) {
    const double value = Val(box.Text());
    if (IsNumeric(box.Text()) && value > limits.above && value < limits.below) {
        spin.SetValue(ToInteger32(value));
        return;
    }
    MsgBox(std::string(limits.message), kExclamation, "Data Entry Error");
    box.SetText(Concat({before, std::to_string(spin.Value())}));
    box.SetFocus();
}

}  // namespace halvern
