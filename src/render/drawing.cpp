#include "render/drawing.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "render/graphics.h"
#include "render/image_canvas.h"
#include "render/shown_text.h"
#include "render/vector_canvas.h"

namespace halvern {

namespace {

constexpr int kPixelsPerInch = 96;
constexpr double kPointsPerInch = 72.0;

// The toolkit counts the pixels of a side in 16 bits; a picture of a gigabyte is a slip of the script.
constexpr int kLongestSide = 32767;
constexpr std::int64_t kMostPixels = 1 << 28;

/// Where the bytes of a drawing gather.
class Bytes {
  public:
    Bytes() { buffer_.open(QIODevice::WriteOnly); }
    QBuffer& Device() { return buffer_; }
    std::string Taken() const { return buffer_.data().toStdString(); }

  private:
    QBuffer buffer_;
};

class ImageDrawing final : public Drawing {
  public:
    ImageDrawing(const DrawingOrder& order, const char* format) : format_(format) {
        canvas_.SetSize({order.width, order.height}, 1.0);
    }

    Canvas& Surface() override { return canvas_; }

    std::string Finish(std::string& content) override {
        Bytes bytes;
        QImageWriter writer(&bytes.Device(), format_);
        if (!writer.write(canvas_.Image()))
            return writer.errorString().toStdString();
        content = bytes.Taken();
        return {};
    }

  private:
    const char* format_;
    ImageCanvas canvas_;
};

/// A page of a kind, as large as the surface.
struct SvgPage : QSvgGenerator {
    SvgPage(QIODevice* device, QSize size) {
        setOutputDevice(device);
        setResolution(kPixelsPerInch);
        setSize(size);
        setViewBox(QRect(QPoint(), size));
    }
};

struct PdfPage : QPdfWriter {
    PdfPage(QIODevice* device, QSize size) : QPdfWriter(device) {
        setResolution(kPixelsPerInch);
        setPageSize(QPageSize(QSizeF(size) * (kPointsPerInch / kPixelsPerInch), QPageSize::Point, QString(),
                              QPageSize::ExactMatch));
        setPageMargins({});
    }
};

template <class Page>
class PageDrawing final : public Drawing {
  public:
    PageDrawing(const DrawingOrder& order, const char* /*format*/)
        : page_(&bytes_.Device(), {order.width, order.height}), canvas_(page_, {order.width, order.height}) {}

    Canvas& Surface() override { return canvas_; }

    std::string Finish(std::string& content) override {
        if (!canvas_.Finish())
            return "the page can't be drawn";
        content = bytes_.Taken();
        return {};
    }

  private:
    Bytes bytes_;
    Page page_;
    VectorCanvas canvas_;
};

template <class Kind>
Drawing* Make(const DrawingOrder& order, const char* format) {
    return new Kind(order, format);
}

struct KindRow {
    const char* kind;
    Drawing* (*make)(const DrawingOrder& order, const char* format);
};

constexpr KindRow kKinds[] = {
    {"png", Make<ImageDrawing>},
    {"bmp", Make<ImageDrawing>},
    {"svg", Make<PageDrawing<SvgPage>>},
    {"pdf", Make<PageDrawing<PdfPage>>},
};

bool IsTooLarge(const DrawingOrder& order) {
    return std::max(order.width, order.height) > kLongestSide ||
           static_cast<std::int64_t>(order.width) * order.height > kMostPixels;
}

}  // namespace

}  // namespace halvern

extern "C" halvern::Drawing* HalvernBeginDrawing(const halvern::DrawingOrder& order, std::string& reason) {
    using namespace halvern;
    const auto row = std::find_if(std::begin(kKinds), std::end(kKinds),
                                  [&](const KindRow& kind) { return order.kind == kind.kind; });
    if (row == std::end(kKinds)) {
        reason = "there are no files of the kind " + std::string(order.kind);
        return nullptr;
    }
    if (IsTooLarge(order)) {
        reason = "the plot window is too large";
        return nullptr;
    }
    StartGraphics();
    return row->make(order, row->kind);
}
