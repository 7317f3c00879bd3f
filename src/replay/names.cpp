#include "replay/names.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>

#include "replay/script.h"
#include "ui/text_box.h"

namespace halvern::replay {

namespace {

/// Every window of the program, and those in which a name without a window is looked up, in this order.
constexpr std::string_view kWindows[] = {"Keld",         "Plotit",    "PlotLegend", "GenerateFile", "IncrementalPlot",
                                         "PlotIntegral", "PlotRadii", "PlotLogWD",  "SetMeniscus",  "SetMultiMenF",
                                         "SetSmooth",    "DistAves",  "cmpltfrm",   "Splash1"};
constexpr std::string_view kSearched[] = {"Keld", "Plotit"};

[[noreturn]] void Refuse(const Control& control, std::string_view reason) {
    throw ScriptError(control.Name() + std::string(reason));
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return Lower(left) == Lower(right); });
}

Form* LoadedWindow(const std::vector<Form*>& loaded, std::string_view name) {
    const auto place =
        std::find_if(loaded.begin(), loaded.end(), [&](const Form* form) { return SameName(form->Name(), name); });
    return place == loaded.end() ? nullptr : *place;
}

Form& KnownWindow(const OpenWindows& windows, std::string_view name) {
    const auto known = std::find_if(std::begin(kWindows), std::end(kWindows),
                                    [&](std::string_view window) { return SameName(window, name); });
    if (known == std::end(kWindows))
        throw ScriptError("no such window: " + std::string(name));
    Form* form = LoadedWindow(windows.loaded, name);
    if (form == nullptr)
        throw ScriptError(std::string(*known) + " is not shown");
    if (windows.dialog != nullptr && form != windows.dialog)
        throw ScriptError("the dialog " + windows.dialog->Name() + " is open");
    return *form;
}

std::optional<NamedControl> FindIn(Form& window, std::string_view name) {
    if (MenuBar* bar = window.MenuOf())
        for (std::size_t place = 0; place < bar->Entries().size(); ++place)
            if (SameName(bar->Entries()[place].item->Name(), name))
                return NamedControl{&window, bar->Entries()[place].item, place};
    for (Control* control : window.Controls())
        if (!control->Name().empty() && SameName(control->Name(), name))
            return NamedControl{&window, control, {}};
    return {};
}

void CheckState(const Control& control) {
    if (!control.IsShown())
        Refuse(control, " is not shown");
    if (!control.IsEnabled())
        Refuse(control, " is disabled");
}

void CheckIsCommand(const NamedControl& named, const MenuItem& item) {
    if (item.IsSeparator())
        Refuse(item, " is a separator");
    if (named.window->MenuOf()->OpensSubmenu(*named.menuPlace))
        Refuse(item, " only opens a submenu");
}

/// What a click on the control does; it may be empty.
const std::function<void()>& CommandOf(const NamedControl& named) {
    switch (named.control->Kind()) {
        case ControlKind::kMenuItem: {
            const auto& item = static_cast<const MenuItem&>(*named.control);
            CheckIsCommand(named, item);
            return item.Click;
        }
        case ControlKind::kButton:
            return static_cast<const Button&>(*named.control).Click;
        case ControlKind::kTextBox: {
            const auto& box = static_cast<const TextBox&>(*named.control);
            if (!box.Click)
                Refuse(box, " can't be clicked");
            return box.Click;
        }
        default:
            Refuse(*named.control, " can't be clicked");
    }
}

}  // namespace

NamedControl FindControl(const OpenWindows& windows, std::string_view name) {
    std::optional<NamedControl> found;
    if (const std::size_t dot = name.find('.'); dot != std::string_view::npos) {
        found = FindIn(KnownWindow(windows, name.substr(0, dot)), name.substr(dot + 1));
    } else if (windows.dialog != nullptr) {
        found = FindIn(*windows.dialog, name);
    } else {
        for (const auto searched : kSearched)
            if (Form* window = LoadedWindow(windows.loaded, searched); window != nullptr && !found)
                found = FindIn(*window, name);
    }
    if (!found)
        throw ScriptError("no such control: " + std::string(name));
    return *found;
}

Form& FindShownWindow(const OpenWindows& windows, std::string_view name) {
    Form& window = KnownWindow(windows, name);
    if (!window.IsShown())
        Refuse(window, " is not shown");
    return window;
}

void CheckWayTo(const NamedControl& named) {
    CheckState(*named.window);
    if (named.menuPlace.has_value()) {
        if (const MenuItem* obstacle = named.window->MenuOf()->Obstacle(*named.menuPlace))
            CheckState(*obstacle);
    } else {
        CheckState(*named.control);
    }
}

const std::function<void()>& ClickOf(const NamedControl& named) {
    const auto& command = CommandOf(named);
    CheckWayTo(named);
    if (!command)
        Refuse(*named.control, " has no command");
    return command;
}

}  // namespace halvern::replay
