#include "store/menu_gates.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include "store/analysis_store.h"
#include "store/menus.h"

namespace halvern {

namespace {

using M = MainMenu;
using Item = MenuItem MainMenu::*;
using Items = std::span<const Item>;

template <Item... kItems>
constexpr std::array<Item, sizeof...(kItems)> kArray{kItems...};
template <Item... kItems>
constexpr Items kThese{kArray<kItems...>};

struct GateRow {
    Gate gate;
    Items enables{}, disables{}, shows{}, hides{}, ticks{}, unticks{};
};

// One row a gate, in the order of the gates.
constexpr GateRow kGates[] = {
    {.gate = Gate::kDataSetWiped,
     .enables = kThese<&M::Get_MenFromScan, &M::Set_MenManually, &M::NoJitterCorrection>,
     .disables =
         kThese<&M::BackToOrigKeld, &M::SetKeldZero, &M::DoGofS, &M::ShowSAve, &M::DoPlotGS, &M::DoPlotGShat,
                &M::DoReAddNow, &M::dummy_men, &M::SetJitterLimits, &M::DoIntShift, &M::KeldIt, &M::UseWSSmoothing,
                &M::SetCSpan, &M::DoWideStraight, &M::PlotDummy1, &M::PlotCorrected, &M::PlotRawkeld, &M::PlotAvekeld,
                &M::PlotWideD, &M::OutputMenu, &M::CorrectedDataOut, &M::WDOut, &M::KeldOut, &M::KeldOutCorrected>,
     .shows = kThese<&M::Get_MenFromScan, &M::Set_MenManually, &M::SetJitterLimits>,
     .hides = kThese<&M::Set_MultiMenManually, &M::NoJitterCorrection>,
     .unticks = kThese<&M::DoReAddNow, &M::UseWSSmoothing>},

    {.gate = Gate::kScansRead, .enables = kThese<&M::dummy_men, &M::PlotDummy1>},
    {.gate = Gate::kInterferenceScansFound, .enables = kThese<&M::DoReAddNow>},
    // Kept: no gate shows the item again, also not for interference data that are loaded later.
    {.gate = Gate::kOtherScansFound, .hides = kThese<&M::DoReAddNow>},
    {.gate = Gate::kSeveralSpeedsFound,
     .shows = kThese<&M::Set_MultiMenManually>,
     .hides = kThese<&M::Set_MenManually>},
    {.gate = Gate::kDataSetStands, .enables = kThese<&M::OutputMenu>},

    {.gate = Gate::kMeniscusSet, .enables = kThese<&M::KeldIt, &M::DoWideStraight, &M::UseWSSmoothing>},
    {.gate = Gate::kMenisciOfSpeedsSet,
     .enables = kThese<&M::DoWideStraight, &M::UseWSSmoothing>,
     .disables = kThese<&M::KeldIt>},

    {.gate = Gate::kCorrectionsOffered, .enables = kThese<&M::SetJitterLimits, &M::DoIntShift>},
    {.gate = Gate::kFringesReAdded, .ticks = kThese<&M::DoReAddNow>},
    {.gate = Gate::kJitterCorrected,
     .enables = kThese<&M::PlotCorrected>,
     .shows = kThese<&M::NoJitterCorrection>,
     .hides = kThese<&M::SetJitterLimits>},
    {.gate = Gate::kJitterPickDone, .enables = kThese<&M::CorrectedDataOut>},
    {.gate = Gate::kIntegralFringesCorrected},
    // Kept: here and where the zero level is restored KeldOutGofS stays as it was, out of reach under KeldOut.
    {.gate = Gate::kCorrectionRemoved,
     .enables = kThese<&M::DoIntShift>,
     .disables = kThese<&M::PlotCorrected, &M::BackToOrigKeld, &M::SetKeldZero, &M::ShowSAve, &M::DoGofS,
                        &M::PlotAvekeld, &M::PlotRawkeld, &M::DoPlotGS, &M::DoPlotGShat, &M::CorrectedDataOut,
                        &M::KeldOut, &M::KeldOutCorrected>,
     .shows = kThese<&M::SetJitterLimits>,
     .hides = kThese<&M::NoJitterCorrection>},

    {.gate = Gate::kRatesCalculated, .enables = kThese<&M::PlotAvekeld, &M::PlotRawkeld, &M::SetKeldZero>},
    {.gate = Gate::kZeroLevelSet,
     .enables = kThese<&M::BackToOrigKeld, &M::DoGofS>,
     .disables = kThese<&M::SetKeldZero>},
    {.gate = Gate::kZeroLevelRestored,
     .enables = kThese<&M::SetKeldZero>,
     .disables = kThese<&M::BackToOrigKeld, &M::DoGofS, &M::ShowSAve, &M::DoPlotGS, &M::DoPlotGShat, &M::KeldOut,
                        &M::KeldOutCorrected>},
    {.gate = Gate::kSLimitsSet,
     .enables =
         kThese<&M::DoPlotGS, &M::DoPlotGShat, &M::ShowSAve, &M::KeldOut, &M::KeldOutCorrected, &M::KeldOutGofS>},

    {.gate = Gate::kWideDistributionCalculated, .enables = kThese<&M::PlotWideD, &M::WDOut>},
    {.gate = Gate::kSmoothingSwitchedOn,
     .enables = kThese<&M::SetCSpan>,
     .disables = kThese<&M::PlotWideD, &M::WDOut>,
     .ticks = kThese<&M::UseWSSmoothing>},
    {.gate = Gate::kSmoothingSwitchedOff,
     .disables = kThese<&M::SetCSpan, &M::PlotWideD, &M::WDOut>,
     .unticks = kThese<&M::UseWSSmoothing>},
    {.gate = Gate::kSmoothingImpossible, .disables = kThese<&M::UseWSSmoothing, &M::SetCSpan>},
    {.gate = Gate::kSmoothingRefused, .disables = kThese<&M::UseWSSmoothing>, .unticks = kThese<&M::UseWSSmoothing>},
    {.gate = Gate::kSmoothingWindowChanged, .disables = kThese<&M::PlotWideD, &M::WDOut>},
};

consteval bool EveryGateHasItsRow() {
    for (std::size_t i = 0; i < std::size(kGates); ++i)
        if (kGates[i].gate != static_cast<Gate>(i))
            return false;
    return kGates[std::size(kGates) - 1].gate == Gate::kSmoothingWindowChanged;
}
static_assert(EveryGateHasItsRow());

struct CaptionRow {
    Gate gate;
    Item item;
    std::string_view caption;
};

constexpr CaptionRow kCaptions[] = {
    {Gate::kDataSetWiped, &M::NoJitterCorrection, "&Remove Jitter Correction"},
    {Gate::kDataSetWiped, &M::PlotCorrected, "&Corrected for Jitter"},
    {Gate::kSeveralSpeedsFound, &M::Get_MenFromScan, "Graphically (From 1st Scan at each speed)"},
    {Gate::kDataSetStands, &M::GetListNow, "Restart With Another Set"},
    {Gate::kIntegralFringesCorrected, &M::NoJitterCorrection, "&Remove Jitter and Integer Fringe Correction"},
    {Gate::kIntegralFringesCorrected, &M::PlotCorrected, "&Corrected for Jitter and Interger Fringe Shift"},
    {Gate::kCorrectionRemoved, &M::NoJitterCorrection, "&Remove Jitter Correction"},
    {Gate::kCorrectionRemoved, &M::PlotCorrected, "&Corrected for Jitter"},
};

template <class Change>
void Each(Items items, Change change) {
    for (const Item item : items)
        change(Menus().*item);
}

}  // namespace

void Pass(Gate gate) {
    const GateRow& row = kGates[static_cast<std::size_t>(gate)];
    Each(row.enables, [](MenuItem& item) { item.Enable(); });
    Each(row.disables, [](MenuItem& item) { item.Disable(); });
    Each(row.shows, [](MenuItem& item) { item.Show(); });
    Each(row.hides, [](MenuItem& item) { item.Hide(); });
    Each(row.ticks, [](MenuItem& item) { item.Tick(); });
    Each(row.unticks, [](MenuItem& item) { item.Untick(); });
    for (const auto& [at, item, caption] : kCaptions)
        if (at == gate)
            (Menus().*item).SetCaption(std::string(caption));
}

void OfferCorrections() {
    if (Store().IsInterference)
        Pass(Gate::kCorrectionsOffered);
}

}  // namespace halvern
