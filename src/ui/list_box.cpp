#include "ui/list_box.h"

namespace halvern {

void ListBox::Select(std::size_t index, bool selected) {
    lines_.at(index).selected = selected;
    if (listObserver_ != nullptr)
        listObserver_->SelectionChanged();
}

void ListBox::AddLine(std::string_view text) {
    lines_.push_back({std::string(text), false});
    if (listObserver_ != nullptr)
        listObserver_->LineAdded();
}

void ListBox::RemoveLine(std::size_t index) {
    static_cast<void>(lines_.at(index));
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(index));
    if (listObserver_ != nullptr)
        listObserver_->LineRemoved(index);
}

void ListBox::SetTopIndex(std::size_t index) {
    topIndex_ = index;
    if (listObserver_ != nullptr)
        listObserver_->TopIndexChanged();
}

void ListBox::SetHorizontalExtent(std::int32_t widthPixels) {
    horizontalExtent_ = widthPixels;
    Changed();
}

}  // namespace halvern
