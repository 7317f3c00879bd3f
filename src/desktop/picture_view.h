#pragma once

#include <QSvgRenderer>
#include <QWidget>

#include <string>

namespace halvern {

/// A picture of the program's own, as large as its place allows at its own proportions.
class PictureView : public QWidget {
  public:
    /// Given     resource   its name among the program's pictures: "boundary"
    PictureView(const std::string& resource, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QSvgRenderer renderer_;
};

}  // namespace halvern
