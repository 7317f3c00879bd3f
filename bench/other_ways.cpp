#include "bench/other_ways.h"

#include <QPainter>

#include <cstdint>
#include <cstdlib>
#include <cstring>

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

namespace {

constexpr std::size_t kBlock = 512;

/// A pixel in one word.
std::int32_t Packed(std::int32_t x, std::int32_t y) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(y) << 16) | x;
}
int XOf(std::int32_t packed) { return packed & 0xFFFF; }
int YOf(std::int32_t packed) { return packed >> 16; }

/// Pixels of a block of points. What is dropped is overwritten by the next one.
struct PixelBlock {
    std::int32_t pixels[kBlock];
    std::int32_t count = 0;
};

/// One side of the picture for many points at once: the data value at the axis' start has the pixel `first`.
struct Side {
    float min, max, scale, first;

    explicit Side(const Way& way) : min(way.min), max(way.max), scale(way.scale), first(way.Place(way.min) + 0.5F) {}
    std::int32_t Pixel(float value) const { return static_cast<std::int32_t>((value - min) * scale + first); }
};

struct Run {
    const float* x;
    const float* y;
    std::size_t size;
    int code;
};

/// What a block of points has before some of them are dropped. The first element of each array stands for the point
/// before the block, of which nothing is known.
struct AllPixels {
    std::int32_t pixels[kBlock + 1];
    std::int32_t inside[kBlock + 1];
    bool isAnyInside, isAnyOut;
};

/// Of points inside, those on another pixel than the point before.
void DropOthers(const AllPixels& all, std::size_t size, PixelBlock& out) {
    std::int32_t count = 0;
    if (!all.isAnyOut) {
        for (std::size_t i = 1; i <= size; ++i) {
            out.pixels[count] = all.pixels[i];
            count += all.pixels[i] != all.pixels[i - 1];
        }
    } else if (all.isAnyInside) {
        for (std::size_t i = 1; i <= size; ++i) {
            out.pixels[count] = all.pixels[i];
            count += all.inside[i] & ((all.inside[i - 1] ^ 1) | static_cast<int>(all.pixels[i] != all.pixels[i - 1]));
        }
    }
    out.count = count;
}

/// Works out the pixels of a block, with what tells whether a point counts, and drops what need not be drawn.
template <class Inside, class PlaceOfY>
void Take(const Run& run, const Side& across, const Side& down, PixelBlock& out, Inside isInside, PlaceOfY placeOfY) {
    AllPixels all;
    all.pixels[0] = -1;
    all.inside[0] = 0;
    std::int32_t isAnyInside = 0, areAllInside = 1;
    for (std::size_t i = 0; i < run.size; ++i) {
        const float x = run.x[i], y = run.y[i];
        all.pixels[i + 1] = Packed(across.Pixel(x), down.Pixel(placeOfY(y)));
        all.inside[i + 1] = isInside(x, y);
        isAnyInside |= all.inside[i + 1];
        areAllInside &= all.inside[i + 1];
    }
    all.isAnyInside = isAnyInside != 0;
    all.isAnyOut = areAllInside == 0;
    DropOthers(all, run.size, out);
}

/// Markers strictly inside the axes.
void TakeMarkers(const Run& run, const Side& across, const Side& down, PixelBlock& out) {
    Take(
        run, across, down, out,
        [&](float x, float y) {
            return static_cast<std::int32_t>(across.min < x) & static_cast<std::int32_t>(x < across.max) &
                   static_cast<std::int32_t>(down.min < y) & static_cast<std::int32_t>(y < down.max);
        },
        [](float y) { return y; });
}

/// Points of a line: those beyond the x axis are dropped, those beyond the y axis lie on the edge.
void TakeLine(const Run& run, const Side& across, const Side& down, PixelBlock& out) {
    Take(
        run, across, down, out,
        [&](float x, float /*y*/) {
            return static_cast<std::int32_t>(across.min <= x) & static_cast<std::int32_t>(x <= across.max);
        },
        [&](float y) {
            const float upTo = y < down.max ? y : down.max;
            return upTo > down.min ? upTo : down.min;
        });
}

/// A row of so many pixels: a copy of bytes of a known number is a store or two.
template <int kHalf>
void PutRow(std::uint32_t* middle, const std::uint32_t* ink) {
    std::memcpy(middle - kHalf, ink, (2 * kHalf + 1) * sizeof *ink);
}

template <int kRadius>
void PutMarkers(const Rows& rows, const PixelBlock& block, std::uint32_t ink) {
    const std::uint32_t row[5] = {ink, ink, ink, ink, ink};
    const std::ptrdiff_t stride = rows.stride;
    for (std::int32_t i = 0; i < block.count; ++i) {
        std::uint32_t* const middle = rows.pixels + YOf(block.pixels[i]) * stride + XOf(block.pixels[i]);
        PutRow<kRadius>(middle, row);
        if constexpr (kRadius > 0) {
            PutRow<kRadius == 2 ? 2 : 0>(middle - stride, row);
            PutRow<kRadius == 2 ? 2 : 0>(middle + stride, row);
        }
        if constexpr (kRadius > 1) {
            PutRow<1>(middle - 2 * stride, row);
            PutRow<1>(middle + 2 * stride, row);
        }
    }
}

constexpr void (*kPutMarkers[])(const Rows&, const PixelBlock&, std::uint32_t) = {PutMarkers<0>, PutMarkers<1>,
                                                                                  PutMarkers<2>};

struct Pen {
    int x = 0, y = 0;
    bool isDown = false;
};

void PutLines(const Rows& rows, const PixelBlock& block, std::uint32_t ink, Pen& pen) {
    for (std::int32_t i = 0; i < block.count; ++i) {
        const int x = XOf(block.pixels[i]), y = YOf(block.pixels[i]);
        const bool isNear = static_cast<unsigned>(x - pen.x + 1) <= 2 && static_cast<unsigned>(y - pen.y + 1) <= 2;
        if (isNear && pen.isDown) [[likely]]
            rows.pixels[y * rows.stride + x] = ink;
        else if (pen.isDown)
            PutLine(rows, pen.x, pen.y, x, y, ink);
        pen = {x, y, true};
    }
}

std::size_t SameCode(const std::int16_t* codes, std::size_t most) {
    std::size_t count = 1;
    while (count < most && codes[count] == codes[0])
        ++count;
    return count;
}

}  // namespace

void DrawTightly(QImage& picture) {
    const auto& S = Store();
    const View view(picture);
    const Side across(view.x), down(view.y);
    const Inks inks;
    picture.fill(Qt::white);
    const Rows rows(picture);
    const auto count = static_cast<std::size_t>(S.PlotCount);
    const float* const xs = S.PlotX.Elements().data();
    const float* const ys = S.PlotY.Elements().data();
    const std::int16_t* const codes = S.PlotSym.Elements().data();
    PixelBlock block;
    Pen pen;
    for (std::size_t i = 0, size = 0; i < count; i += size) {
        size = SameCode(codes + i, count - i < kBlock ? count - i : kBlock);
        const Run run{xs + i, ys + i, size, codes[i]};
        if (run.code > 0) {
            TakeMarkers(run, across, down, block);
            kPutMarkers[view.radius](rows, block, inks.Of(run.code));
        } else if (run.code == -58) {
            TakeLine(run, across, down, block);
            pen = {XOf(block.pixels[0]), YOf(block.pixels[0]), block.count > 0};
        } else {
            TakeLine(run, across, down, block);
            PutLines(rows, block, inks.Of(-run.code / 64), pen);
        }
    }
}

double ShareOfOtherPixels(const QImage& picture, const QImage& other) {
    const View view(picture);
    const int tick = 3 * (view.radius + 2);
    int pixels = 0, others = 0;
    for (int y = view.y.Pixel(view.y.max) + tick; y < view.y.Pixel(view.y.min) - tick; ++y)
        for (int x = view.x.Pixel(view.x.min) + tick; x < view.x.Pixel(view.x.max) - tick; ++x) {
            ++pixels;
            others += picture.pixel(x, y) != other.pixel(x, y);
        }
    return static_cast<double>(others) / pixels;
}

}  // namespace halvern::bench
