#pragma once

#include <cstdint>
#include <memory>

namespace halvern {

/// A picture made of pixels. Whoever has made it knows what is on it; the program knows its size.
class Bitmap {
  public:
    virtual ~Bitmap() = default;

    virtual std::int32_t PixelWidth() const = 0;
    virtual std::int32_t PixelHeight() const = 0;
};

using BitmapPointer = std::shared_ptr<const Bitmap>;

}  // namespace halvern
