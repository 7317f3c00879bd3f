#include "random/model.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "plot/plot_window.h"
#include "random/gates.h"
#include "random/tally.h"
#include "store/analysis_store.h"
#include "store/menus.h"

namespace halvern::random_user {

namespace {

std::vector<Item> ItemsOf(std::span<const ItemRow> rows, bool hasPrinter) {
    std::vector<Item> items;
    for (const auto& row : rows)
        if (hasPrinter || row.caption != "Replay")
            items.push_back({row.level, row.name, std::string(row.caption), row.enabled, row.shown});
    return items;
}

std::size_t PlaceOf(const std::vector<Item>& items, std::string_view name) {
    const auto found = std::find_if(items.begin(), items.end(), [&](const Item& item) { return item.name == name; });
    return static_cast<std::size_t>(found - items.begin());
}

bool OpensSubmenu(const std::vector<Item>& items, std::size_t place) {
    return place + 1 < items.size() && items[place + 1].level > items[place].level;
}

bool CanBeReached(const std::vector<Item>& items, std::size_t place) {
    int level = items[place].level + 1;
    for (std::size_t i = place + 1; i-- > 0;) {
        if (items[i].level >= level)
            continue;
        if (!items[i].enabled || !items[i].shown)
            return false;
        level = items[i].level;
    }
    return true;
}

bool IsCommand(const std::vector<Item>& items, std::size_t place) {
    return items[place].caption != "-" && !OpensSubmenu(items, place);
}

}  // namespace

Model::Model(const replay::ReplayDesktop& desktop, bool hasPrinter)
    : desktop_(desktop), main_(ItemsOf(MainTree(), hasPrinter)), plot_(ItemsOf(PlotTree(), hasPrinter)) {
    Find(plot_, "UseFilled").ticked = true;
    if (hasPrinter) {
        Find(main_, "Prn2Array(1)").ticked = true;
        Find(plot_, "PrnArray(1)").ticked = true;
    } else {
        Find(main_, "PrintDummy1").enabled = false;
        Find(plot_, "dummy1").enabled = false;
    }
}

Item& Model::Find(std::vector<Item>& items, std::string_view name) {
    const std::size_t place = PlaceOf(items, name);
    if (place == items.size())
        throw std::logic_error("no such item in the model: " + std::string(name));
    return items[place];
}

bool Model::IsItem(const Target& target) const {
    const auto& items = target.window == "Plotit" ? plot_ : main_;
    return (target.window == "Plotit" || target.window == "Keld") && PlaceOf(items, target.name) < items.size();
}

bool Model::CanClick(const Target& target) const {
    if (!IsItem(target) || (target.window == "Plotit" && !flags_.plotShown))
        return false;
    const auto& items = target.window == "Plotit" ? plot_ : main_;
    const std::size_t place = PlaceOf(items, target.name);
    return IsCommand(items, place) && CanBeReached(items, place);
}

std::vector<std::string> Model::Commands(std::string_view window) const {
    std::vector<std::string> names;
    for (const auto& item : window == "Plotit" ? plot_ : main_)
        if (CanClick({std::string(window), std::string(item.name)}))
            names.emplace_back(item.name);
    return names;
}

void Model::Happens(std::string_view event) {
    const Gate& gate = GateOf(event);
    Reach("Gate." + std::string(event));
    for (const GateColumn& column : kGateColumns)
        ForNames(gate.*column.names, [&](std::string_view name) {
            bool& state = Find(main_, name).*column.state;
            if (state != column.becomes)
                CountChange(EffectName(gate, column, name));
            state = column.becomes;
        });
    ForCaptionsOf(event, [&](std::string_view item, std::string_view caption) { Find(main_, item).caption = caption; });
}

bool Model::StillOpen(std::string_view dialog) const {
    const Form* open = desktop_.OpenDialogForm();
    return open != nullptr && open->Name() == dialog && open->IsShown();
}

int Model::SpinValue(std::string_view name) const {
    for (const Control* control : desktop_.OpenDialogForm()->Controls())
        if (control->Name() == name)
            return std::stoi(control->Caption());
    throw std::logic_error("no such spin control: " + std::string(name));
}

namespace {

std::string StateOf(std::string_view name, int level, const std::string& caption, bool enabled, bool shown,
                    bool ticked) {
    return std::string(name) + " level " + std::to_string(level) + (enabled ? " enabled" : " disabled") +
           (shown ? " shown" : " hidden") + (ticked ? " ticked" : " unticked") + " \"" + caption + '"';
}

std::string StateOf(const Item& item) {
    return StateOf(item.name, item.level, item.caption, item.enabled, item.shown, item.ticked);
}

std::string StateOf(const MenuEntry& entry) {
    const MenuItem& item = *entry.item;
    return StateOf(item.Name(), entry.level, item.Caption(), item.IsEnabled(), item.IsShown(), item.IsTicked());
}

bool Agree(const Item& expected, const MenuEntry& entry) {
    const MenuItem& item = *entry.item;
    return item.Name() == expected.name && entry.level == expected.level && item.Caption() == expected.caption &&
           item.IsEnabled() == expected.enabled && item.IsShown() == expected.shown &&
           item.IsTicked() == expected.ticked;
}

}  // namespace

void Model::Compare(const std::vector<Item>& expected, bool mainWindow, std::vector<std::string>& found) const {
    const auto& entries = (mainWindow ? MainMenuBar() : *PlotitForm().MenuOf()).Entries();
    if (entries.size() != expected.size()) {
        found.push_back("the menu has " + std::to_string(entries.size()) + " items instead of " +
                        std::to_string(expected.size()));
        return;
    }
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (!Agree(expected[i], entries[i]))
            found.push_back(StateOf(entries[i]) + " should be " + StateOf(expected[i]));
}

void Model::CompareFlags(std::vector<std::string>& found) const {
    const auto& S = Store();
    const PlotWindow& plot = PlotitForm();
    const struct {
        const char* name;
        bool is;
        bool expected;
    } rows[] = {
        {"the plot window is shown", plot.IsShown(), flags_.plotShown},
        {"Done is shown", plot.Command1.IsShown(), flags_.doneShown},
        {"Test is shown", plot.TestIt.IsShown(), flags_.testShown},
        {"IsInterference", bool(S.IsInterference), flags_.interference},
        {"MultipleSpeeds", bool(S.MultipleSpeeds), flags_.several},
        {"PickDataLimits", bool(S.PickDataLimits), flags_.pickDataLimits},
        {"PickSLimits", bool(S.PickSLimits), flags_.pickSLimits},
        {"PickMeniscus", bool(S.PickMeniscus), flags_.pickMeniscus},
        {"PickJitterPoint", bool(S.PickJitterPoint), flags_.pickJitterPoint},
        {"PickFringePoint", bool(S.PickFringePoint), flags_.pickFringePoint},
        {"PickZeroLevel", bool(S.PickZeroLevel), flags_.pickZeroLevel},
        {"JitterCorrected", bool(S.JitterCorrected), flags_.jitterCorrected},
        {"FringeCorrected", bool(S.FringeCorrected), flags_.fringeCorrected},
        {"UseSmoothing", bool(S.UseSmoothing), flags_.useSmoothing},
        {"SmoothDialogShown", bool(S.SmoothDialogShown), flags_.smoothDialogShown},
        {"NumSpeeds is right", flags_.speeds == kNotToldYet || S.NumSpeeds == flags_.speeds, true},
        {"NumFiles is right", S.NumFiles == flags_.numFiles, true},
        {"SmoothWindow is right", S.SmoothWindow == flags_.smoothWindow, true},
    };
    for (const auto& row : rows)
        if (row.is != row.expected)
            found.push_back(std::string(row.name) + (row.is ? ": true, should be false" : ": false, should be true"));
}

std::vector<std::string> Model::Differences() const {
    std::vector<std::string> found;
    Compare(main_, true, found);
    Compare(plot_, false, found);
    CompareFlags(found);
    return found;
}

}  // namespace halvern::random_user
