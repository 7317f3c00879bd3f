#pragma once

#include "ui/form.h"

namespace halvern {

/// The progress window, "cmpltfrm": a bar from 0 to 100 under a line that tells what is going on.
class ProgressWindow : public Form {
  public:
    ProgressWindow();

    bool TellsProgress() const override { return true; }

    Label Label1;                  ///< the lower end of the scale
    Label Label2;                  ///< its upper end
    Label Label3{"Reading Data"};  ///< what is going on
    ProgressBar ProgressBar1;
    ProgressBar Gauge1;  ///< a second bar of the design that nothing uses

  private:
    void Form_Load() override;
};

ProgressWindow& CmpltFrmForm();

}  // namespace halvern
