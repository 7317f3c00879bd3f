#pragma once

#include "ui/form.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace halvern {

/// The dialog that asks for every how many-th scan a plot takes. It leaves its answer in `PlotEveryNth`, `PlotDialogOK`
/// and `PlotDialogCancelled`; closed by its frame it leaves them as they stand, the last one false.
class IncrementalPlot : public Form {
  public:
    IncrementalPlot();

    Label Label1{"Plot Every Nth File"};
    Label Label2{" N = "};
    TextBox PlotIncr;
    UpDown UpDown1{PlotIncr, 1, 250, 1};
    Label Label3{"[ 0 < N < 250 ]"};
    Button PlotEmUpScottie{"OK"};
    Button Nevermind{"Cancel"};

  private:
    void Form_Load() override;
    void PlotIncr_LostFocus();
    void PlotEmUpScottie_Click();
    void Nevermind_Click();
};

}  // namespace halvern
