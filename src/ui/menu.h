#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/control.h"

namespace halvern {

class MenuItem : public Control {
  public:
    MenuItem() : Control(ControlKind::kMenuItem, {}) {}

    bool IsTicked() const { return ticked_; }
    void Tick() { SetTicked(true); }
    void Untick() { SetTicked(false); }

    bool IsSeparator() const { return !showsName_ && Caption() == "-"; }

    /// Whether the caption is the name of a thing outside of the program, a printer's say: an `&` in it is a letter of the
    /// name and no access key, and "-" is a name.
    bool ShowsName() const { return showsName_; }
    void ShowName(std::string name);

    /// A shortcut such as "Ctrl+C"; empty for none.
    const std::string& Shortcut() const { return shortcut_; }
    void SetShortcut(std::string_view shortcut) { shortcut_ = shortcut; }

    /// What choosing the item does; empty for separators and for items that only open a submenu.
    std::function<void()> Click;

  private:
    void SetTicked(bool ticked);

    bool ticked_ = false;
    bool showsName_ = false;
    std::string shortcut_;
};

/// Whoever shows a menu bar: told when items have been put in, not of changes of an item (see ControlObserver).
class MenuBarObserver {
  public:
    virtual void MenuBarChanged() = 0;

  protected:
    ~MenuBarObserver() = default;
};

/// An item and its level in the tree: 1 stands in the bar, 2 in its dropdown, and so on.
struct MenuEntry {
    int level;
    MenuItem* item;
};

/// The items of a window's menu, in the order of the tree. It does not own them.
class MenuBar {
  public:
    const std::vector<MenuEntry>& Entries() const { return entries_; }
    void Append(int level, MenuItem& item) { entries_.push_back({level, &item}); }

    /// Puts an item right behind another one of the tree.
    void InsertAfter(const MenuItem& before, int level, MenuItem& item);

    /// Whether the item of this place opens a submenu, that is, is followed by an item of a deeper level.
    bool OpensSubmenu(std::size_t place) const;

    /// The outermost item on the way to a place, its own included, that is hidden or disabled; null if the user gets
    /// there.
    const MenuItem* Obstacle(std::size_t place) const;
    bool CanBeReached(std::size_t place) const { return Obstacle(place) == nullptr; }

    void Observe(MenuBarObserver* observer) { observer_ = observer; }

  private:
    std::vector<MenuEntry> entries_;
    MenuBarObserver* observer_ = nullptr;
};

/// The printers of a menu: a control array whose elements are made when the window is loaded, counted from 1.
class PrinterItems {
  public:
    std::size_t Count() const { return items_.size(); }

    /// Given     I   1 .. Count(); outside, std::out_of_range
    MenuItem& operator()(std::size_t I) { return items_.at(I - 1); }

    /// A new element behind the last one.
    MenuItem& Load() { return items_.emplace_back(); }

  private:
    std::deque<MenuItem> items_;
};

/// One row of a menu's design table: which member of the struct `Items` it describes, and its state at start.
template <class Items>
struct MenuRow {
    int level;
    MenuItem Items::*item;
    std::string_view name;
    std::string_view caption;
    bool enabled;
    bool shown;
    std::string_view shortcut = {};
};

inline constexpr bool kOn = true, kOff = false;
inline constexpr bool kShown = true, kHidden = false;

/// Gives every item its name, caption and state, and puts the items into the bar in the order of the table.
template <class Items, std::size_t N>
void BuildMenu(MenuBar& bar, Items& items, const MenuRow<Items> (&rows)[N]) {
    for (const auto& row : rows) {
        MenuItem& item = items.*row.item;
        item.SetName(std::string(row.name));
        item.SetCaption(std::string(row.caption));
        item.SetShortcut(row.shortcut);
        row.enabled ? item.Enable() : item.Disable();
        row.shown ? item.Show() : item.Hide();
        bar.Append(row.level, item);
    }
}

/// Names are the scripts' handle on an item, so that no two of a window may be alike.
template <class Items, std::size_t N>
consteval bool NamesDiffer(const MenuRow<Items> (&rows)[N]) {
    for (std::size_t i = 0; i < N; ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (rows[i].name == rows[j].name || rows[i].item == rows[j].item)
                return false;
    return true;
}

/// A submenu lies one level below the item that opens it.
template <class Items, std::size_t N>
consteval bool LevelsStepByOne(const MenuRow<Items> (&rows)[N]) {
    if (rows[0].level != 1)
        return false;
    for (std::size_t i = 1; i < N; ++i)
        if (rows[i].level < 1 || rows[i].level > rows[i - 1].level + 1)
            return false;
    return true;
}

}  // namespace halvern
