#include <iterator>

#include "plot/plot_window.h"
#include "random/model.h"
#include "store/analysis_store.h"

// What the plot window's own button, menu and mouse do to the state that the model follows.
namespace halvern::random_user {

// Done. The first pick that is open is taken, in this order.

void Model::DoneBegins() {
    flags_.doneShown = flags_.plotShown = false;
    if (flags_.pickJitterPoint) {
        lastDone_ = "jitter";
    } else if (flags_.pickSLimits) {
        lastDone_ = "s* limits";
    } else if (flags_.pickZeroLevel) {
        lastDone_ = "zero level";
    } else if (flags_.pickFringePoint) {
        lastDone_ = "fringe point";
        flags_.pickFringePoint = flags_.pickMeniscus = false;
        flags_.fringeCorrected = true;
        Happens("integer fringes corrected");
        ScanPlotBegins();
    } else if (flags_.pickMeniscus) {
        lastDone_ = flags_.several ? "meniscus of a speed" : "meniscus";
    } else {
        lastDone_ = "nothing";
    }
}

void Model::DoneEnds() {
    if (lastDone_ == "jitter") {
        flags_.testShown = false;
        flags_.jitterCorrected = true;
        flags_.pickJitterPoint = flags_.pickMeniscus = false;
        Happens("jitter corrected");
        Happens("jitter pick over");
    } else if (lastDone_ == "s* limits") {
        Happens("s* limits pick over");
        DistributionPlotEnds();
    } else if (lastDone_ == "zero level") {
        flags_.pickZeroLevel = false;
        Happens("zero level pick over");
        PlainPlotEnds();
    } else if (lastDone_ == "fringe point") {
        ScanPlotEnds();
    } else if (lastDone_ == "meniscus") {
        flags_.pickMeniscus = false;
    } else if (lastDone_ == "meniscus of a speed") {
        if (flags_.speedIndex < flags_.speeds) {
            ++flags_.speedIndex;
            flags_.pickDataLimits = flags_.pickJitterPoint = false;
            flags_.doneShown = true;
            PlotComesUp();
        } else {
            flags_.pickMeniscus = false;
        }
    }
}

void Model::TestEnds() { PlotComesUp(); }

// The mouse.

void Model::MouseBegins(const Words& /*words*/) {
    const auto& S = Store();
    const float view[] = {S.PlotXMin, S.PlotXMax, S.PlotYMin, S.PlotYMax};
    std::copy(std::begin(view), std::end(view), viewBefore_);
    boxInDrag_ = false;
}

void Model::MouseEnds(const Words& words) {
    const auto& S = Store();
    if (words[0] == "drag") {
        const float view[] = {S.PlotXMin, S.PlotXMax, S.PlotYMin, S.PlotYMax};
        if (!boxInDrag_ && !std::equal(std::begin(view), std::end(view), viewBefore_))
            Find(plot_, "Zoomout").enabled = true;
    } else if (words[1] == "left+ctrl" && !flags_.pickDataLimits && flags_.pickMeniscus && flags_.interference) {
        Happens("interference meniscus");
    }
}

// The menu.

void Model::ZoomoutEnds() { Find(plot_, "Zoomout").enabled = false; }

void Model::ReadOutEnds() {
    flags_.readOutShown = !flags_.readOutShown;
    Find(plot_, "ShowEm").caption = flags_.readOutShown ? "&Hide (X,Y)" : "&Show (X,Y)";
}

void Model::LinesEnds() {
    flags_.linesOmitted = !flags_.linesOmitted;
    Find(plot_, "Nolines").ticked = flags_.linesOmitted;
    Find(plot_, "NoSymbols").enabled = !flags_.linesOmitted;
}

void Model::SymbolsEnds() {
    flags_.symbolsOmitted = !flags_.symbolsOmitted;
    Find(plot_, "NoSymbols").ticked = flags_.symbolsOmitted;
    Find(plot_, "Nolines").enabled = !flags_.symbolsOmitted;
}

void Model::LargeEnds() {
    flags_.smallSymbols = !flags_.smallSymbols;
    Find(plot_, "LargePoints").caption = flags_.smallSymbols ? "Large Symbols" : "Small Symbols";
}

void Model::FilledEnds() {
    Item& item = Find(plot_, "UseFilled");
    item.ticked = !item.ticked;
}

}  // namespace halvern::random_user
