#include "replay/print.h"

#include <charconv>
#include <ostream>
#include <variant>

#include "plot/plot_window.h"
#include "replay/script.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "store/report.h"
#include "ui/check_box.h"

namespace halvern::replay {

namespace {

constexpr const char* kShownOrHidden[] = {"hidden", "shown"};

void PrintReport(std::ostream& out, const PrintedDesktop& /*desktop*/) {
    const ListBox& report = OutFileBox();
    for (std::size_t i = 0; i < report.ListCount(); ++i)
        out << "report: " << report.Line(i) << '\n';
}

void PrintItems(std::ostream& out, const MenuBar& bar, std::string_view prefix) {
    for (const auto& [level, item] : bar.Entries())
        out << "menu: " << prefix << item->Name() << (item->IsEnabled() ? " enabled " : " disabled ")
            << kShownOrHidden[item->IsShown()] << (item->IsTicked() ? " ticked " : " unticked ")
            << Quoted(item->Caption()) << '\n';
}

void PrintMenus(std::ostream& out, const PrintedDesktop& /*desktop*/) {
    PrintItems(out, MainMenuBar(), "");
    PrintItems(out, *PlotitForm().MenuOf(), "Plotit.");
}

/// Where the value of a line of `print plot` stands: in the store, but for the axes, which are the plot window's.
using PlotValue = std::variant<std::string AnalysisStore::*, float AnalysisStore::*, std::int32_t AnalysisStore::*,
                               Boolean AnalysisStore::*, float PlotWindow::*>;

struct PlotRow {
    std::string_view key;
    PlotValue value;
};

using S = AnalysisStore;
using P = PlotWindow;

constexpr PlotRow kPlotRows[] = {
    {"PlotHelp1", &S::PlotHelp1},
    {"PlotHelp2", &S::PlotHelp2},
    {"PlotXTitle", &S::PlotXTitle},
    {"PlotYTitle", &S::PlotYTitle},
    {"PlotCount", &S::PlotCount},
    {"PlotReady", &S::PlotReady},
    {"PlotLnAxis", &S::PlotLnAxis},
    {"PickDataLimits", &S::PickDataLimits},
    {"PickSLimits", &S::PickSLimits},
    {"PickMeniscus", &S::PickMeniscus},
    {"PickJitterPoint", &S::PickJitterPoint},
    {"PickFringePoint", &S::PickFringePoint},
    {"PickZeroLevel", &S::PickZeroLevel},
    {"DataLimitMin", &S::DataLimitMin},
    {"DataLimitMax", &S::DataLimitMax},
    {"Meniscus", &S::Meniscus},
    {"PlotXMin", &S::PlotXMin},
    {"PlotXMax", &S::PlotXMax},
    {"PlotYMin", &S::PlotYMin},
    {"PlotYMax", &S::PlotYMax},
    {"XAxisMin", &P::XAxisMin},
    {"XAxisMax", &P::XAxisMax},
    {"YAxisMin", &P::YAxisMin},
    {"YAxisMax", &P::YAxisMax},
};

struct TextOf {
    std::string operator()(std::string S::*member) const { return Quoted(Store().*member); }
    std::string operator()(float S::*member) const { return NineDigits(double{Store().*member}); }
    std::string operator()(std::int32_t S::*member) const { return NineDigits(Store().*member); }
    std::string operator()(Boolean S::*member) const { return std::to_string((Store().*member).Number()); }
    std::string operator()(float P::*member) const { return NineDigits(double{PlotitForm().*member}); }
};

void PrintPlot(std::ostream& out, const PrintedDesktop& /*desktop*/) {
    for (const auto& row : kPlotRows)
        out << "plot: " << row.key << ' ' << std::visit(TextOf{}, row.value) << '\n';
    const PlotWindow& window = PlotitForm();
    out << "plot: shown " << (window.IsShown() ? "yes" : "no") << '\n';
    for (const Button* button : {&window.Command1, &window.TestIt})
        out << "plot: " << button->Name() << ' ' << kShownOrHidden[button->IsShown()] << '\n';
}

/// What a control shows of itself: a check box whether it is ticked.
std::string ShownText(const Control& control) {
    if (control.Kind() == ControlKind::kCheckBox)
        return std::to_string(static_cast<const CheckBox&>(control).Value());
    return control.Caption();
}

void PrintDialog(std::ostream& out, const PrintedDesktop& desktop) {
    const Form* const dialog = desktop.dialog;
    if (dialog == nullptr)
        throw ScriptError("no dialog is open");
    out << "dialog: " << dialog->Name() << ' ' << Quoted(dialog->Caption()) << '\n';
    for (const Control* control : dialog->Controls())
        if (!control->Name().empty())
            out << "control: " << control->Name() << (control->IsEnabled() ? " enabled " : " disabled ")
                << kShownOrHidden[control->IsShown()] << ' ' << Quoted(ShownText(*control)) << '\n';
}

void PrintClipboard(std::ostream& out, const PrintedDesktop& desktop) {
    out << "clipboard: " << desktop.clipboard << '\n';
}

void PrintPrinter(std::ostream& out, const PrintedDesktop& desktop) {
    for (const std::string& line : desktop.onPrinter)
        out << "printer: " << line << '\n';
}

struct Subject {
    std::string_view word;
    void (*print)(std::ostream& out, const PrintedDesktop& desktop);
};

constexpr Subject kSubjects[] = {
    {"report", PrintReport}, {"menus", PrintMenus},         {"plot", PrintPlot},
    {"dialog", PrintDialog}, {"clipboard", PrintClipboard}, {"printer", PrintPrinter},
};

const char* WordOf(Answer answer) {
    switch (answer) {
        case Answer::kYes:
            return "yes";
        case Answer::kNo:
            return "no";
        case Answer::kOk:
            break;
    }
    return "ok";
}

}  // namespace

void PrintMessage(std::ostream& out, const AnsweredMessage& message) {
    out << "message style=" << std::to_string(message.style) << " title=" << Quoted(message.title)
        << " text=" << Quoted(message.text) << " answer=" << WordOf(message.answer) << '\n'
        << std::flush;
}

void Print(std::ostream& out, std::string_view subject, const PrintedDesktop& desktop) {
    for (const auto& row : kSubjects)
        if (row.word == subject)
            return row.print(out, desktop);
    throw ScriptError("nothing to print by that name: " + std::string(subject));
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        switch (c) {
            case '\\':
                quoted += "\\\\";
                break;
            case '"':
                quoted += "\\\"";
                break;
            case '\r':
                quoted += "\\r";
                break;
            case '\n':
                quoted += "\\n";
                break;
            case '\t':
                quoted += "\\t";
                break;
            default:
                quoted += c;
        }
    }
    return quoted + '"';
}

std::string NineDigits(double value) {
    char text[32];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 9);
    static_cast<void>(error);
    return {text, end};
}

}  // namespace halvern::replay
