#pragma once

#include "ui/form.h"

namespace halvern {

/// The splash window, "Splash1": a few words and the program's picture while it starts.
class Splash : public Form {
  public:
    Splash();

    Label Label1{"Keld V0.99  for Win95/98 + WinNT"};
    Label Label2{"* Includes Wide Distribution Calculation *"};
    Label Label3{"(500 files max.)"};
    Picture Image1{"boundary"};

  private:
    void Form_Load() override;
};

}  // namespace halvern
