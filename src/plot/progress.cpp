#include "plot/progress.h"

namespace halvern {

namespace {

constexpr Place kDesign{0, 0, 4200, 1500};
constexpr Place kTask{240, 150, 3720, 300};
constexpr Place kBar{240, 540, 3720, 330};
constexpr Place kLowerEnd{240, 960, 600, 300};
constexpr Place kUpperEnd{3360, 960, 600, 300};

}  // namespace

ProgressWindow::ProgressWindow() : Form("cmpltfrm", "% Complete", kDesign) {
    Add("Label3", Label3, kTask);
    Add("ProgressBar1", ProgressBar1, kBar);
    Add("Gauge1", Gauge1, kBar);
    Add("Label1", Label1, kLowerEnd);
    Add("Label2", Label2, kUpperEnd);
    Gauge1.Hide();
}

void ProgressWindow::Form_Load() {
    Label1.SetCaption("0");
    Label2.SetCaption("100");
}

ProgressWindow& CmpltFrmForm() {
    static ProgressWindow form;
    return form;
}

}  // namespace halvern
