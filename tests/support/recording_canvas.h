#pragma once

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "ui/canvas.h"

namespace halvern::test {

enum class Drew { kCls, kLine, kBox, kFilledBox, kCircle, kPolygon, kText };

/// One thing drawn, with the settings that it was drawn with.
struct Mark {
    Drew what;
    float x1 = 0.0F, y1 = 0.0F;  ///< start, corner, centre, or top left of a text
    float x2 = 0.0F, y2 = 0.0F;  ///< end, or opposite corner
    float radius = 0.0F;
    Colour colour = 0;  ///< of the line or outline; of a text its fore colour
    int width = 1;
    DrawMode mode = DrawMode::kCopy;
    Colours settings = {};
    std::vector<PixelPoint> corners = {};
    std::string text = {};
    int points = 0;     ///< size of the font, 0 for the rotated one
    bool bold = false;  ///< weight of the font
    int cell = 0;       ///< height of the rotated font
};

/// Keeps what is drawn on it, in its order. Its font is a simple one: a character is `kCharacter` page units wide at a
/// point of size and `kLine` high; turned, half a pixel for each pixel of its height.
class RecordingCanvas final : public Canvas {
  public:
    static constexpr float kCharacter = 0.1F, kLine = 0.25F;

    /// What was drawn since the last Cls, that one included.
    std::vector<Mark> marks;
    float page[4] = {};  ///< as Scale had it: left, top, right, bottom
    int scales = 0;

    std::vector<Mark> Of(Drew what) const;
    /// The texts printed that read so.
    std::vector<Mark> Texts(std::string_view text) const;

    /// Given     width, height   pixels
    void SetSize(float width, float height) {
        width_ = width;
        height_ = height;
    }

    void Scale(float x1, float y1, float x2, float y2) override;
    void Cls() override;
    float PixelWidth() const override { return width_; }
    float PixelHeight() const override { return height_; }
    float ScaleHeight() const override { return page[3] - page[1]; }
    void SetDrawWidth(int pixels) override { drawWidth_ = pixels; }
    void SetDrawMode(DrawMode mode) override { drawMode_ = mode; }
    void MoveTo(float x, float y) override;
    void LineTo(float x, float y, Colour colour) override;
    void Box(float x1, float y1, float x2, float y2, Colour colour) override;
    void FilledBox(float x1, float y1, float x2, float y2, Colour colour) override;
    void Circle(float x, float y, float radius, Colour colour) override;
    void Polygon(std::span<const PixelPoint> corners) override;
    void SetFont(int points, bool bold) override;
    void SetRotatedFont(int cellPixels) override;
    void Print(std::string_view text) override;
    int TextWidthPixels(std::string_view text) const override;
    float TextWidth(std::string_view text) const override;
    float TextHeight(std::string_view text) const override;

  private:
    Mark& Put(Drew what, Colour colour);

    float width_ = 0.0F, height_ = 0.0F;
    float currentX_ = 0.0F, currentY_ = 0.0F;
    int drawWidth_ = 1;
    DrawMode drawMode_ = DrawMode::kCopy;
    int points_ = 12;
    bool bold_ = false;
    int cell_ = 0;
};

}  // namespace halvern::test
