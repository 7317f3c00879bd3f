#pragma once

namespace halvern {

/// What happens in an analysis and opens or shuts items of the main window's menu. The items are the order of the analysis:
/// a step can be chosen once the step before it has passed its gate.
enum class Gate {
    kDataSetWiped,
    kScansRead,
    kInterferenceScansFound,
    kOtherScansFound,
    kSeveralSpeedsFound,
    kDataSetStands,
    kMeniscusSet,
    kMenisciOfSpeedsSet,
    kCorrectionsOffered,
    kFringesReAdded,
    kJitterCorrected,
    kJitterPickDone,
    kIntegralFringesCorrected,
    kCorrectionRemoved,
    kRatesCalculated,
    kZeroLevelSet,
    kZeroLevelRestored,
    kSLimitsSet,
    kWideDistributionCalculated,
    kSmoothingSwitchedOn,
    kSmoothingSwitchedOff,
    kSmoothingImpossible,
    kSmoothingRefused,
    kSmoothingWindowChanged,
};

/// Does to the items what the gate's row of the table says, and nothing else.
void Pass(Gate gate);

/// Once a meniscus is known, the corrections of interference data are offered; other data have none.
void OfferCorrections();

}  // namespace halvern
