#pragma once

#include "ui/form.h"
#include "ui/text_box.h"

namespace halvern {

/// The dialog for one meniscus for all scans.
class SetMeniscus : public Form {
  public:
    SetMeniscus();

    Label Label1{"Meniscus Position (cm)"};
    TextBox Text1{"6.00000"};
    Button IsOK{"&OK"};
    Button NotThisTime{"Cancel"};

  private:
    void Form_Load() override;
    /// Good from 5.8 to 7.1 cm, both ends included.
    void Text1_Validate(bool& Cancel);
    void IsOK_Click();
    void NotThisTime_Click();
};

}  // namespace halvern
