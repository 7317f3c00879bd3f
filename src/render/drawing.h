#pragma once

#include <string>
#include <string_view>

#include "ui/canvas.h"

namespace halvern {

/// A picture in the making, which becomes the content of a file.
///
/// What makes pictures is a part of its own, which a program without windows loads at the first of them. This header is
/// all that such a program knows of it.
class Drawing {
  public:
    virtual ~Drawing() = default;

    virtual Canvas& Surface() = 0;

    /// Ends the drawing, once.
    ///
    /// Given     content   takes the bytes of the file
    /// Result    why they can't be made; empty if they have been
    virtual std::string Finish(std::string& content) = 0;
};

/// What to draw.
struct DrawingOrder {
    std::string_view kind;  ///< "png", "bmp", "svg" or "pdf"
    int width = 0;          ///< pixels
    int height = 0;
};

/// Begins a drawing. The caller deletes it.
///
/// Result    null when it can't be drawn; `reason` tells why
using BeginDrawing = Drawing*(const DrawingOrder& order, std::string& reason);

/// The loaded part's one function, a BeginDrawing.
inline constexpr const char* kBeginDrawing = "HalvernBeginDrawing";

}  // namespace halvern
