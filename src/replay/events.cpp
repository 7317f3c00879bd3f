#include "replay/events.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <ostream>
#include <span>
#include <system_error>

#include "replay/mouse.h"
#include "replay/names.h"
#include "replay/print.h"
#include "replay/render.h"
#include "replay/script.h"
#include "store/report.h"
#include "ui/check_box.h"
#include "ui/up_down.h"

namespace halvern::replay {

namespace {

/// A whole number of plain digits from one value to another.
///
/// Throws    ScriptError with the text behind the reason
std::int32_t WholeNumber(const std::string& text, std::int32_t least, std::int32_t most, const std::string& reason) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end || number < least || number > most)
        throw ScriptError(reason + text);
    return number;
}

/// Leaves a text box. It keeps the focus if its text is refused, or if it takes the focus back.
///
/// Result    false if the text is refused
bool LeaveBox(ReplayDesktop& desktop, TextBox& box) {
    box.FocusGiven();
    const bool left = box.Leave();
    desktop.SetFocusedBox(!left || box.WantsFocus() ? &box : nullptr);
    return left;
}

/// Takes the focus away from the box that has it.
///
/// Result    false if its text is refused: the event that wanted the focus is swallowed
bool FocusIsFree(ReplayDesktop& desktop, const Control& wanted) {
    TextBox* box = desktop.FocusedBox();
    return box == nullptr || box == &wanted || LeaveBox(desktop, *box);
}

void ClickEvent(ReplayDesktop& desktop, Arguments arguments) {
    const NamedControl named = FindControl(desktop.Windows(), arguments[0]);
    const auto& click = ClickOf(named);
    if (FocusIsFree(desktop, *named.control))
        click();
}

void TypeEvent(ReplayDesktop& desktop, Arguments arguments) {
    const NamedControl named = FindControl(desktop.Windows(), arguments[0]);
    if (named.control->Kind() != ControlKind::kTextBox)
        throw ScriptError(named.control->Name() + " is no text box");
    CheckWayTo(named);
    auto& box = static_cast<TextBox&>(*named.control);
    if (box.Click)
        throw ScriptError(box.Name() + " is filled by a click");
    if (!FocusIsFree(desktop, *named.control))
        return;
    if (box.GotFocus)
        box.GotFocus();
    box.Type(arguments[1]);
    LeaveBox(desktop, box);
}

void SetTick(ReplayDesktop& desktop, Arguments arguments, int value) {
    const NamedControl named = FindControl(desktop.Windows(), arguments[0]);
    if (named.control->Kind() != ControlKind::kCheckBox)
        throw ScriptError(named.control->Name() + " is no check box");
    CheckWayTo(named);
    if (FocusIsFree(desktop, *named.control))
        static_cast<CheckBox&>(*named.control).SetValue(value);
}

void TickEvent(ReplayDesktop& desktop, Arguments arguments) { SetTick(desktop, arguments, 1); }

void UntickEvent(ReplayDesktop& desktop, Arguments arguments) { SetTick(desktop, arguments, 0); }

void SpinEvent(ReplayDesktop& desktop, Arguments arguments) {
    const NamedControl named = FindControl(desktop.Windows(), arguments[0]);
    if (named.control->Kind() != ControlKind::kUpDown)
        throw ScriptError(named.control->Name() + " is no spin control");
    CheckWayTo(named);
    const std::int32_t value = WholeNumber(arguments[1], INT32_MIN, INT32_MAX, "not a whole number: ");
    if (FocusIsFree(desktop, *named.control))
        static_cast<UpDown&>(*named.control).SetValue(value);
}

void ChooseEvent(ReplayDesktop& desktop, Arguments arguments) { desktop.Choose(arguments[0]); }

void CancelEvent(ReplayDesktop& desktop, Arguments /*arguments*/) { desktop.Cancel(); }

struct AnswerWord {
    std::string_view word;
    Answer answer;
};

constexpr AnswerWord kAnswers[] = {{"ok", Answer::kOk}, {"yes", Answer::kYes}, {"no", Answer::kNo}};

void AnswerEvent(ReplayDesktop& desktop, Arguments arguments) {
    for (const auto& row : kAnswers)
        if (row.word == arguments[0])
            return desktop.AnswerBox(row.answer);
    throw ScriptError("no such answer: " + arguments[0]);
}

/// The lines of the report that the arguments name, true for each that is selected.
std::vector<bool> SelectionOf(Arguments arguments) {
    const std::size_t lines = OutFileBox().ListCount();
    if (arguments.size() == 1 && (arguments[0] == "all" || arguments[0] == "none"))
        return std::vector<bool>(lines, arguments[0] == "all");
    std::vector<bool> selected(lines);
    for (const auto& argument : arguments) {
        const auto last = static_cast<std::int32_t>(lines) - 1;
        selected[static_cast<std::size_t>(WholeNumber(argument, 0, last, "no such line of the report: "))] = true;
    }
    return selected;
}

void SelectEvent(ReplayDesktop& desktop, Arguments arguments) {
    CheckWayTo(FindControl(desktop.Windows(), "Keld.OutFileBox"));
    const std::vector<bool> selected = SelectionOf(arguments);
    for (std::size_t i = 0; i < selected.size(); ++i)
        OutFileBox().Select(i, selected[i]);
}

void CloseEvent(ReplayDesktop& desktop, Arguments arguments) {
    Form& window = FindShownWindow(desktop.Windows(), arguments[0]);
    if (!window.ClosesByFrame())
        throw ScriptError(window.Name() + " can't be closed by its frame");
    window.Unload();
}

void ResizeEvent(ReplayDesktop& desktop, Arguments arguments) {
    constexpr std::int32_t kMostTwips = ReplayDesktop::kMostPixels * kTwipsPerPixel;
    Form& window = FindShownWindow(desktop.Windows(), arguments[0]);
    const std::int32_t width = WholeNumber(arguments[1], 1, kMostTwips, "not a width in twips: ");
    const std::int32_t height = WholeNumber(arguments[2], 1, kMostTwips, "not a height in twips: ");
    window.Resized(width, height, false);
}

void CdEvent(ReplayDesktop& /*desktop*/, Arguments arguments) {
    std::error_code error;
    if (!std::filesystem::is_directory(arguments[0], error))
        throw ScriptError("no such folder: " + arguments[0]);
    std::filesystem::current_path(arguments[0], error);
    if (error)
        throw ScriptError(error.message() + ": " + arguments[0]);
}

void ScreenEvent(ReplayDesktop& desktop, Arguments arguments) {
    if (!desktop.LoadedForms().empty())
        throw ScriptError("screen comes before anything else");
    constexpr std::int32_t kMost = ReplayDesktop::kMostPixels;
    const std::int32_t width = WholeNumber(arguments[0], 1, kMost, "not a width in pixels: ");
    const std::int32_t height = WholeNumber(arguments[1], 1, kMost, "not a height in pixels: ");
    if (arguments.size() == 3 && arguments[2] != "noprinter")
        throw ScriptError("not noprinter: " + arguments[2]);
    desktop.SetScreen(width, height, arguments.size() < 3);
}

void RenderEvent(ReplayDesktop& desktop, Arguments arguments) { RenderPlot(desktop, arguments[0]); }

void PrintEvent(ReplayDesktop& desktop, Arguments arguments) {
    Print(desktop.Out(), arguments[0], desktop.WhatCanBePrinted());
}

/// When an event can come: at any time, while nothing waits, or as the answer to what waits.
enum class When { kAnyTime, kNothingWaits, kMessageBoxWaits, kFileDialogWaits };

struct EventRow {
    std::string_view word;
    std::string_view arguments;
    std::size_t fewest;
    std::size_t most;
    When when;
    void (*carryOut)(ReplayDesktop& desktop, Arguments arguments);
};

constexpr std::size_t kAnyNumber = SIZE_MAX;

constexpr EventRow kEvents[] = {
    {"click", "NAME", 1, 1, When::kNothingWaits, ClickEvent},
    {"type", "NAME TEXT", 2, 2, When::kNothingWaits, TypeEvent},
    {"tick", "NAME", 1, 1, When::kNothingWaits, TickEvent},
    {"untick", "NAME", 1, 1, When::kNothingWaits, UntickEvent},
    {"spin", "NAME VALUE", 2, 2, When::kNothingWaits, SpinEvent},
    {"choose", "PATH", 1, 1, When::kFileDialogWaits, ChooseEvent},
    {"cancel", "", 0, 0, When::kFileDialogWaits, CancelEvent},
    {"answer", "ok|yes|no", 1, 1, When::kMessageBoxWaits, AnswerEvent},
    {"select", "N ...|all|none", 1, kAnyNumber, When::kNothingWaits, SelectEvent},
    {"close", "WINDOW", 1, 1, When::kNothingWaits, CloseEvent},
    {"resize", "WINDOW WIDTH HEIGHT", 3, 3, When::kNothingWaits, ResizeEvent},
    {"mouse", "BUTTON[+ctrl][+alt][+shift] X Y", 3, 3, When::kNothingWaits, MouseEvent},
    {"drag", "X0 Y0 X1 Y1", 4, 4, When::kNothingWaits, DragEvent},
    {"hover", "X Y", 2, 2, When::kNothingWaits, HoverEvent},
    {"cd", "DIR", 1, 1, When::kAnyTime, CdEvent},
    {"screen", "WIDTH HEIGHT [noprinter]", 2, 3, When::kNothingWaits, ScreenEvent},
    {"render", "FILE", 1, 1, When::kAnyTime, RenderEvent},
    {"print", "report|menus|plot|dialog|clipboard|printer", 1, 1, When::kAnyTime, PrintEvent},
};

const EventRow& FindEvent(const std::string& word) {
    const auto row =
        std::find_if(std::begin(kEvents), std::end(kEvents), [&](const EventRow& event) { return event.word == word; });
    if (row == std::end(kEvents))
        throw ScriptError("no such event: " + word);
    return *row;
}

std::string Usage(const EventRow& row) {
    return std::string(row.word) + (row.arguments.empty() ? "" : " ") + std::string(row.arguments);
}

void CheckCanComeNow(When when, Question open) {
    if (when == When::kAnyTime)
        return;
    if (open == Question::kMessageBox && when != When::kMessageBoxWaits)
        throw ScriptError("a message box is open");
    if (open == Question::kFileDialog && when != When::kFileDialogWaits)
        throw ScriptError("a file dialog is open");
    if (open == Question::kNone && when == When::kMessageBoxWaits)
        throw ScriptError("no message box is open");
    if (open == Question::kNone && when == When::kFileDialogWaits)
        throw ScriptError("no file dialog is open");
}

}  // namespace

void CarryOut(ReplayDesktop& desktop, const std::vector<std::string>& words) {
    const EventRow& event = FindEvent(words.front());
    CheckCanComeNow(event.when, desktop.OpenQuestion());
    const auto arguments = Arguments(words).subspan(1);
    if (arguments.size() < event.fewest || arguments.size() > event.most)
        throw ScriptError("expected: " + Usage(event));
    event.carryOut(desktop, arguments);
}

void PrintEvents(std::ostream& out) {
    for (const auto& row : kEvents)
        out << "  " << Usage(row) << '\n';
}

}  // namespace halvern::replay
