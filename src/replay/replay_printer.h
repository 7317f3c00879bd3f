#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/printer.h"

namespace halvern::replay {

/// The one printer of a replay: it keeps what is printed on it as text. Its page is 8.5 by 11 inches.
class ReplayPrinter final : public Printer {
  public:
    /// What was printed since the start, one entry a line: each line of text, "end of document", and for a picture
    /// "picture LEFT TOP WIDTH HEIGHT portrait|landscape".
    const std::vector<std::string>& Printed() const { return printed_; }

    void SetOrientation(Orientation orientation) override { orientation_ = orientation; }
    float ScaleWidth() override { return IsPortrait() ? kShortSide : kLongSide; }
    float ScaleHeight() override { return IsPortrait() ? kLongSide : kShortSide; }
    void PrintLine(std::string_view text) override { printed_.emplace_back(text); }
    void PaintPicture(const Bitmap& picture, double left, double top, double width, double height) override;
    void EndDocument() override;

  private:
    static constexpr float kShortSide = 12240.0F, kLongSide = 15840.0F;  ///< twips

    bool IsPortrait() const { return orientation_ == Orientation::kPortrait; }

    Orientation orientation_ = Orientation::kPortrait;
    std::vector<std::string> printed_;
};

}  // namespace halvern::replay
