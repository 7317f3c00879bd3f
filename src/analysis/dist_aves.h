#pragma once

#include "ui/form.h"

namespace halvern {

/// The dialog that shows the averages over both distributions.
class DistAves : public Form {
  public:
    DistAves();

    Frame Frame1{"Averages for Interacting Systems"};
    Label Label1, Label2, Label3, Label4, Label5;
    Frame Frame2{"Averages for Non-Interacting Systems"};
    Label Label6, Label7, Label8, Label9, Label10;
    Button Command1{"&OK"};

  private:
    void Command1_Click();
};

/// "Display Averages Over Distribution": blanks what lies outside the limits, takes both sets of averages and shows
/// them.
///
/// Fails     11 with no point between the limits
void ShowSAve_Click();

}  // namespace halvern
