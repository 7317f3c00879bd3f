#include "conditioning/set_meniscus.h"

#include "conditioning/meniscus.h"
#include "store/analysis_store.h"
#include "store/format.h"
#include "store/menu_gates.h"
#include "store/single.h"
#include "store/val.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr double kSmallest = 5.8, kLargest = 7.1;  // cm

}  // namespace

SetMeniscus::SetMeniscus() : Form("SetMeniscus", "Set Meniscus Position", {3000, 3000, 4200, 1500}) {
    Add("Label1", Label1, {240, 300, 2100, 300});
    Add("Text1", Text1, {2400, 240, 1500, 375});
    Add("IsOK", IsOK, {600, 900, 1200, 420});
    Add("NotThisTime", NotThisTime, {2400, 900, 1200, 420});
    SetCancelButton(NotThisTime);
    Text1.Validate = [this](bool& Cancel) { Text1_Validate(Cancel); };
    IsOK.Click = [this] { IsOK_Click(); };
    NotThisTime.Click = [this] { NotThisTime_Click(); };
}

void SetMeniscus::Form_Load() { Text1.SetText(std::string(Format(Store().ScanMeniscus(1), "#.00000##").View())); }

void SetMeniscus::Text1_Validate(bool& Cancel) {
    const double value = Val(Text1.Text());
    if (!IsNumeric(Text1.Text()) || value > kLargest || value < kSmallest) {
        Cancel = true;
        MsgBox("Please insert a number between 5.8 and 7.1", kOkOnly, "Value for Radius");
    }
    Text1.SetFocus();
}

void SetMeniscus::IsOK_Click() {
    auto& S = Store();
    S.Meniscus = Single(Val(Text1.Text()));
    for (std::int32_t K = 1; K <= S.NumFiles; ++K)
        S.ScanMeniscus(K) = S.Meniscus;
    OfferCorrections();
    Pass(Gate::kMeniscusSet);
    Unload();
}

void SetMeniscus::NotThisTime_Click() { Unload(); }

}  // namespace halvern
