#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "ui/form.h"

namespace halvern::replay {

/// A control as a script names it, and where it stands.
struct NamedControl {
    Form* window;
    Control* control;
    std::optional<std::size_t> menuPlace;  ///< an item's place in the menu bar of its window
};

/// The windows among which names are looked up.
struct OpenWindows {
    const std::vector<Form*>& loaded;
    Form* dialog;  ///< the modal dialog that is open, and alone takes events; null for none
};

/// Looks a control up by its design name, without regard to case: "KeldIt", "Plotit.Command1", "Prn2Array(1)". A name
/// without a window is that of the dialog that is open or, if none is, of the main window, then of the plot window.
///
/// Throws    ScriptError when there is no such control or window, or a dialog keeps the events from it
NamedControl FindControl(const OpenWindows& windows, std::string_view name);

/// Looks a window up that is on the screen.
///
/// Throws    ScriptError when there is no such window, it is not shown, or a dialog keeps the events from it
Form& FindShownWindow(const OpenWindows& windows, std::string_view name);

/// That the control, and anything that it stands in or under, is shown and enabled.
///
/// Throws    ScriptError with what stands in the way
void CheckWayTo(const NamedControl& named);

/// What selecting a menu item or pressing a button does, if a person can do it: not when the control or anything that it
/// stands in or under is disabled or not shown.
///
/// Throws    ScriptError with the reason why it can't be clicked
const std::function<void()>& ClickOf(const NamedControl& named);

}  // namespace halvern::replay
