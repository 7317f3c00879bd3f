#include "shell/menu_handlers.h"

#include "analysis/dist_aves.h"
#include "analysis/g_of_s.h"
#include "analysis/rate_plots.h"
#include "analysis/time_derivative.h"
#include "analysis/zero_level.h"
#include "conditioning/meniscus.h"
#include "intake/data_set_load.h"
#include "output/g_of_s_files.h"
#include "shell/main_window.h"
#include "store/menus.h"

namespace halvern {

namespace {

struct Tie {
    MenuItem MainMenu::*item;
    void (*handler)();
};

constexpr Tie kTies[] = {
    {&MainMenu::GetListNow, GetListNow_Click},
    {&MainMenu::AllDone, AllDone_Click},
    {&MainMenu::Get_MenFromScan, Get_MenFromScan_Click},
    {&MainMenu::Set_MenManually, Set_MenManually_Click},
    {&MainMenu::Set_MultiMenManually, Set_MultiMenManually_Click},
    {&MainMenu::KeldIt, KeldIt_Click},
    {&MainMenu::SetKeldZero, SetKeldZero_Click},
    {&MainMenu::BackToOrigKeld, BackToOrigKeld_Click},
    {&MainMenu::DoGofS, DoGofS_Click},
    {&MainMenu::ShowSAve, ShowSAve_Click},
    {&MainMenu::PlotRawkeld, PlotRawkeld_Click},
    {&MainMenu::PlotAvekeld, PlotAvekeld_Click},
    {&MainMenu::DoPlotGShat, PlotGShat},
    {&MainMenu::DoPlotGS, PlotGS},
    {&MainMenu::KeldOutCorrected, KeldOutCorrected_Click},
    {&MainMenu::KeldOutGofS, KeldOutGofS_Click},
};

}  // namespace

void TieMenuHandlers() {
    for (const auto& tie : kTies)
        (Menus().*tie.item).Click = tie.handler;
}

}  // namespace halvern
