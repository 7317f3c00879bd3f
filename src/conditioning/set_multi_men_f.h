#pragma once

#include <array>
#include <cstdint>

#include "ui/form.h"
#include "ui/text_box.h"

namespace halvern {

/// The dialog for one meniscus for each speed run, at most twelve.
class SetMultiMenF : public Form {
  public:
    SetMultiMenF();

    static constexpr std::int32_t kRows = 12;
    std::array<Label, kRows> Label1;
    std::array<TextBox, kRows> Radii;
    RuledLine Line1;
    Button JustDoIt{"&OK"};
    Button NotNow{"Cancel"};

  private:
    /// Fails     9 with more speed runs than rows
    void Form_Load() override;
    void Radii_GotFocus(std::int32_t Index);
    /// Good from 5.7 to 7.1 cm, both ends included; anything else goes back to the stored value.
    void Radii_LostFocus(std::int32_t Index);
    void JustDoIt_Click();
    void NotNow_Click();

    Label& LabelOf(std::int32_t Index);
    TextBox& RadiusOf(std::int32_t Index);
};

}  // namespace halvern
