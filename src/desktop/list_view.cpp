#include "desktop/list_view.h"

#include <QEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>

namespace halvern {

namespace {

/// Paints lines, all of them as wide as the list can be scrolled through.
class LineDelegate : public QStyledItemDelegate {
  public:
    explicit LineDelegate(ListView& view) : QStyledItemDelegate(&view), view_(view) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {view_.ContentWidth(), QStyledItemDelegate::sizeHint(option, index).height()};
    }

  private:
    const ListView& view_;
};

}  // namespace

ListView::ListView(ListBox& box, QWidget* parent)
    : QListView(parent), box_(&box), lines_(new ListLines(box, fontMetrics(), this)) {
    setItemDelegate(new LineDelegate(*this));
    setModel(lines_);
    setUniformItemSizes(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideNone);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    // The one list of the program is its report.
    setAccessibleName(QLatin1String("Report"));

    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        if (box_ != nullptr && !following_)
            box_->ScrolledTo(static_cast<std::size_t>(value));
    });
    SelectionChanged();
    box.ObserveList(this);
}

void ListView::LetGo() {
    box_->ObserveList(nullptr);
    box_ = nullptr;
    lines_->LetGo();
}

void ListView::LineAdded() {
    const QScopedValueRollback following(following_, true);
    lines_->LineAdded();
    viewport()->update();
}

// The toolkit may move its selection on to a neighbour of a line that goes; the program's list does not.
void ListView::LineRemoved(std::size_t index) {
    {
        const QScopedValueRollback following(following_, true);
        lines_->LineRemoved(index);
        executeDelayedItemsLayout();
        viewport()->update();
    }
    SelectionChanged();
    box_->ScrolledTo(static_cast<std::size_t>(verticalScrollBar()->value()));
}

void ListView::SelectionChanged() {
    if (following_)
        return;
    const QScopedValueRollback following(following_, true);
    QItemSelection selected;
    for (std::size_t i = 0; i < box_->ListCount(); ++i) {
        const QModelIndex index = lines_->index(static_cast<int>(i));
        if (box_->IsSelected(i))
            selected.append(QItemSelectionRange(index));
    }
    selectionModel()->select(selected, QItemSelectionModel::ClearAndSelect);
}

/// As far as the list goes; the model then holds the line that is really at the top.
void ListView::TopIndexChanged() {
    {
        const QScopedValueRollback following(following_, true);
        // The bar's range takes in the lines added since the last layout.
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(static_cast<int>(box_->TopIndex()));
    }
    box_->ScrolledTo(static_cast<std::size_t>(verticalScrollBar()->value()));
}

void ListView::ExtentChanged() { scheduleDelayedItemsLayout(); }

int ListView::ContentWidth() const {
    const int margins = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1);
    const int extent = box_ == nullptr ? 0 : box_->HorizontalExtent();
    return std::max(extent, lines_->LongestLine() + margins);
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (box_ == nullptr || following_)
        return;
    const QScopedValueRollback following(following_, true);
    TellSelection(deselected, false);
    TellSelection(selected, true);
}

void ListView::TellSelection(const QItemSelection& changed, bool selected) {
    for (const QModelIndex& index : changed.indexes())
        if (static_cast<std::size_t>(index.row()) < box_->ListCount())
            box_->Select(static_cast<std::size_t>(index.row()), selected);
}

// The toolkit's lists copy the current line; here copying is a command of the menu.
void ListView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        event->ignore();
    else
        QListView::keyPressEvent(event);
}

void ListView::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    lines_->Measure(fontMetrics());
    scheduleDelayedItemsLayout();
}

void ListView::showEvent(QShowEvent* event) {
    QListView::showEvent(event);
    if (box_ != nullptr)
        TopIndexChanged();
}

}  // namespace halvern
