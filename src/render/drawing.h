#pragma once

#include <string>
#include <string_view>

#include "ui/canvas.h"

namespace halvern {

/// A picture in the making that goes into a file.
///
/// What makes pictures is a part of its own, which a program without windows loads at the first of them. This header is
/// all that such a program knows of it.
class Drawing {
  public:
    virtual ~Drawing() = default;

    virtual Canvas& Surface() = 0;

    /// Writes the file. Without it a file of that name stays as it was.
    ///
    /// Result    why it can't be written; empty if it has been
    virtual std::string Write() = 0;
};

/// What to draw, and where it goes.
struct DrawingOrder {
    std::string_view kind;  ///< "png", "bmp", "svg" or "pdf"
    std::string path;       ///< UTF-8, from the current directory
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
