#include "bench/other_ways.h"

#include <QPainter>

#include <cstdint>
#include <cstdlib>

#include "plot/plot_drawing.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"

namespace halvern::bench {

namespace {

/// From data values to pixels, along one side.
struct Way {
    float min, max, scale, shift;

    Way(float axisMin, float axisMax, float pageFrom, float pageTo, int pixels)
        : min(axisMin),
          max(axisMax),
          scale(kBox / (axisMax - axisMin) * static_cast<float>(pixels) / (pageTo - pageFrom)),
          shift((0.0F - pageFrom) * static_cast<float>(pixels) / (pageTo - pageFrom) - axisMin * scale) {}

    bool Has(float value) const { return min < value && value < max; }
    float Place(float value) const { return value * scale + shift; }
    int Pixel(float value) const { return static_cast<int>(Place(value) + 0.5F); }
};

struct View {
    Way x, y;
    int radius;

    explicit View(const QImage& picture)
        : x(PlotitForm().XAxisMin, PlotitForm().XAxisMax, kPageLeft, kPageRight, picture.width()),
          y(PlotitForm().YAxisMin, PlotitForm().YAxisMax, kPageTop, kPageBottom, picture.height()),
          radius(static_cast<int>(0.25 * picture.width() / (kPageRight - kPageLeft) + 0.5)) {}
};

struct Rows {
    std::uint32_t* pixels;
    std::ptrdiff_t stride;

    explicit Rows(QImage& picture)
        : pixels(reinterpret_cast<std::uint32_t*>(picture.bits())), stride(picture.bytesPerLine() / 4) {}
};

/// A marker made ready: how far its pixels are from its middle, in words. The widest radius here is 2.
class Marker {
  public:
    Marker(const Rows& rows, int radius) {
        constexpr int kHalfRows[3][3] = {{0}, {1, 0}, {2, 2, 1}};
        for (int y = -radius; y <= radius; ++y)
            for (int x = -kHalfRows[radius][std::abs(y)]; x <= kHalfRows[radius][std::abs(y)]; ++x)
                offsets_[count_++] = y * rows.stride + x;
    }

    void Put(std::uint32_t* middle, std::uint32_t ink) const {
        for (int i = 0; i < count_; ++i)
            middle[offsets_[i]] = ink;
    }

  private:
    std::ptrdiff_t offsets_[25] = {};
    int count_ = 0;
};

void PutLine(const Rows& rows, int x, int y, int toX, int toY, std::uint32_t ink) {
    const int dx = std::abs(toX - x), dy = -std::abs(toY - y);
    const int sx = x < toX ? 1 : -1, sy = y < toY ? 1 : -1;
    int error = dx + dy;
    while (true) {
        rows.pixels[y * rows.stride + x] = ink;
        if (x == toX && y == toY)
            return;
        const int twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            x += sx;
        }
        if (twice <= dx) {
            error += dx;
            y += sy;
        }
    }
}

struct Inks {
    std::uint32_t ink[10];

    Inks() {
        for (int i = 0; i < 10; ++i)
            ink[i] = 0xFF000000U | static_cast<std::uint32_t>(Store().PlotColor(i));
    }
    std::uint32_t Of(int number) const { return ink[number % 10]; }
};

}  // namespace

void DrawWithPainter(QImage& picture) {
    const auto& S = Store();
    const View view(picture);
    const Inks inks;
    picture.fill(Qt::white);
    QPainter painter(&picture);
    QPointF last;
    bool down = false;
    for (std::int32_t i = 1; i <= S.PlotCount; ++i) {
        const float x = S.PlotX(i), y = S.PlotY(i);
        const int code = S.PlotSym(i);
        const QColor colour(QRgb(inks.Of(code > 0 ? code : -code / 64)));
        const QPointF place(view.x.Place(x), view.y.Place(y));
        const bool inside = view.x.Has(x) && view.y.Has(y);
        painter.setPen(colour);
        if (code > 0 && inside) {
            painter.setBrush(colour);
            painter.drawEllipse(place, view.radius, view.radius);
        } else if (code < 0) {
            if (inside && down && code != -58)
                painter.drawLine(last, place);
            down = inside;
            last = place;
        }
    }
}

void DrawWithStamps(QImage& picture) {
    const auto& S = Store();
    const View view(picture);
    const Inks inks;
    picture.fill(Qt::white);
    const Rows rows(picture);
    const Marker marker(rows, view.radius);
    const auto xs = S.PlotX.Elements();
    const auto ys = S.PlotY.Elements();
    const auto codes = S.PlotSym.Elements();
    const auto count = static_cast<std::size_t>(S.PlotCount);
    int lastX = 0, lastY = 0, lastCode = 0;
    bool down = false;
    for (std::size_t i = 0; i < count; ++i) {
        const int code = codes[i];
        if (!view.x.Has(xs[i]) || !view.y.Has(ys[i])) {
            down = false;
            continue;
        }
        const int x = view.x.Pixel(xs[i]), y = view.y.Pixel(ys[i]);
        const bool same = x == lastX && y == lastY && code == lastCode;
        if (code > 0 && !same)
            marker.Put(rows.pixels + y * rows.stride + x, inks.Of(code));
        else if (code < 0 && code != -58 && down && !same)
            PutLine(rows, lastX, lastY, x, y, inks.Of(-code / 64));
        down = code < 0;
        lastX = x;
        lastY = y;
        lastCode = code;
    }
}

}  // namespace halvern::bench
