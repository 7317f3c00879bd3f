#include "analysis/dist_aves.h"

#include <array>
#include <string>

#include "analysis/averages.h"

namespace halvern {

namespace {

constexpr std::int32_t kFrameWidth = 6000, kFrameHeight = 2220;
constexpr std::int32_t kFirstFrame = 120, kSecondFrame = 2460;
constexpr std::int32_t kLabelHeight = 300, kLabelStep = 360;

Place LabelPlace(std::int32_t frameTop, std::int32_t row) {
    return {300, frameTop + 330 + row * kLabelStep, kFrameWidth - 360, kLabelHeight};
}

}  // namespace

DistAves::DistAves() : Form("DistAves", "Distribution Averages", {2400, 1800, kFrameWidth + 240, 5400}) {
    Add("Frame1", Frame1, {120, kFirstFrame, kFrameWidth, kFrameHeight});
    Label* const upper[] = {&Label1, &Label2, &Label3, &Label4, &Label5};
    for (std::int32_t row = 0; row < 5; ++row)
        Add("Label" + std::to_string(row + 1), *upper[row], LabelPlace(kFirstFrame, row));
    Add("Frame2", Frame2, {120, kSecondFrame, kFrameWidth, kFrameHeight});
    Label* const lower[] = {&Label6, &Label7, &Label8, &Label9, &Label10};
    for (std::int32_t row = 0; row < 5; ++row)
        Add("Label" + std::to_string(row + 6), *lower[row], LabelPlace(kSecondFrame, row));
    Add("Command1", Command1, {2520, 4830, 1200, 420});
    Command1.Click = [this] { Command1_Click(); };
}

void DistAves::Command1_Click() { Unload(); }

void ShowSAve_Click() {
    BlankOutsideLimits();
    const auto interacting = AverageLinesOfInteracting(AveragesOfInteracting());
    const auto nonInteracting = AverageLinesOfNonInteracting(AveragesOfNonInteracting());
    DistAves dialog;
    Label* const upper[] = {&dialog.Label1, &dialog.Label2, &dialog.Label3, &dialog.Label4, &dialog.Label5};
    Label* const lower[] = {&dialog.Label6, &dialog.Label7, &dialog.Label8, &dialog.Label9, &dialog.Label10};
    for (std::size_t row = 0; row < 5; ++row) {
        upper[row]->SetCaption(interacting[row]);
        lower[row]->SetCaption(nonInteracting[row]);
    }
    dialog.ShowModal();
}

}  // namespace halvern
