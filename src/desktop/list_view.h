#pragma once

#include <QListView>

#include "desktop/event_gate.h"
#include "desktop/list_lines.h"
#include "ui/list_box.h"

namespace halvern {

/// Shows a list of lines. Selection and top line are the same here and in the model, whoever changes them.
class ListView : public QListView, public ListBoxObserver {
  public:
    ListView(ListBox& box, QWidget* parent);

    void LineAdded() override;
    void LineRemoved(std::size_t index) override;
    void SelectionChanged() override;
    void TopIndexChanged() override;

    /// The width to scroll through has changed.
    void ExtentChanged();
    /// Width in pixels that can be scrolled through: the model's, or that of the longest line if that is more.
    int ContentWidth() const;

    /// From now on the list has nothing to do with the model, which may go first.
    void LetGo();

  protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void TellSelection(const QItemSelection& changed, bool selected);

    ListBox* box_;
    ListLines* lines_;
    /// One of the two is just following the other; what it tells meanwhile is no news.
    bool following_ = false;
};

}  // namespace halvern
