#pragma once

#include <QAbstractListModel>
#include <QFontMetrics>

#include <vector>

#include "ui/list_box.h"

namespace halvern {

/// The lines of a list, as a model of the toolkit's. It reads them where they are and keeps their widths alone.
class ListLines : public QAbstractListModel {
  public:
    ListLines(const ListBox& box, const QFontMetrics& metrics, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// The list has a line more at its end, or one less.
    void LineAdded();
    void LineRemoved(std::size_t index);

    /// Another font: every line is measured again.
    void Measure(const QFontMetrics& metrics);

    /// Width of the longest line in pixels.
    int LongestLine() const { return longest_; }

    /// The list itself goes; from now on there are no lines.
    void LetGo();

  private:
    int WidthOf(std::size_t index) const;
    void FindLongest();

    const ListBox* box_;
    QFontMetrics metrics_;
    std::vector<int> widths_;
    int longest_ = 0;
};

}  // namespace halvern
