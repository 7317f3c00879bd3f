#include "shell/menu_handlers.h"

#include "analysis/dist_aves.h"
#include "analysis/g_of_s.h"
#include "analysis/rate_plots.h"
#include "analysis/time_derivative.h"
#include "analysis/zero_level.h"
#include "conditioning/fringe_shift.h"
#include "conditioning/jitter.h"
#include "conditioning/meniscus.h"
#include "conditioning/readd_fringes.h"
#include "intake/data_set_load.h"
#include "intake/generate_file.h"
#include "output/g_of_s_files.h"
#include "output/scan_plots.h"
#include "output/scan_tables.h"
#include "plot/plot_window.h"
#include "shell/main_window.h"
#include "shell/report_commands.h"
#include "store/menus.h"
#include "wide/radii_dialogs.h"
#include "wide/set_smooth.h"
#include "wide/wide_distribution.h"
#include "wide/wide_files.h"

namespace halvern {

namespace {

struct Tie {
    MenuItem MainMenu::*item;
    void (*handler)();
};

constexpr Tie kTies[] = {
    {&MainMenu::GetListNow, GetListNow_Click},
    {&MainMenu::MakeListNow, MakeListNow_Click},
    {&MainMenu::AllDone, AllDone_Click},
    {&MainMenu::PrintFitting, PrintFitting_Click},
    {&MainMenu::PrnSelect, PrnSelect_Click},
    {&MainMenu::CopySelect, CopySelect_Click},
    {&MainMenu::DoReAddNow, DoReAddNow_Click},
    {&MainMenu::Get_MenFromScan, Get_MenFromScan_Click},
    {&MainMenu::Set_MenManually, Set_MenManually_Click},
    {&MainMenu::Set_MultiMenManually, Set_MultiMenManually_Click},
    {&MainMenu::SetJitterLimits, SetJitterLimits_Click},
    {&MainMenu::NoJitterCorrection, NoJitterCorrection_Click},
    {&MainMenu::DoIntShift, DoIntShift_Click},
    {&MainMenu::KeldIt, KeldIt_Click},
    {&MainMenu::SetKeldZero, SetKeldZero_Click},
    {&MainMenu::BackToOrigKeld, BackToOrigKeld_Click},
    {&MainMenu::DoGofS, DoGofS_Click},
    {&MainMenu::ShowSAve, ShowSAve_Click},
    {&MainMenu::UseWSSmoothing, UseWSSmoothing_Click},
    {&MainMenu::SetCSpan, SetCSpan_Click},
    {&MainMenu::DoWideStraight, DoWideStraight_Click},
    {&MainMenu::PlotRaw, PlotRaw_Click},
    {&MainMenu::PlotCorrected, PlotCorrected_Click},
    {&MainMenu::PlotInterp, PlotInterp_Click},
    {&MainMenu::PlotRawkeld, PlotRawkeld_Click},
    {&MainMenu::PlotAvekeld, PlotAvekeld_Click},
    {&MainMenu::DoPlotGShat, PlotGShat},
    {&MainMenu::DoPlotGS, PlotGS},
    {&MainMenu::PlotSvsG, PlotSvsG_Click},
    {&MainMenu::PlotLnS, PlotLnS_Click},
    {&MainMenu::PlotIntegralWD, PlotIntegralWD_Click},
    {&MainMenu::SavePlots, SavePlots_Click},
    {&MainMenu::RawDataOut, RawDataOut_Click},
    {&MainMenu::CorrectedDataOut, CorrectedDataOut_Click},
    {&MainMenu::KeldOutCorrected, KeldOutCorrected_Click},
    {&MainMenu::KeldOutGofS, KeldOutGofS_Click},
    {&MainMenu::SaveSvsG, SaveSvsG_Click},
    {&MainMenu::SaveLnSvsSG, SaveLnSvsSG_Click},
    {&MainMenu::DoIntegralWD, DoIntegralWD_Click},
};

}  // namespace

void TieMenuHandlers() {
    for (const auto& tie : kTies)
        (Menus().*tie.item).Click = tie.handler;
    // What is picked on the plot belongs to the conditioning of the scans.
    PlotitForm().TestIt.Click = TestIt_Click;
    PlotitForm().Menu.SetJitterLimits.Click = ApplyJitterCorrection;
}

}  // namespace halvern
