#include "random/session.h"

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

#include <exception>
#include <optional>
#include <ostream>
#include <streambuf>
#include <utility>

#include "plot/plot_window.h"
#include "random/data_sets.h"
#include "random/failures.h"
#include "random/invariants.h"
#include "random/model.h"
#include "random/user.h"
#include "replay/events.h"
#include "replay/script.h"
#include "shell/start.h"
#include "store/failure.h"
#include "store/report.h"

namespace halvern::random_user {

namespace {

/// An event takes no longer than this, of the processor's time and of the clock's. On a busy machine the two are far apart.
constexpr int kMostWorkSeconds = 60;
constexpr unsigned kMostSeconds = 900;
constexpr int kHourglass = 11;
constexpr std::uint64_t kEventsBetweenCounts = 16;
constexpr const char* kSavePlot = "Plotit.SavePlotNow";

struct EventsOver {};

void BeginWatch() {
    const itimerval most{.it_interval = {}, .it_value = {.tv_sec = kMostWorkSeconds, .tv_usec = 0}};
    ::setitimer(ITIMER_PROF, &most, nullptr);
    ::alarm(kMostSeconds);
}

struct Finding {
    std::string text;
};

struct Nowhere : std::streambuf {
    int overflow(int c) override { return c; }
    std::streamsize xsputn(const char* /*text*/, std::streamsize size) override { return size; }
};

/// What the program asks of a desktop while a session runs: answered by the replay, and seen by the user and the model.
class WatchedDesktop : public replay::ReplayDesktop {
  public:
    using ReplayDesktop::ReplayDesktop;

    Model* model = nullptr;
    User* user = nullptr;
    std::string current;  ///< the event that is being carried out
    std::string boxText;  ///< of the message box that is open
    int pointer = 0;
    std::string pointerSetBy;
    std::string fullDiskMetBy;  ///< the command that last got a file on a full disk
    int filesThatMayStayOpen = 0;

    Answer AskUser(const std::string& text, int style, const std::string& title) override {
        boxText = text;
        if (title == "Output File Error")
            ++filesThatMayStayOpen;
        user->ReadsBox(text, (style & kYesNo) != 0);
        model->BoxOpens(text);
        const Answer answer = ReplayDesktop::AskUser(text, style, title);
        model->BoxCloses(text);
        boxText.clear();
        return answer;
    }
    std::optional<std::string> AskForExistingFile(const FileDialog& dialog) override {
        user->ReadsFileDialog(dialog.title, true);
        return ReplayDesktop::AskForExistingFile(dialog);
    }
    std::optional<std::string> AskForNewFile(const FileDialog& dialog) override {
        user->ReadsFileDialog(dialog.title, false);
        return ReplayDesktop::AskForNewFile(dialog);
    }
    void SetMousePointer(int shape) override {
        pointer = shape;
        pointerSetBy = current;
    }
    // Drawing needs a toolkit, which is much slower than all the rest; whether the file can be written is all that counts.
    void SavePicture(const Bitmap& /*picture*/, const std::string& path) override {
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT, 0666);
        const bool written = file >= 0 && ::write(file, "BM", 2) == 2;
        if (file >= 0)
            ::close(file);
        if (!written)
            Fail(FailureCode::kDeviceError);
    }
};

/// Whether a box comes up in the middle of what the model takes in one: while a plot is drawn, or the scans are read.
bool IsInTheMiddle(const std::string& box) {
    return box.starts_with("WARNING:") || box.starts_with("There Are No Data") ||
           box.find("have identical values of Omega^2*t.") != std::string::npos;
}

class Session : private replay::AnswerSource {
  public:
    Session(const Plan& plan, Tally& tally)
        : random_(plan.seed, plan.session),
          data_(random_, plan.folder, plan.copies),
          tally_(tally),
          mostEvents_(plan.mostEvents),
          out_(&nowhere_),
          desktop_(*this, out_),
          hasPrinter_(!random_.Chance(0.1)),
          model_(desktop_, hasPrinter_),
          user_(random_, data_, model_, desktop_) {
        desktop_.model = &model_;
        desktop_.user = &user_;
    }

    void Run();

  private:
    bool AnswerComesNext() const override;
    void CarryOutNextLine() override;

    void Play();
    void Take(const Event& event);
    void Try(const Event& event, const Target& target);
    void AfterEvent();
    void AtTopLevel(std::vector<std::string>& found);
    void Log(const Words& words, const char* prefix = "");
    Fate FateOf(const Event& event, const Target& target) const;
    Target TargetOf(const Words& words) const;

    Random random_;
    DataSets data_;
    Tally& tally_;
    std::uint64_t mostEvents_;
    std::uint64_t events_ = 0;
    Nowhere nowhere_;
    std::ostream out_;
    WatchedDesktop desktop_;
    bool hasPrinter_;
    Model model_;
    User user_;
    mutable std::optional<bool> answersBox_;
    int depth_ = 0;
    int filesAtStart_ = 0;
    bool failureJudged_ = false;
};

/// A word as a script has it: in quotes where it must be.
std::string Word(const std::string& word) {
    if (!word.empty() && word.find_first_of(" \t\"\\#") == std::string::npos)
        return word;
    std::string quoted = "\"";
    for (const char c : word) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

std::string Line(const Words& words) {
    std::string line;
    for (const auto& word : words)
        line += (line.empty() ? "" : " ") + Word(word);
    return line;
}

void Session::Log(const Words& words, const char* prefix) { tally_.AppendToScript(prefix + Line(words) + '\n'); }

void Session::Run() {
    try {
        Play();
    } catch (const EventsOver&) {
        tally_.end = End::kEventsOver;
    } catch (const Finding& finding) {
        tally_.end = End::kFinding;
        Tally::Put(tally_.finding, Tally::kLongestText, finding.text);
    } catch (const ProgramEnd&) {
        tally_.end = End::kDataRefused;
    } catch (const RuntimeFailure& failure) {
        tally_.end = End::kFailed;
        tally_.failure = failure.Number();
    } catch (const std::exception& defect) {
        tally_.end = End::kFinding;
        Tally::Put(tally_.finding, Tally::kLongestText, std::string("internal error: ") + defect.what());
    }
}

void Session::Play() {
    if (!hasPrinter_ || random_.Chance(0.2)) {
        constexpr const char* kSizes[] = {"1", "100", "640", "641", "1024", "1920", "8000"};
        Words screen{"screen", random_.OneOf(kSizes), random_.OneOf(kSizes)};
        if (!hasPrinter_)
            screen.push_back("noprinter");
        Log(screen);
        replay::CarryOut(desktop_, screen);
    }
    Main();
    filesAtStart_ = OpenFiles();
    while (!desktop_.LoadedForms().empty())
        CarryOutNextLine();
    tally_.end = End::kUserLeft;
}

bool Session::AnswerComesNext() const {
    answersBox_ = user_.AnswersBox();
    return *answersBox_;
}

void Session::CarryOutNextLine() {
    AfterEvent();
    if (events_ == mostEvents_)
        throw EventsOver{};
    Event event = user_.Next();
    // A box with OK alone waits only for who has an answer ready.
    if (answersBox_ == true && desktop_.OpenQuestion() == replay::Question::kMessageBox && event.words[0] != "answer")
        event = {{"answer", "yes"}, Fate::kRefused};
    answersBox_.reset();
    Take(event);
}

Target Session::TargetOf(const Words& words) const {
    if (words.size() < 2)
        return {};
    const std::string& word = words[0];
    if (word == "mouse" || word == "drag" || word == "hover")
        return {"Plotit", word};
    if (word == "close" || word == "resize")
        return {words[1], word};
    if (word == "select")
        return {"Keld", "OutFileBox"};
    if (word != "click" && word != "type" && word != "tick" && word != "untick" && word != "spin")
        return {};
    if (const std::size_t dot = words[1].find('.'); dot != std::string::npos)
        return {words[1].substr(0, dot), words[1].substr(dot + 1)};
    if (const Form* dialog = desktop_.OpenDialogForm())
        return {dialog->Name(), words[1]};
    const Target keld{"Keld", words[1]};
    return model_.IsItem(keld) ? keld : Target{"Plotit", words[1]};
}

/// What the model says of clicks on items goes before what the user thinks.
Fate Session::FateOf(const Event& event, const Target& target) const {
    const bool free = desktop_.OpenQuestion() == replay::Question::kNone && desktop_.OpenDialogForm() == nullptr;
    if (event.words[0] == "click" && event.words.size() == 2 && free && model_.IsItem(target))
        return model_.CanClick(target) ? Fate::kTaken : Fate::kRefused;
    return event.fate;
}

void Session::Take(const Event& event) {
    ++events_;
    ++tally_.events;
    const Target target = TargetOf(event.words);
    const std::string name = target.window.empty() ? event.words[0] : target.window + '.' + target.name;
    const std::string outer = std::exchange(desktop_.current, name);
    Tally::Put(tally_.command, sizeof tally_.command, name);
    ++depth_;
    BeginWatch();
    if (event.words[0] == "choose" && DataSets::IsFullDisk(event.words[1]))
        desktop_.fullDiskMetBy = outer;
    try {
        Try(event, target);
    } catch (const RuntimeFailure& failure) {
        if (!failureJudged_ && !MayFail(name, failure.Number(), model_))
            throw Finding{"run-time failure " + std::to_string(failure.Number()) + " in " + name};
        failureJudged_ = true;
        throw;
    }
    --depth_;
    desktop_.current = outer;
    Tally::Put(tally_.command, sizeof tally_.command, outer);
}

void Session::Try(const Event& event, const Target& target) {
    const Fate fate = FateOf(event, target);
    bool taken = true;
    const std::size_t before = tally_.scriptSize;
    Log(event.words);
    if (fate == Fate::kTaken)
        model_.Begins(target, event.words);
    try {
        replay::CarryOut(desktop_, event.words);
    } catch (const replay::ScriptError& error) {
        taken = false;
        ++tally_.refused;
        tally_.scriptSize = before;
        Log(event.words, "# refused: ");
        if (fate == Fate::kTaken)
            throw Finding{"refused: " + Line(event.words) + ": " + error.what()};
    }
    if (!taken)
        return;
    if (fate == Fate::kRefused)
        throw Finding{"not refused: " + Line(event.words)};
    if (fate == Fate::kTaken)
        model_.Ends(target, event.words);
    Reach(target.window + '.' + target.name);
    if (target.window == "Plotit" && target.name == "Command1")
        Reach("Done." + model_.LastDone());
    if (event.words[0] == "choose" && DataSets::IsFullDisk(event.words[1]))
        ++desktop_.filesThatMayStayOpen;
}

/// What has to hold when no command runs.
void Session::AtTopLevel(std::vector<std::string>& found) {
    for (const auto& text : WindowsLeft(desktop_))
        found.push_back(text);
    // Kept: a plot file that can't be written leaves the hourglass.
    const bool plotFileFailed = desktop_.pointerSetBy == kSavePlot && desktop_.fullDiskMetBy == kSavePlot;
    if (desktop_.pointer != 0 && !(desktop_.pointer == kHourglass && plotFileFailed))
        found.push_back("the pointer is left as " + std::to_string(desktop_.pointer) + " by " + desktop_.pointerSetBy);
    if (events_ % kEventsBetweenCounts != 0)
        return;
    const int open = OpenFiles() - filesAtStart_;
    if (open > desktop_.filesThatMayStayOpen + FilesLeftByLoads(OutFileBox()))
        found.push_back(std::to_string(open) + " files are left open");
}

void Session::AfterEvent() {
    if (IsInTheMiddle(desktop_.boxText))
        return;
    auto found = model_.Differences();
    ++tally_.checks;
    for (const auto& text : BrokenBounds())
        found.push_back(text);
    if (depth_ == 0)
        AtTopLevel(found);
    if (found.empty())
        return;
    std::string text;
    for (const auto& line : found)
        text += (text.empty() ? "" : "\n    ") + line;
    throw Finding{text};
}

}  // namespace

void RunSession(const Plan& plan, Tally& tally) { Session(plan, tally).Run(); }

}  // namespace halvern::random_user
