#include "desktop/list_lines.h"

#include <algorithm>

#include "render/shown_text.h"

namespace halvern {

ListLines::ListLines(const ListBox& box, const QFontMetrics& metrics, QObject* parent)
    : QAbstractListModel(parent), box_(&box), metrics_(metrics), widths_(box.ListCount()) {
    Measure(metrics);
}

int ListLines::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(widths_.size());
}

// While a line is being taken away the toolkit may still ask for the last one.
QVariant ListLines::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (role != Qt::DisplayRole || box_ == nullptr || !index.isValid() || row >= box_->ListCount())
        return {};
    return ShownLine(box_->Line(row));
}

void ListLines::LineAdded() {
    const auto row = static_cast<int>(widths_.size());
    beginInsertRows({}, row, row);
    widths_.push_back(WidthOf(widths_.size()));
    longest_ = std::max(longest_, widths_.back());
    endInsertRows();
}

void ListLines::LineRemoved(std::size_t index) {
    const auto row = static_cast<int>(index);
    beginRemoveRows({}, row, row);
    widths_.erase(widths_.begin() + row);
    FindLongest();
    endRemoveRows();
}

void ListLines::Measure(const QFontMetrics& metrics) {
    metrics_ = metrics;
    for (std::size_t i = 0; i < widths_.size(); ++i)
        widths_[i] = WidthOf(i);
    FindLongest();
}

void ListLines::LetGo() {
    beginResetModel();
    box_ = nullptr;
    widths_.clear();
    longest_ = 0;
    endResetModel();
}

int ListLines::WidthOf(std::size_t index) const { return metrics_.horizontalAdvance(ShownLine(box_->Line(index))); }

void ListLines::FindLongest() { longest_ = widths_.empty() ? 0 : *std::max_element(widths_.begin(), widths_.end()); }

}  // namespace halvern
