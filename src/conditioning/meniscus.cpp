#include "conditioning/meniscus.h"

#include "conditioning/set_meniscus.h"
#include "conditioning/set_multi_men_f.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "store/format.h"
#include "store/menu_gates.h"
#include "store/report.h"

namespace halvern {

namespace {

constexpr Pattern kSpeed{"#####"};
constexpr Pattern kMeniscus{"#.####"};

void SetPickTexts() {
    auto& S = Store();
    S.PlotHelp1 = "Use <Ctrl>LMB to Set the Meniscus Position";
    S.PlotXTitle = "Radius (cm)";
    S.PlotYTitle = SignalTitle();
}

/// Lines in the colour of one curve, then symbols, of one scan as it was read; then the pick is up.
void PickOnScan(std::int16_t Scan, std::int32_t curve) {
    auto& S = Store();
    S.PickDataLimits = false;
    S.PickJitterPoint = false;
    S.PickMeniscus = true;
    const auto pointAt = [&](std::int32_t I) { return PlotPoint{S.ScanData(I, 1, Scan), S.ScanData(I, 2, Scan)}; };
    RequestFiller request;
    request.Line(1, S.ScanPoints(Scan), curve, pointAt);
    request.Symbols(1, S.ScanPoints(Scan), curve, pointAt);
    PlotitForm().Command1.Show();
    ShowRequest(request);
}

}  // namespace

void Get_MenFromScan_Click() {
    auto& S = Store();
    SetPickTexts();
    S.PlotReady = false;
    PlotitForm().Load();
    PlotitForm().Hide();
    if (!S.MultipleSpeeds) {
        PickOnScan(1, kBlack);
        Pass(Gate::kMeniscusSet);
    } else {
        S.SpeedIndex = 1;
        S.Meniscus = S.ScanMeniscus(S.SpeedFirstScan(1));
        ShowFirstScanOfSpeed(S.SpeedIndex);
        Pass(Gate::kMenisciOfSpeedsSet);
    }
}

void ShowFirstScanOfSpeed(std::int16_t Scan) {
    auto& S = Store();
    SetPickTexts();
    S.PlotReady = false;
    S.PlotHelp2 = Concat({"First Dataset at a Speed of ", Format(S.ScanSpeed(Scan), kSpeed), " rpm"});
    PickOnScan(Scan, Scan);
}

void Set_MenManually_Click() {
    SetMeniscus dialog;
    dialog.Load();
    dialog.Text1.SelectAll();
    dialog.ShowModal();
}

void Set_MultiMenManually_Click() {
    SetMultiMenF dialog;
    dialog.Load();
    dialog.ShowModal();
}

void StoreMeniscusOfRun(std::int16_t F) {
    auto& S = Store();
    AddLine(Concat(
        {" Meniscus position for ", Format(S.ScanSpeed(F), kSpeed), "rpm is ", Format(S.Meniscus, kMeniscus), " cm."}));
    S.ScanMeniscus(F) = S.Meniscus;
}

void TakeMeniscus() {
    auto& S = Store();
    if (!S.MultipleSpeeds) {
        for (std::int32_t K = 1; K <= S.NumFiles; ++K)
            S.ScanMeniscus(K) = S.Meniscus;
        S.PickMeniscus = false;
    } else if (S.SpeedIndex < S.NumSpeeds) {
        StoreMeniscusOfRun(S.SpeedFirstScan(S.SpeedIndex));
        ++S.SpeedIndex;
        const std::int16_t next = S.SpeedFirstScan(S.SpeedIndex);
        S.Meniscus = S.ScanMeniscus(next);
        ShowFirstScanOfSpeed(next);
    } else {
        StoreMeniscusOfRun(S.SpeedFirstScan(S.NumSpeeds));
        SpreadMenisci();
        S.PickMeniscus = false;
    }
}

void SpreadMenisci() {
    auto& S = Store();
    float Cur = S.ScanMeniscus(1);
    std::int32_t Spd = S.ScanSpeed(1);
    for (std::int32_t K = 2; K <= S.NumFiles; ++K) {
        if (S.ScanSpeed(K) != Spd) {
            Cur = S.ScanMeniscus(K);
            Spd = S.ScanSpeed(K);
        } else {
            S.ScanMeniscus(K) = Cur;
        }
    }
}

}  // namespace halvern
