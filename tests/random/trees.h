#pragma once

#include <span>
#include <string>
#include <string_view>

namespace halvern::random_user {

/// The menus as the design has them at the start, told here a second time: what the program builds is held against it.
struct ItemRow {
    int level;
    std::string_view name;
    std::string_view caption;
    bool enabled;
    bool shown;
};

/// An item as the model expects it.
struct Item {
    int level;
    std::string_view name;
    std::string caption;
    bool enabled;
    bool shown;
    bool ticked = false;
};

std::span<const ItemRow> MainTree();
std::span<const ItemRow> PlotTree();

}  // namespace halvern::random_user
