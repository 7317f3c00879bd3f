#pragma once

#include "ui/control.h"

namespace halvern {

/// A check box: its caption, and whether it is ticked.
class CheckBox : public Control {
  public:
    explicit CheckBox(std::string caption = {}) : Control(ControlKind::kCheckBox, std::move(caption)) {}

    /// 0 or 1.
    int Value() const { return ticked_ ? 1 : 0; }
    void SetValue(int value) {
        if (Value() == value)
            return;
        ticked_ = value != 0;
        Changed();
    }

  private:
    bool ticked_ = false;
};

}  // namespace halvern
