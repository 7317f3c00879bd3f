#pragma once

#include <span>

#include "store/analysis_store.h"

namespace halvern {

/// What the button "Done" goes on with while a pick's flag is up.
struct DoneBranch {
    Boolean PlotRequest::*flag;
    void (*goOn)();
};

/// The branches in the order in which Done looks at their flags; the first that is up is taken. The order matters: the
/// picks of a jitter or fringe point stand beside that of the meniscus.
///
/// Note      the table has to live as long as the program
void SetDoneBranches(std::span<const DoneBranch> branches);

/// Takes the first branch whose flag is up, if there is one.
void GoOnAfterPick();

}  // namespace halvern
