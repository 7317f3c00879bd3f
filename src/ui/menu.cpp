#include "ui/menu.h"

#include <algorithm>
#include <utility>

namespace halvern {

void MenuItem::SetTicked(bool ticked) {
    if (ticked_ == ticked)
        return;
    ticked_ = ticked;
    Changed();
}

void MenuItem::ShowName(std::string name) {
    showsName_ = true;
    SetCaption(std::move(name));
}

void MenuBar::InsertAfter(const MenuItem& before, int level, MenuItem& item) {
    const auto place =
        std::find_if(entries_.begin(), entries_.end(), [&](const MenuEntry& entry) { return entry.item == &before; });
    entries_.insert(place == entries_.end() ? place : std::next(place), {level, &item});
    if (observer_ != nullptr)
        observer_->MenuBarChanged();
}

bool MenuBar::OpensSubmenu(std::size_t place) const {
    return place + 1 < entries_.size() && entries_[place + 1].level > entries_[place].level;
}

const MenuItem* MenuBar::Obstacle(std::size_t place) const {
    const MenuItem* obstacle = nullptr;
    int level = entries_.at(place).level + 1;
    for (std::size_t i = place + 1; i-- > 0;) {
        const MenuEntry& entry = entries_[i];
        if (entry.level >= level)
            continue;
        if (!entry.item->IsEnabled() || !entry.item->IsShown())
            obstacle = entry.item;
        level = entry.level;
    }
    return obstacle;
}

}  // namespace halvern
