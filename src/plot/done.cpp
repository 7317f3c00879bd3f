#include "plot/done.h"

namespace halvern {

namespace {

std::span<const DoneBranch> doneBranches;

}  // namespace

void SetDoneBranches(std::span<const DoneBranch> branches) { doneBranches = branches; }

void GoOnAfterPick() {
    for (const auto& branch : doneBranches)
        if (Store().*branch.flag)
            return branch.goOn();
}

}  // namespace halvern
