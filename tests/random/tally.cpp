#include "random/tally.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "random/gates.h"
#include "random/trees.h"

namespace halvern::random_user {

namespace {

/// Items that are hidden from the start and stay so.
constexpr std::string_view kOutOfReach[] = {"PlotInterp", "SavePlots", "Prn2Array(0)",   "PrintDummy2",
                                            "Col_Sym",    "ShowIt",    "SetJitterLimits"};

struct WindowRow {
    std::string_view window;
    std::string_view array;  ///< a control array, if the window has one
    int elements;
    std::vector<std::string_view> controls;
};

const WindowRow kWindows[] = {
    {"Keld", "", 0, {"OutFileBox", "close"}},
    {"Plotit", "", 0, {"Command1", "TestIt", "mouse", "drag", "hover", "resize"}},
    {"GenerateFile", "", 0, {"Text3", "Text2", "UpDown2", "Text1", "UpDown1", "OKMakeFile", "Command1", "close"}},
    {"IncrementalPlot", "", 0, {"PlotIncr", "UpDown1", "PlotEmUpScottie", "Nevermind", "close"}},
    {"SetMeniscus", "", 0, {"Text1", "IsOK", "NotThisTime", "close"}},
    {"SetMultiMenF", "Radii", 12, {"JustDoIt", "NotNow", "close"}},
    {"SetSmooth", "", 0, {"Text1", "UpDown1", "IsOK", "MaybeLater", "close"}},
    {"DistAves", "", 0, {"Command1", "close"}},
    {"PlotRadii", "UseRadii", 11, {"PlotEmUp", "NeverMind2", "close"}},
    {"PlotLogWD", "UseRadii", 11, {"PlotEmUp", "NeverMind2", "close"}},
    {"PlotIntegral", "UseRadii", 11, {"PlotEmUp", "NeverMind2", "close"}},
    {"Done",
     "",
     0,
     {"jitter", "s* limits", "zero level", "fringe point", "meniscus", "meniscus of a speed", "nothing"}},
};

void AddTree(std::vector<std::string>& names, std::string_view window, std::span<const ItemRow> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool opensSubmenu = i + 1 < rows.size() && rows[i + 1].level > rows[i].level;
        const bool hidden =
            std::find(std::begin(kOutOfReach), std::end(kOutOfReach), rows[i].name) != std::end(kOutOfReach) &&
            !(window == "Keld" && rows[i].name == "SetJitterLimits");
        if (!opensSubmenu && rows[i].caption != "-" && !hidden)
            names.push_back(std::string(window) + '.' + std::string(rows[i].name));
    }
}

std::vector<std::string> AllNames() {
    std::vector<std::string> names;
    AddTree(names, "Keld", MainTree());
    AddTree(names, "Plotit", PlotTree());
    for (const auto& row : kWindows) {
        const std::string window = std::string(row.window) + '.';
        for (int i = 0; i < row.elements; ++i)
            names.push_back(window + std::string(row.array) + '(' + std::to_string(i) + ')');
        for (const auto control : row.controls)
            names.push_back(window + std::string(control));
    }
    for (const Gate& gate : Gates())
        names.push_back("Gate." + std::string(gate.event));
    return names;
}

std::vector<std::string> AllEffects() {
    std::vector<std::string> effects;
    for (const Gate& gate : Gates())
        for (const GateColumn& column : kGateColumns)
            ForNames(gate.*column.names,
                     [&](std::string_view name) { effects.push_back(EffectName(gate, column, name)); });
    return effects;
}

void Count(const std::vector<std::string>& names, std::string_view name, std::uint64_t* counts) {
    if (const auto found = std::find(names.begin(), names.end(), name); found != names.end())
        ++counts[found - names.begin()];
}

}  // namespace

void Tally::BeginSession() {
    end = End::kRunning;
    failure = 0;
    command[0] = finding[0] = '\0';
    scriptSize = 0;
}

void Tally::AppendToScript(std::string_view text) {
    const std::size_t size = std::min(text.size(), kLongestScript - scriptSize);
    std::memcpy(script + scriptSize, text.data(), size);
    scriptSize += size;
}

void Tally::Put(char* to, std::size_t size, std::string_view text) {
    const std::size_t length = std::min(text.size(), size - 1);
    std::memcpy(to, text.data(), length);
    to[length] = '\0';
}

Tally& SharedTally() {
    static void* const shared =
        ::mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED)
        throw std::runtime_error("no memory to share");
    if (std::max(WhatToReach().size(), GateEffects().size()) > Tally::kMostItems)
        throw std::logic_error("there is more to count than the tally has room for");
    return *static_cast<Tally*>(shared);
}

const std::vector<std::string>& WhatToReach() {
    static const std::vector<std::string> names = AllNames();
    return names;
}

const std::vector<std::string>& GateEffects() {
    static const std::vector<std::string> effects = AllEffects();
    return effects;
}

void CountChange(std::string_view effect) { Count(GateEffects(), effect, SharedTally().changed); }

void Reach(std::string_view name) { Count(WhatToReach(), name, SharedTally().reached); }

}  // namespace halvern::random_user
