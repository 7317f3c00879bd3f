#include "random/user.h"

#include <cstdio>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/report.h"
#include "ui/check_box.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace halvern::random_user {

namespace {

struct Weight {
    std::string_view name;
    double weight;
};

/// How much a command leads on; all others have kOther.
constexpr Weight kWeights[] = {
    {"AllDone", 0.02},
    {"MakeListNow", 0.25},
    {"DoReAddNow", 0.25},
    {"Get_MenFromScan", 1.2},
    {"Set_MenManually", 1},
    {"SetJitterLimits", 2.5},
    {"NoJitterCorrection", 0.3},
    {"DoIntShift", 1.2},
    {"KeldIt", 2},
    {"SetKeldZero", 4},
    {"BackToOrigKeld", 0.3},
    {"DoGofS", 5},
    {"ShowSAve", 1},
    {"UseWSSmoothing", 0.5},
    {"SetCSpan", 0.5},
    {"DoWideStraight", 0.8},
    {"Zoomout", 0.5},
    {"PlotCorrected", 0.5},
    {"SaveBMP", 0.1},
    {"PrnPlot", 0.1},
};
constexpr double kOther = 0.3;

double WeightOf(const std::string& name, bool dataSetStands) {
    if (name == "GetListNow")
        return dataSetStands ? 0.12 : 12.0;
    for (const auto& row : kWeights)
        if (row.name == name)
            return row.weight;
    return kOther;
}

constexpr const char* kTexts[] = {
    "",    " ",     "0",     "-0",    "1",          "2",     "3",   "4",        "5",         "7",
    "10",  "49",    "50",    "249",   "250",        "500",   "501", "2.5",      "3.5",       "6.0",
    "-6",  "5.8",   "5.79",  "5.7",   "7.1",        "7.11",  "+6",  ".",        "6.",        ".6E1",
    "1D1", "1e",    "1E38",  "x",     "6x",         "6,5",   " 6 ", "\t",       "NaN",       "inf",
    "0x6", "1E-40", "-1E38", "99999", "2147483648", "\"6\"", "\\",  "\xC3\xA9", "6.0000001", "1E300",
};

std::string Number(double value) {
    char text[40];
    const int size = std::snprintf(text, sizeof text, "%.6g", value);
    return {text, static_cast<std::size_t>(size)};
}

}  // namespace

User::User(Random& random, DataSets& data, const Model& model, const replay::ReplayDesktop& desktop)
    : random_(random), data_(data), model_(model), desktop_(desktop) {
    constexpr double kWildness[] = {0.02, 0.05, 0.1, 0.3, 0.7};
    wildness_ = random_.OneOf(kWildness);
}

bool User::AnswersBox() const { return random_.Chance(0.5); }

void User::ReadsBox(const std::string& text, bool yesNo) {
    boxText_ = text;
    boxYesNo_ = yesNo;
}

void User::ReadsFileDialog(const std::string& title, bool forExistingFile) {
    dialogTitle_ = title;
    forExistingFile_ = forExistingFile;
}

Event User::Next() {
    if (desktop_.OpenQuestion() == replay::Question::kMessageBox)
        return AnswerToBox();
    if (desktop_.OpenQuestion() == replay::Question::kFileDialog)
        return AnswerToFileDialog();
    if (const Form* dialog = desktop_.OpenDialogForm())
        return InDialog(*dialog);
    inDialog_ = 0;
    return AtLarge();
}

Event User::AnswerToBox() {
    if (random_.Chance(0.05))
        return {{"click", "AllDone"}, Fate::kRefused};
    if (random_.Chance(0.05))
        return {{"answer", boxYesNo_ ? "ok" : "yes"}, Fate::kRefused};
    if (!boxYesNo_)
        return {{"answer", "ok"}};
    const bool ends = boxText_ == "Exit Program?";
    const bool goesOn = boxText_.find("Do You Want to Continue?") != std::string::npos;
    return {{"answer", random_.Chance(ends ? 0.3 : goesOn ? 0.85 : 0.5) ? "yes" : "no"}};
}

Event User::AnswerToFileDialog() {
    if (random_.Chance(0.03))
        return {{"click", "KeldIt"}, Fate::kRefused};
    if (random_.Chance(0.02))
        return {{"answer", "ok"}, Fate::kRefused};
    if (random_.Chance(0.15))
        return {{"cancel"}};
    if (random_.Chance(0.03))
        return {{"choose", random_.Chance(0.5) ? "" : data_.Folder().string() + "/"}, Fate::kRefused};
    if (!forExistingFile_)
        return {{"choose", data_.NewFile()}};
    if (random_.Chance(0.04))
        return {{"choose", random_.Chance(0.5) ? "/nowhere/at/all.LST" : (data_.Folder() / "folder.txt").string()},
                Fate::kRefused};
    return {{"choose", dialogTitle_ == "Get List File" ? data_.SomeList() : data_.SomeScan()}, Fate::kEither};
}

// A dialog.

Event User::InDialog(const Form& dialog) {
    ++inDialog_;
    if (random_.Chance(0.04))
        return OutsideDialog(dialog);
    if (random_.Chance(0.02))
        return Print();
    if (random_.Chance(0.03))
        return {{"close", dialog.Name()}};
    if (random_.Chance(0.01))
        return {{"resize", dialog.Name(), "5000", "4000"}};
    std::vector<const Control*> usable;
    for (const Control* control : dialog.Controls()) {
        const bool button = control->Kind() == ControlKind::kButton;
        if (control->Name().empty() || !control->IsShown() || (button && inDialog_ < 3 && random_.Chance(0.5)))
            continue;
        usable.push_back(control);
        // Few dwell on a dialog.
        for (int i = 0; button && i < inDialog_ / 3; ++i)
            usable.push_back(control);
    }
    return usable.empty() ? Print() : OnControl(dialog, *random_.OneOf(usable));
}

Event User::OnControl(const Form& dialog, const Control& control) {
    const std::string name = random_.Chance(0.3) ? dialog.Name() + "." + control.Name() : control.Name();
    const Fate fate = control.IsEnabled() ? Fate::kTaken : Fate::kRefused;
    switch (control.Kind()) {
        case ControlKind::kButton:
            return {{"click", name}, fate};
        case ControlKind::kTextBox:
            if (static_cast<const TextBox&>(control).Click)
                return random_.Chance(0.9) ? Event{{"click", name}, fate}
                                           : Event{{"type", name, "typed"}, Fate::kRefused};
            return random_.Chance(0.95) ? Event{{"type", name, TypedText(dialog)}, fate}
                                        : Event{{"click", name}, Fate::kRefused};
        case ControlKind::kUpDown:
            return {{"spin", name, std::to_string(random_.Between(-2, random_.Chance(0.5) ? 12 : 520))}, fate};
        case ControlKind::kCheckBox:
            return {{random_.Chance(0.7) ? "tick" : "untick", name}, fate};
        default:
            return {{random_.Chance(0.5) ? "click" : "spin", name, "1"}, Fate::kRefused};
    }
}

Event User::OutsideDialog(const Form& dialog) {
    switch (random_.Below(5)) {
        case 0:
            return {{"click", "Keld.KeldIt"}, Fate::kRefused};
        case 1:
            return {{"mouse", "left+ctrl", "@50", "@50"}, Fate::kRefused};
        case 2:
            return {{"select", "all"}, Fate::kRefused};
        case 3:
            return {{"close", "Keld"}, Fate::kRefused};
        default:
            return {{"click", dialog.Name() + ".NoSuchControl"}, Fate::kRefused};
    }
}

std::string User::TypedText(const Form& dialog) {
    const bool menisci = dialog.Name() == "SetMeniscus" || dialog.Name() == "SetMultiMenF";
    if (random_.Chance(0.02))
        return std::string(200, random_.Chance(0.5) ? '6' : 'y');
    if (random_.Chance(0.7))
        return menisci ? Number(random_.Within(5.86, 6.05)) : std::to_string(random_.Between(1, 9));
    return random_.OneOf(kTexts);
}

// No dialog.

Event User::AtLarge() {
    if (random_.Chance(wildness_ * 0.3))
        return random_.Chance(0.5) ? Nonsense() : Forbidden();
    if (random_.Chance(wildness_ * 0.2))
        return random_.Chance(0.5) ? Resize() : Print();
    if (random_.Chance(0.02))
        return OnReport();
    const Flags& now = model_.Now();
    if (now.plotShown && now.doneShown && !random_.Chance(wildness_))
        return random_.Chance(0.45) ? Event{{"click", "Plotit.Command1"}} : Pick();
    if (now.plotShown && random_.Chance(0.2))
        return OnPlot();
    if (random_.Chance(0.004))
        return {{"close", "Keld"}};
    return Command("Keld");
}

Event User::Command(std::string_view window) {
    const auto names = model_.Commands(window);
    double all = 0.0;
    for (const auto& name : names)
        all += WeightOf(name, model_.DataSetStands());
    double left = random_.Within(0.0, all);
    for (const auto& name : names) {
        left -= WeightOf(name, model_.DataSetStands());
        if (left <= 0.0)
            return {{"click", window == "Keld" && random_.Chance(0.9) ? name : std::string(window) + "." + name}};
    }
    return Print();
}

Event User::OnPlot() {
    const Flags& now = model_.Now();
    const double what = random_.Share();
    if (what < 0.3)
        return Command("Plotit");
    if (what < 0.5)
        return Zoom();
    if (what < 0.6)
        return {{"hover", Position(-25, 110), Position(-25, 120)}};
    if (what < 0.9 || (!now.doneShown && !now.testShown))
        return MouseOnPlot();
    if (now.testShown && random_.Chance(0.6))
        return {{"click", "Plotit.TestIt"}};
    return {{"click", "Plotit.Command1"}, now.doneShown ? Fate::kTaken : Fate::kRefused};
}

/// A pick that makes sense where one is open.
Event User::Pick() {
    const Flags& now = model_.Now();
    if (now.testShown && random_.Chance(0.2))
        return {{"click", "Plotit.TestIt"}};
    if (random_.Chance(0.15))
        return OnPlot();
    if (now.pickDataLimits)
        return random_.Chance(0.5) ? Event{{"mouse", "left+ctrl", Position(2, 35), Position(0, 100)}}
                                   : Event{{"mouse", random_.Chance(0.5) ? "right+ctrl" : "left+alt", Position(50, 98),
                                            Position(0, 100)}};
    if (now.pickJitterPoint || now.pickFringePoint)
        return {{"mouse", "left+ctrl", Number(random_.Within(6.1, 6.7)), Position(0, 100)}};
    if (now.pickMeniscus)
        return {{"mouse", "left+ctrl", Number(random_.Within(5.86, 6.05)), Position(0, 100)}};
    return {{"mouse", "left+ctrl", Position(0, 100), Position(5, 60)}};
}

Event User::MouseOnPlot() {
    std::string press = random_.Chance(0.7) ? "left" : "right";
    for (const char* modifier : {"+ctrl", "+alt", "+shift"})
        if (random_.Chance(0.3))
            press += modifier;
    return {{"mouse", press, Position(-25, 110), Position(-25, 120)}};
}

Event User::Zoom() {
    if (random_.Chance(0.1))
        return {{"drag", "@40", "@40", "@40", "@60"}};
    if (random_.Chance(0.5))
        return {{"drag", Position(-20, 40), Position(-20, 40), Position(60, 105), Position(60, 115)}};
    return {{"drag", Position(-25, 110), Position(-25, 120), Position(-25, 110), Position(-25, 120)}};
}

std::string User::Position(double least, double most) {
    if (random_.Chance(0.0005))
        return random_.Chance(0.5) ? "@1E30" : "@-1E38";
    return "@" + Number(random_.Within(least, most));
}

Event User::OnReport() {
    const std::size_t lines = OutFileBox().ListCount();
    if (random_.Chance(0.3))
        return {{"select", random_.Chance(0.5) ? "all" : "none"}};
    if (random_.Chance(0.1))
        return {{"select", std::to_string(lines)}, Fate::kRefused};
    Event event{{"select"}};
    for (int i = random_.Between(1, 4); i > 0; --i)
        event.words.push_back(std::to_string(random_.Below(lines)));
    return event;
}

Event User::Resize() {
    const bool plot = random_.Chance(0.6);
    constexpr const char* kSizes[] = {"1", "15", "300", "3000", "3499", "3500", "6210", "9600", "20000", "60000"};
    return {{"resize", plot ? "Plotit" : "Keld", random_.OneOf(kSizes), random_.OneOf(kSizes)},
            plot && !model_.Now().plotShown ? Fate::kRefused : Fate::kTaken};
}

Event User::Print() {
    if (random_.Chance(0.1))
        return {{"cd", data_.Folder().string()}};
    constexpr const char* kSubjects[] = {"report", "menus", "plot", "dialog", "clipboard", "printer"};
    const std::string subject = random_.OneOf(kSubjects);
    const bool refused = subject == "dialog" && desktop_.OpenDialogForm() == nullptr;
    return {{"print", subject}, refused ? Fate::kRefused : Fate::kTaken};
}

Event User::Nonsense() {
    const std::vector<Words> kLines = {
        {"click", "NoSuchThing"},
        {"click", "Nowhere.KeldIt"},
        {"click", "FileDummy"},
        {"click", "spacer0"},
        {"click", "PlotInterp"},
        {"click", "SavePlots"},
        {"click", "PrintDummy2"},
        {"click", "Plotit.ShowIt"},
        {"click", "Plotit.Col_Sym"},
        {"click", "Plotit.SetJitterLimits"},
        {"click", "PlotLegend.Anything"},
        {"click"},
        {"click", "a", "b"},
        {"jump"},
        {"cancel"},
        {"answer", "ok"},
        {"choose", "x"},
        {"close", "Plotit"},
        {"close", "SetMeniscus"},
        {"close", "cmpltfrm"},
        {"type", "Text1", "6"},
        {"type", "OutFileBox", "x"},
        {"tick", "KeldIt"},
        {"spin", "UpDown1", "3"},
        {"spin", "KeldIt", "3"},
        {"resize", "Keld", "0", "9"},
        {"resize", "Keld", "x", "9"},
        {"mouse", "middle", "@1", "@1"},
        {"mouse", "left", "x", "@1"},
        {"hover", "@1"},
        {"screen", "800", "600"},
        {"print", "everything"},
        {"cd", "/nowhere/at/all"},
        {"select", "-1"},
        {"Click", "KeldIt"},
    };
    return {random_.OneOf(kLines), Fate::kRefused};
}

/// Any item of a menu, whether it can be clicked or not.
Event User::Forbidden() {
    const bool plot = random_.Chance(0.3);
    const auto tree = plot ? PlotTree() : MainTree();
    const Target target{plot ? "Plotit" : "Keld", std::string(tree[random_.Below(tree.size())].name)};
    if (target.name == "AllDone")
        return Print();
    return {{"click", target.window + "." + target.name}, model_.CanClick(target) ? Fate::kTaken : Fate::kRefused};
}

}  // namespace halvern::random_user
