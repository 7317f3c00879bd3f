#include <algorithm>
#include <iterator>

#include "random/model.h"
#include "random/scans_read.h"
#include "store/report.h"

namespace halvern::random_user {

namespace {

/// What a command does before the first thing that it asks, and after the last.
struct Command {
    std::string_view window;
    std::string_view name;
    void (Model::*begins)();
    void (Model::*ends)();
};

using M = Model;

constexpr Command kCommands[] = {
    {"Keld", "GetListNow", &M::LoadBegins, &M::LoadEnds},
    {"Keld", "DoReAddNow", nullptr, &M::ReAddEnds},
    {"Keld", "Get_MenFromScan", nullptr, &M::MeniscusPickEnds},
    {"Keld", "SetJitterLimits", nullptr, &M::JitterPickEnds},
    {"Keld", "NoJitterCorrection", nullptr, &M::CorrectionRemovedEnds},
    {"Keld", "DoIntShift", nullptr, &M::FringePickEnds},
    {"Keld", "KeldIt", nullptr, &M::DcdtEnds},
    {"Keld", "SetKeldZero", nullptr, &M::ZeroPickEnds},
    {"Keld", "BackToOrigKeld", nullptr, &M::ZeroRestoredEnds},
    {"Keld", "DoGofS", nullptr, &M::LimitsPickEnds},
    {"Keld", "UseWSSmoothing", &M::SmoothingBegins, &M::SmoothingEnds},
    {"Keld", "DoWideStraight", &M::WideBegins, &M::WidePlotEnds},
    {"Keld", "PlotSvsG", &M::RadiiDialogBegins, &M::WidePlotEnds},
    {"Keld", "PlotLnS", &M::RadiiDialogBegins, &M::WidePlotEnds},
    {"Keld", "PlotIntegralWD", &M::RadiiDialogBegins, &M::WidePlotEnds},
    {"Keld", "PlotRaw", &M::ScanPlotBegins, &M::ScanPlotEnds},
    {"Keld", "PlotCorrected", &M::ScanPlotBegins, &M::ScanPlotEnds},
    {"Keld", "PlotRawkeld", nullptr, &M::PlainPlotEnds},
    {"Keld", "PlotAvekeld", nullptr, &M::PlainPlotEnds},
    {"Keld", "DoPlotGShat", nullptr, &M::DistributionPlotEnds},
    {"Keld", "DoPlotGS", nullptr, &M::DistributionPlotEnds},
    {"Plotit", "Command1", &M::DoneBegins, &M::DoneEnds},
    {"Plotit", "TestIt", nullptr, &M::TestEnds},
    {"Plotit", "Zoomout", nullptr, &M::ZoomoutEnds},
    {"Plotit", "ShowEm", nullptr, &M::ReadOutEnds},
    {"Plotit", "Nolines", nullptr, &M::LinesEnds},
    {"Plotit", "NoSymbols", nullptr, &M::SymbolsEnds},
    {"Plotit", "LargePoints", nullptr, &M::LargeEnds},
    {"Plotit", "UseFilled", nullptr, &M::FilledEnds},
    {"SetMeniscus", "IsOK", nullptr, &M::MeniscusTypedEnds},
    {"SetMultiMenF", "JustDoIt", nullptr, &M::MenisciTypedEnds},
    {"SetSmooth", "IsOK", &M::SmoothWindowBegins, nullptr},
    {"PlotRadii", "PlotEmUp", nullptr, &M::RadiiAccepted},
    {"PlotLogWD", "PlotEmUp", nullptr, &M::RadiiAccepted},
    {"PlotIntegral", "PlotEmUp", nullptr, &M::RadiiAccepted},
    {"PlotRadii", "NeverMind2", nullptr, &M::RadiiCancelled},
    {"PlotLogWD", "NeverMind2", nullptr, &M::RadiiCancelled},
    {"PlotIntegral", "NeverMind2", nullptr, &M::RadiiCancelled},
    {"IncrementalPlot", "PlotEmUpScottie", nullptr, &M::EveryNthAccepted},
    {"IncrementalPlot", "Nevermind", nullptr, &M::EveryNthCancelled},
};

const Command* CommandOf(const Target& target) {
    const auto row = std::find_if(std::begin(kCommands), std::end(kCommands), [&](const Command& command) {
        return command.window == target.window && command.name == target.name;
    });
    return row == std::end(kCommands) ? nullptr : row;
}

}  // namespace

void Model::Begins(const Target& target, const Words& words) {
    if (words[0] == "mouse" || words[0] == "drag")
        return MouseBegins(words);
    const Command* command = words[0] == "click" ? CommandOf(target) : nullptr;
    if (command != nullptr && command->begins != nullptr)
        (this->*command->begins)();
}

void Model::Ends(const Target& target, const Words& words) {
    if (words[0] == "mouse" || words[0] == "drag")
        return MouseEnds(words);
    const Command* command = words[0] == "click" ? CommandOf(target) : nullptr;
    if (command != nullptr && command->ends != nullptr)
        (this->*command->ends)();
}

void Model::BoxOpens(const std::string& text) {
    if (text.starts_with("Too few files in List File."))
        ReadingEnds();
    if (text.starts_with("Multiple speeds have been found.")) {
        ReadingEnds();
        Happens("several speeds");
        flags_.several = true;
        flags_.speeds = kNotToldYet;
    }
    if (text.starts_with("There Were No Data Within") || text.starts_with("You CANNOT Zoom Around"))
        boxInDrag_ = true;
}

void Model::BoxCloses(const std::string& text) {
    if (text != "Too Few Datasets To Use Smoothing!")
        return;
    Happens("too few scans for smoothing");
    flags_.useSmoothing = false;
}

// The data set.

void Model::ResetHappens() {
    Happens("reset");
    flags_.testShown = false;
    flags_.speeds = 0;
    for (bool* flag :
         {&flags_.several, &flags_.interference, &flags_.pickFringePoint, &flags_.pickZeroLevel, &flags_.pickSLimits,
          &flags_.jitterCorrected, &flags_.fringeCorrected, &flags_.smoothDialogShown, &flags_.useSmoothing})
        *flag = false;
    flags_.smoothWindow = 3;
}

void Model::LoadBegins() {
    reportBefore_ = OutFileBox().ListCount();
    readingEnded_ = false;
    if (DataSetStands())
        ResetHappens();
}

void Model::ReadingEnds() {
    const Reading reading = ReadingIn(OutFileBox(), reportBefore_);
    if (reading.counted)
        flags_.numFiles = reading.numFiles;
    if (reading.interference)
        flags_.interference = true;
    if (!reading.valid)
        return;
    readingEnded_ = true;
    Happens("scans read");
    Happens(flags_.interference ? "interference scans read" : "other scans read");
    flags_.speeds = reading.speeds;
    flags_.several = reading.speeds > 1;
    if (flags_.several)
        Happens("several speeds");
}

void Model::LoadEnds() {
    ReadingEnds();
    if (readingEnded_)
        Happens("load over");
}

void Model::ReAddEnds() { Happens("fringes re-added"); }

// The meniscus.

void Model::MeniscusPickEnds() {
    flags_.pickDataLimits = flags_.pickJitterPoint = false;
    flags_.pickMeniscus = true;
    flags_.doneShown = true;
    if (flags_.several)
        flags_.speedIndex = 1;
    Happens(flags_.several ? "meniscus pick, several speeds" : "meniscus pick, one speed");
    PlotComesUp();
}

void Model::MeniscusTypedEnds() {
    if (StillOpen("SetMeniscus"))
        return;
    if (flags_.interference)
        Happens("interference meniscus");
    Happens("one meniscus typed");
}

void Model::MenisciTypedEnds() {
    if (StillOpen("SetMultiMenF"))
        return;
    if (flags_.interference)
        Happens("interference meniscus");
    Happens("menisci typed");
}

// The corrections.

void Model::JitterPickEnds() {
    flags_.pickDataLimits = false;
    flags_.pickJitterPoint = flags_.pickMeniscus = true;
    flags_.doneShown = flags_.testShown = true;
    PlotComesUp();
}

void Model::CorrectionRemovedEnds() {
    Happens("correction removed");
    flags_.jitterCorrected = flags_.fringeCorrected = false;
}

void Model::FringePickEnds() {
    flags_.pickMeniscus = flags_.pickFringePoint = true;
    flags_.pickDataLimits = flags_.pickJitterPoint = false;
    flags_.doneShown = true;
    PlotComesUp();
}

// dc/dt and g(s*).

void Model::DcdtEnds() {
    Happens("dc/dt calculated");
    PlainPlotEnds();
}

void Model::ZeroPickEnds() {
    flags_.pickDataLimits = flags_.pickMeniscus = flags_.pickFringePoint = flags_.pickJitterPoint = false;
    flags_.pickZeroLevel = true;
    flags_.doneShown = true;
    PlotComesUp();
}

void Model::ZeroRestoredEnds() { Happens("zero level restored"); }

void Model::LimitsPickEnds() {
    flags_.pickJitterPoint = flags_.pickMeniscus = flags_.pickZeroLevel = false;
    flags_.pickDataLimits = flags_.pickSLimits = true;
    flags_.doneShown = true;
    PlotComesUp();
}

// The wide distribution.

void Model::SmoothingBegins() {
    flags_.useSmoothing = !Find(main_, "UseWSSmoothing").ticked;
    Happens(flags_.useSmoothing ? "smoothing switched on" : "smoothing switched off");
}

void Model::SmoothingEnds() {
    if (flags_.smoothDialogShown)
        return;
    if (flags_.useSmoothing)
        flags_.smoothDialogShown = true;
    else
        Happens("smoothing refused");
}

void Model::SmoothWindowBegins() {
    const int value = SpinValue("UpDown1");
    if (value != flags_.smoothWindow && flags_.useSmoothing)
        Happens("smoothing window changed");
    flags_.smoothWindow = value % 2 == 0 ? value + 1 : value;
}

void Model::WideBegins() {
    Happens("wide distribution calculated");
    RadiiDialogBegins();
}

void Model::RadiiDialogBegins() { flags_.dialogCancelled = false; }

void Model::RadiiAccepted() {
    flags_.pickDataLimits = flags_.pickMeniscus = flags_.pickJitterPoint = false;
    flags_.dialogOK = true;
}

void Model::RadiiCancelled() {
    flags_.dialogCancelled = true;
    flags_.dialogOK = false;
}

void Model::WidePlotEnds() {
    if (!flags_.dialogCancelled)
        return PlotComesUp();
    flags_.dialogCancelled = false;
    flags_.plotShown = false;
}

// Plain plots.

void Model::PlotComesUp() {
    flags_.plotShown = true;
    Find(plot_, "Zoomout").enabled = false;
}

void Model::PlainPlot() { flags_.pickDataLimits = flags_.pickMeniscus = flags_.pickJitterPoint = false; }

void Model::EveryNthAccepted() { flags_.dialogOK = true; }

void Model::EveryNthCancelled() {
    flags_.dialogOK = false;
    flags_.dialogCancelled = true;
}

void Model::ScanPlotBegins() { flags_.dialogCancelled = false; }

void Model::ScanPlotEnds() {
    if (flags_.dialogCancelled) {
        flags_.dialogCancelled = false;
        flags_.plotShown = false;
        return;
    }
    PlainPlot();
    if (flags_.dialogOK)
        PlotComesUp();
}

void Model::PlainPlotEnds() {
    PlainPlot();
    flags_.dialogOK = true;
    PlotComesUp();
}

void Model::DistributionPlotEnds() {
    flags_.pickSLimits = false;
    PlainPlotEnds();
}

}  // namespace halvern::random_user
