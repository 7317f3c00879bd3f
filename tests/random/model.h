#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "random/random.h"
#include "random/trees.h"
#include "replay/replay_desktop.h"

namespace halvern::random_user {

/// A control or item that an event is about: its window by name, and its own.
struct Target {
    std::string window;
    std::string name;
};

/// A number of speeds that the report has not told yet.
inline constexpr int kNotToldYet = -1;

/// What stands beside the items: what the plot shows, what a pick waits for, what is known of the data set.
struct Flags {
    bool plotShown = false, doneShown = false, testShown = false;
    bool interference = false, several = false;
    int speeds = 0, speedIndex = 0, numFiles = 0;
    bool pickDataLimits = true, pickSLimits = false, pickMeniscus = false;
    bool pickJitterPoint = false, pickFringePoint = false, pickZeroLevel = false;
    bool dialogOK = false, dialogCancelled = false;
    bool useSmoothing = false, smoothDialogShown = false;
    int smoothWindow = 3;
    bool jitterCorrected = false, fringeCorrected = false;
    bool linesOmitted = false, symbolsOmitted = false, readOutShown = true, smallSymbols = true;
};

/// The state of all menus, worked out from what the user does, and from what the program tells of it: message boxes,
/// lines of the report, windows that come and go. It knows nothing of how the program keeps that state.
class Model {
  public:
    Model(const replay::ReplayDesktop& desktop, bool hasPrinter);

    const Flags& Now() const { return flags_; }
    bool DataSetStands() const { return flags_.speeds != 0; }

    /// Whether a person gets to an item: shown and enabled itself and all that it stands under. Separators and items
    /// that open a submenu are no commands.
    bool CanClick(const Target& target) const;
    bool IsItem(const Target& target) const;

    /// The commands of a window that can be chosen now.
    std::vector<std::string> Commands(std::string_view window) const;

    /// An event begins and, if the program let the user do it, ends; others may come between.
    void Begins(const Target& target, const Words& words);
    void Ends(const Target& target, const Words& words);

    void BoxOpens(const std::string& text);
    void BoxCloses(const std::string& text);

    /// What of the program is not as it should be; empty if all is.
    std::vector<std::string> Differences() const;

    /// The last branch that Done took.
    const std::string& LastDone() const { return lastDone_; }

    // The effects of the commands; the table of commands names them.
    void LoadBegins();
    void LoadEnds();
    void ReAddEnds();
    void MeniscusPickEnds();
    void MeniscusTypedEnds();
    void MenisciTypedEnds();
    void JitterPickEnds();
    void CorrectionRemovedEnds();
    void FringePickEnds();
    void DcdtEnds();
    void ZeroPickEnds();
    void ZeroRestoredEnds();
    void LimitsPickEnds();
    void SmoothingBegins();
    void SmoothingEnds();
    void SmoothWindowBegins();
    void WideBegins();
    void WidePlotEnds();
    void RadiiAccepted();
    void RadiiCancelled();
    void EveryNthAccepted();
    void EveryNthCancelled();
    void RadiiDialogBegins();
    void ScanPlotBegins();
    void ScanPlotEnds();
    void PlainPlotEnds();
    void DistributionPlotEnds();
    void DoneBegins();
    void DoneEnds();
    void TestEnds();
    void ZoomoutEnds();
    void ReadOutEnds();
    void LinesEnds();
    void SymbolsEnds();
    void LargeEnds();
    void FilledEnds();

  private:
    Item& Find(std::vector<Item>& items, std::string_view name);
    void Happens(std::string_view event);
    void ResetHappens();
    void ReadingEnds();
    void PlainPlot();
    void PlotComesUp();
    void MouseBegins(const Words& words);
    void MouseEnds(const Words& words);
    bool StillOpen(std::string_view dialog) const;
    int SpinValue(std::string_view name) const;
    void Compare(const std::vector<Item>& expected, bool mainWindow, std::vector<std::string>& found) const;
    void CompareFlags(std::vector<std::string>& found) const;

    const replay::ReplayDesktop& desktop_;
    std::vector<Item> main_, plot_;
    Flags flags_;
    std::size_t reportBefore_ = 0;
    bool readingEnded_ = false;
    bool boxInDrag_ = false;
    float viewBefore_[4] = {};
    std::string lastDone_;
};

}  // namespace halvern::random_user
