#include "desktop/picture_view.h"

#include <QPainter>

#include <stdexcept>

#include "render/shown_text.h"

namespace halvern {

PictureView::PictureView(const std::string& resource, QWidget* parent) : QWidget(parent) {
    if (!renderer_.load(QLatin1String(":/pictures/") + ShownLine(resource) + QLatin1String(".svg")))
        throw std::logic_error("the program brings along no picture " + resource);
    renderer_.setAspectRatioMode(Qt::KeepAspectRatio);
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    renderer_.render(&painter);
}

}  // namespace halvern
