#pragma once

#include <QImage>

#include "ui/bitmap.h"

namespace halvern {

/// A picture on an image of the toolkit: the only kind of picture on this desktop.
class ImageBitmap final : public Bitmap {
  public:
    explicit ImageBitmap(const QImage& image) : image_(image) {}

    const QImage& Image() const { return image_; }
    std::int32_t PixelWidth() const override { return image_.width(); }
    std::int32_t PixelHeight() const override { return image_.height(); }

  private:
    QImage image_;
};

inline const QImage& ImageOn(const Bitmap& picture) { return static_cast<const ImageBitmap&>(picture).Image(); }

}  // namespace halvern
