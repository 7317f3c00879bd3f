#include "wide/set_smooth.h"

#include <cstdint>
#include <string>

#include "store/analysis_store.h"
#include "store/format.h"
#include "store/menu_gates.h"
#include "store/menus.h"
#include "store/single.h"
#include "store/typed_number.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr std::int32_t kSmallestWindow = 3;
constexpr Pattern kWindow{"##"};

// Kept: the words are those of the dialog for the file increment.
constexpr TypedLimits kWindowLimits{2.0, 50.0, "The value for the file increment is invalid or out of range!"};

}  // namespace

SetSmooth::SetSmooth() : Form("SetSmooth", "Set Soothing Window", {3000, 3000, 4500, 1950}) {
    Add("Label1", Label1, {300, 300, 2550, 300});
    Add("Text1", Text1, {2850, 240, 750, 375});
    Add("UpDown1", UpDown1, {3600, 240, 255, 375});
    Add("Label2", Label2, {1200, 750, 2700, 300});
    Add("IsOK", IsOK, {600, 1275, 1200, 420});
    Add("MaybeLater", MaybeLater, {2700, 1275, 1200, 420});
    SetCancelButton(MaybeLater);
    Text1.LostFocus = [this] { Text1_LostFocus(); };
    IsOK.Click = [this] { IsOK_Click(); };
    MaybeLater.Click = [this] { MaybeLater_Click(); };
}

void SetSmooth::Form_Load() {
    auto& S = Store();
    const std::int32_t most = S.NumFiles / 10;
    Text1.SetText(std::to_string(S.SmoothWindow));
    Label2.SetCaption(Concat({"[ 2 < span < ", Format(most, kWindow), "] (odd)"}));
    UpDown1.SetMaximum(most);
    UpDown1.SetMinimum(kSmallestWindow);
    if (UpDown1.Maximum() >= kSmallestWindow)
        return UpDown1.SetValue(S.SmoothWindow);
    UpDown1.SetMinimum(0);
    UpDown1.SetMaximum(1);
    MsgBox("Too Few Datasets To Use Smoothing!", kExclamation, "Smoothing Disabled!");
    Pass(Gate::kSmoothingImpossible);
    S.UseSmoothing = false;
}

void SetSmooth::Text1_LostFocus() { TakeTypedNumber(Text1, UpDown1, kWindowLimits); }

void SetSmooth::IsOK_Click() {
    auto& S = Store();
    const std::int32_t value = UpDown1.Value();
    if (value != S.SmoothWindow && S.UseSmoothing)
        Pass(Gate::kSmoothingWindowChanged);
    if (value % 2 == 0) {
        S.SmoothWindow = ToInteger16(value + 1.0);
        MsgBox(Concat({"Smoothing Window MUST be odd numbered!  Window will be set to ",
                       Format(S.SmoothWindow, kWindow), "."}),
               kExclamation, "Smoothing Window Changed!");
    } else {
        S.SmoothWindow = ToInteger16(value);
    }
    Unload();
}

void SetSmooth::MaybeLater_Click() { Unload(); }

void UseWSSmoothing_Click() {
    auto& S = Store();
    S.UseSmoothing = !Menus().UseWSSmoothing.IsTicked();
    Pass(S.UseSmoothing ? Gate::kSmoothingSwitchedOn : Gate::kSmoothingSwitchedOff);
    if (S.SmoothDialogShown)
        return;
    SetSmooth dialog;
    dialog.Load();
    if (S.UseSmoothing) {
        dialog.ShowModal();
        S.SmoothDialogShown = true;
    } else {
        dialog.Unload();
        Pass(Gate::kSmoothingRefused);
    }
}

void SetCSpan_Click() {
    SetSmooth dialog;
    dialog.Load();
    dialog.ShowModal();
}

}  // namespace halvern
