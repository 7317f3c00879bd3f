#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

#include "random/trees.h"

namespace halvern::random_user {

/// What one thing that happens does to the items of the main window, names parted by blanks. The order of the columns is
/// the order in which a row is carried out; no row names an item twice.
struct Gate {
    std::string_view event;
    std::string_view enables;
    std::string_view disables;
    std::string_view shows;
    std::string_view hides;
    std::string_view ticks;
    std::string_view unticks;
};

/// A column of names, and what it does to the items.
struct GateColumn {
    std::string_view Gate::*names;
    std::string_view verb;
    bool Item::*state;
    bool becomes;
};

inline constexpr GateColumn kGateColumns[] = {
    {&Gate::enables, " enables ", &Item::enabled, true}, {&Gate::disables, " disables ", &Item::enabled, false},
    {&Gate::shows, " shows ", &Item::shown, true},       {&Gate::hides, " hides ", &Item::shown, false},
    {&Gate::ticks, " ticks ", &Item::ticked, true},      {&Gate::unticks, " unticks ", &Item::ticked, false},
};

/// Calls `visit` for each of the names in a column.
template <class Visit>
void ForNames(std::string_view names, Visit visit) {
    while (!names.empty()) {
        const std::size_t size = std::min(names.find(' '), names.size());
        visit(names.substr(0, size));
        names.remove_prefix(std::min(size + 1, names.size()));
    }
}

/// "reset disables KeldIt"
inline std::string EffectName(const Gate& gate, const GateColumn& column, std::string_view item) {
    return std::string(gate.event) + std::string(column.verb) + std::string(item);
}

struct NewCaption {
    std::string_view event;
    std::string_view item;
    std::string_view caption;
};

std::span<const Gate> Gates();

/// The row of an event; there is one for each that the model names.
const Gate& GateOf(std::string_view event);

/// Calls `set(item, caption)` for each caption that an event changes.
template <class Set>
void ForCaptionsOf(std::string_view event, Set set);

inline constexpr NewCaption kNewCaptions[] = {
    {"load over", "GetListNow", "Restart With Another Set"},
    {"several speeds", "Get_MenFromScan", "Graphically (From 1st Scan at each speed)"},
    {"integer fringes corrected", "NoJitterCorrection", "&Remove Jitter and Integer Fringe Correction"},
    {"integer fringes corrected", "PlotCorrected", "&Corrected for Jitter and Interger Fringe Shift"},
    {"correction removed", "NoJitterCorrection", "&Remove Jitter Correction"},
    {"correction removed", "PlotCorrected", "&Corrected for Jitter"},
    {"reset", "NoJitterCorrection", "&Remove Jitter Correction"},
    {"reset", "PlotCorrected", "&Corrected for Jitter"},
};

template <class Set>
void ForCaptionsOf(std::string_view event, Set set) {
    for (const auto& row : kNewCaptions)
        if (row.event == event)
            set(row.item, row.caption);
}

}  // namespace halvern::random_user
