#pragma once

#include <string_view>

#include "ui/bitmap.h"

namespace halvern {

enum class Orientation { kPortrait = 1, kLandscape = 2 };

/// The current printer. What is put on it gathers in a document, which goes to the printer when it ends.
///
/// Every member fails 482 when the printer does not do it. The document is then given up: the next one begins anew.
class Printer {
  public:
    /// Of the pages to come; a new document begins in portrait.
    virtual void SetOrientation(Orientation orientation) = 0;

    /// The part of a page, as it lies, that can be printed on; twips.
    virtual float ScaleWidth() = 0;
    virtual float ScaleHeight() = 0;

    /// A line of text as it stands, in a font of fixed pitch, below the one before. A full page is followed by another
    /// one, a line that is too long goes on in the next.
    virtual void PrintLine(std::string_view text) = 0;

    /// Given     left, top, width, height   twips, from the top left of what can be printed on
    virtual void PaintPicture(const Bitmap& picture, double left, double top, double width, double height) = 0;

    /// Hands the document over; an empty one has one empty page.
    virtual void EndDocument() = 0;

  protected:
    ~Printer() = default;
};

}  // namespace halvern
