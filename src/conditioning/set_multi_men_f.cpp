#include "conditioning/set_multi_men_f.h"

#include <string>

#include "conditioning/meniscus.h"
#include "store/analysis_store.h"
#include "store/format.h"
#include "store/menu_gates.h"
#include "store/single.h"
#include "store/val.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

// Kept: the lower limit is 5.7 cm here and 5.8 cm in the dialog for one meniscus.
constexpr double kSmallest = 5.7, kLargest = 7.1;  // cm

constexpr std::int32_t kRowHeight = 420;
constexpr std::int32_t kFirstRow = 240;
constexpr std::int32_t kBelowRows = kFirstRow + SetMultiMenF::kRows * kRowHeight;

constexpr Pattern kSpeed{"##000"};
constexpr Pattern kMeniscus{"#.00000##"};

std::string StoredMeniscus(std::int32_t run) {
    const auto& S = Store();
    return std::string(Format(S.ScanMeniscus(S.SpeedFirstScan(run)), kMeniscus).View());
}

std::string Indexed(const char* name, std::int32_t Index) { return Concat({name, "(", std::to_string(Index), ")"}); }

void MoveUp(Control& control, std::int32_t twips) {
    Place place = control.Where();
    place.top -= twips;
    control.SetPlace(place);
}

template <class Row>
Row& RowAt(std::array<Row, SetMultiMenF::kRows>& rows, std::int32_t Index) {
    const auto row = static_cast<std::size_t>(Index);
    if (row >= rows.size())
        Fail(FailureCode::kSubscriptOutOfRange);
    return rows[row];
}

}  // namespace

SetMultiMenF::SetMultiMenF() : Form("SetMultiMenF", "Set Meniscus Position", {3000, 1500, 4800, kBelowRows + 960}) {
    for (std::int32_t J = 0; J < kRows; ++J) {
        Label& label = LabelOf(J);
        label.SetCaption("Meniscus - Speed 1");
        Add(Indexed("Label1", J), label, {240, kFirstRow + J * kRowHeight + 45, 2400, 300});
    }
    for (std::int32_t J = 0; J < kRows; ++J) {
        TextBox& radius = RadiusOf(J);
        radius.SetText("6.00000");
        radius.GotFocus = [this, J] { Radii_GotFocus(J); };
        radius.LostFocus = [this, J] { Radii_LostFocus(J); };
        Add(Indexed("Radii", J), radius, {2760, kFirstRow + J * kRowHeight, 1500, 345});
    }
    Add("Line1", Line1, {240, kBelowRows + 120, 4080, 15});
    Add("JustDoIt", JustDoIt, {600, kBelowRows + 300, 1380, 420});
    Add("NotNow", NotNow, {2760, kBelowRows + 300, 1380, 420});
    SetCancelButton(NotNow);
    JustDoIt.Click = [this] { JustDoIt_Click(); };
    NotNow.Click = [this] { NotNow_Click(); };
}

Label& SetMultiMenF::LabelOf(std::int32_t Index) { return RowAt(Label1, Index); }

TextBox& SetMultiMenF::RadiusOf(std::int32_t Index) { return RowAt(Radii, Index); }

void SetMultiMenF::Form_Load() {
    const auto& S = Store();
    for (std::int32_t J = 0; J <= S.NumSpeeds - 1; ++J) {
        const std::int32_t speed = S.ScanSpeed(S.SpeedFirstScan(J + 1));
        LabelOf(J).SetCaption(Concat({"Meniscus @ ", Format(speed, kSpeed), "rpm"}));
        RadiusOf(J).SetText(StoredMeniscus(J + 1));
    }
    for (std::int32_t J = S.NumSpeeds; J < kRows; ++J) {
        LabelOf(J).Hide();
        RadiusOf(J).Hide();
    }
    const std::int32_t rowHeight = LabelOf(1).Where().top - LabelOf(0).Where().top;
    const std::int16_t Shrink = ToInteger16(rowHeight * (kRows - S.NumSpeeds));
    MoveUp(NotNow, Shrink);
    MoveUp(JustDoIt, Shrink);
    MoveUp(Line1, Shrink);
    Place place = Where();
    place.height -= Shrink;
    SetPlace(place);
}

void SetMultiMenF::Radii_GotFocus(std::int32_t Index) { RadiusOf(Index).SelectAll(); }

void SetMultiMenF::Radii_LostFocus(std::int32_t Index) {
    TextBox& radius = RadiusOf(Index);
    const double value = Val(radius.Text());
    if (IsNumeric(radius.Text()) && value <= kLargest && value >= kSmallest)
        return;
    MsgBox("Please insert a number between 5.7 and 7.1", kOkOnly, "Value for Radius");
    radius.SetText(StoredMeniscus(Index + 1));
    radius.SetFocus();
}

void SetMultiMenF::JustDoIt_Click() {
    auto& S = Store();
    for (std::int32_t J = 1; J <= S.NumSpeeds; ++J) {
        S.Meniscus = Single(Val(RadiusOf(J - 1).Text()));
        StoreMeniscusOfRun(S.SpeedFirstScan(J));
    }
    SpreadMenisci();
    OfferCorrections();
    Pass(Gate::kMenisciOfSpeedsSet);
    Unload();
}

void SetMultiMenF::NotNow_Click() { Unload(); }

}  // namespace halvern
