#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "ui/control.h"

namespace halvern {

/// Whoever shows a list: told of each step, after the model has made it.
class ListBoxObserver {
  public:
    virtual void LineAdded() = 0;
    virtual void LineRemoved(std::size_t index) = 0;
    virtual void SelectionChanged() = 0;
    virtual void TopIndexChanged() = 0;

  protected:
    ~ListBoxObserver() = default;
};

/// A list of text lines, counted from 0, several of them selectable at a time.
///
/// Lines are bytes as they were added: UTF-8 as a rule, but the name of a file can be anything.
class ListBox : public Control {
  public:
    ListBox() : Control(ControlKind::kListBox, {}) {}

    std::size_t ListCount() const { return lines_.size(); }

    /// Given     index   0 .. ListCount() - 1; outside, std::out_of_range
    const std::string& Line(std::size_t index) const { return lines_.at(index).text; }
    bool IsSelected(std::size_t index) const { return lines_.at(index).selected; }
    void Select(std::size_t index, bool selected = true);

    /// The line goes to the end; the selection of the others stays.
    void AddLine(std::string_view text);
    void RemoveLine(std::size_t index);

    /// Index of the line at the top of the visible part.
    std::size_t TopIndex() const { return topIndex_; }
    void SetTopIndex(std::size_t index);

    /// The user scrolled: as SetTopIndex, but whoever shows the list knows already.
    void ScrolledTo(std::size_t index) { topIndex_ = index; }

    /// Width in pixels that can be scrolled through; 0 for no horizontal scrolling.
    std::int32_t HorizontalExtent() const { return horizontalExtent_; }
    void SetHorizontalExtent(std::int32_t widthPixels);

    void ObserveList(ListBoxObserver* observer) { listObserver_ = observer; }

  private:
    struct Entry {
        std::string text;
        bool selected = false;
    };

    std::vector<Entry> lines_;
    std::size_t topIndex_ = 0;
    std::int32_t horizontalExtent_ = 0;
    ListBoxObserver* listObserver_ = nullptr;
};

}  // namespace halvern
