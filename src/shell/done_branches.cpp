#include "shell/done_branches.h"

#include "analysis/g_of_s.h"
#include "analysis/zero_level.h"
#include "conditioning/fringe_shift.h"
#include "conditioning/jitter.h"
#include "conditioning/meniscus.h"
#include "plot/done.h"

namespace halvern {

namespace {

constexpr DoneBranch kBranches[] = {
    {&PlotRequest::PickJitterPoint, TakeJitterPoint}, {&PlotRequest::PickSLimits, TakeSLimits},
    {&PlotRequest::PickZeroLevel, TakeZeroLevel},     {&PlotRequest::PickFringePoint, TakeFringePoint},
    {&PlotRequest::PickMeniscus, TakeMeniscus},
};

}  // namespace

void TieDoneBranches() { SetDoneBranches(kBranches); }

}  // namespace halvern
