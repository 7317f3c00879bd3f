#include "render/drawing.h"

#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>

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

/// The file behind a drawing: one that stands already is replaced when the new one is complete.
class DrawingFile {
  public:
    explicit DrawingFile(const std::string& path) : file_(QString::fromUtf8(path.data(), Length(path))) {
        file_.setDirectWriteFallback(true);
    }

    bool Open() { return file_.open(QIODevice::WriteOnly); }
    QSaveFile& Device() { return file_; }
    std::string Error() const { return file_.errorString().toStdString(); }
    std::string Commit() { return file_.commit() ? std::string() : Error(); }

  private:
    static qsizetype Length(const std::string& text) { return static_cast<qsizetype>(text.size()); }

    QSaveFile file_;
};

class ImageDrawing final : public Drawing {
  public:
    ImageDrawing(std::unique_ptr<DrawingFile> file, const DrawingOrder& order, const char* format)
        : file_(std::move(file)), format_(format) {
        canvas_.SetSize({order.width, order.height}, 1.0);
    }

    Canvas& Surface() override { return canvas_; }

    std::string Write() override {
        if (!canvas_.Image().save(&file_->Device(), format_))
            return file_->Error();
        return file_->Commit();
    }

  private:
    std::unique_ptr<DrawingFile> file_;
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
    PageDrawing(std::unique_ptr<DrawingFile> file, const DrawingOrder& order, const char* /*format*/)
        : file_(std::move(file)),
          page_(&file_->Device(), {order.width, order.height}),
          canvas_(page_, {order.width, order.height}) {}

    Canvas& Surface() override { return canvas_; }

    std::string Write() override {
        if (!canvas_.Finish())
            return "the page can't be drawn";
        return file_->Commit();
    }

  private:
    std::unique_ptr<DrawingFile> file_;
    Page page_;
    VectorCanvas canvas_;
};

template <class Kind>
Drawing* Make(std::unique_ptr<DrawingFile> file, const DrawingOrder& order, const char* format) {
    return new Kind(std::move(file), order, format);
}

struct KindRow {
    const char* kind;
    Drawing* (*make)(std::unique_ptr<DrawingFile> file, const DrawingOrder& order, const char* format);
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
    auto file = std::make_unique<DrawingFile>(order.path);
    if (!file->Open()) {
        reason = file->Error();
        return nullptr;
    }
    return row->make(std::move(file), order, row->kind);
}
