#include "desktop/paper_printer.h"

#include <QFont>
#include <QTextLayout>

#include "desktop/image_bitmap.h"
#include "render/shown_text.h"
#include "store/failure.h"

namespace halvern {

namespace {

constexpr double kTwipsPerPoint = 20.0, kTwipsPerInch = 1440.0;

/// Of the reports: 80 characters and more on a line of a usual page.
QFont FontOfText(QPrinter& printer) {
    constexpr int kPoints = 10;
    QFont font({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"), QStringLiteral("DejaVu Sans Mono"),
                QStringLiteral("monospace")});
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSize(kPoints);
    return {font, &printer};
}

}  // namespace

void PaperPrinter::Select(const std::string& name) {
    document_.reset();
    name_ = name;
}

void PaperPrinter::GiveUp() {
    if (document_ != nullptr) {
        document_->printer.abort();
        document_.reset();
    }
    Fail(FailureCode::kPrinterError, name_);
}

// A printer that has gone meanwhile must not become the toolkit's own choice of another one.
PaperPrinter::Document& PaperPrinter::Open() {
    if (document_ != nullptr)
        return *document_;
    document_ = std::make_unique<Document>();
    QPrinter& printer = document_->printer;
    const QString name = QString::fromStdString(name_);
    printer.setPrinterName(name);
    if (name_.empty() || !printer.isValid() || printer.printerName() != name)
        GiveUp();
    printer.setDocName(QStringLiteral("Halvern"));
    printer.setPageOrientation(QPageLayout::Portrait);
    return *document_;
}

QPainter& PaperPrinter::Painter() {
    Document& document = Open();
    if (!document.painter.isActive() && !document.painter.begin(&document.printer))
        GiveUp();
    return document.painter;
}

void PaperPrinter::NextPage() {
    if (!document_->printer.newPage())
        GiveUp();
    document_->nextLine = 0.0;
}

void PaperPrinter::SetOrientation(Orientation orientation) {
    const bool portrait = orientation == Orientation::kPortrait;
    if (!Open().printer.setPageOrientation(portrait ? QPageLayout::Portrait : QPageLayout::Landscape))
        GiveUp();
}

float PaperPrinter::ScaleWidth() {
    return static_cast<float>(Open().printer.pageRect(QPrinter::Point).width() * kTwipsPerPoint);
}

float PaperPrinter::ScaleHeight() {
    return static_cast<float>(Open().printer.pageRect(QPrinter::Point).height() * kTwipsPerPoint);
}

void PaperPrinter::PrintLine(std::string_view text) {
    QPainter& painter = Painter();
    QPrinter& printer = document_->printer;
    const QRectF page(QPointF(), printer.pageRect(QPrinter::DevicePixel).size());
    QTextLayout layout(ShownLine(text), FontOfText(printer), &printer);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAnywhere);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
        line.setLineWidth(page.width());
    layout.endLayout();
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        if (document_->nextLine + line.height() > page.height())
            NextPage();
        line.draw(&painter, QPointF(0.0, document_->nextLine - line.y()));
        document_->nextLine += line.height();
    }
}

void PaperPrinter::PaintPicture(const Bitmap& picture, double left, double top, double width, double height) {
    QPainter& painter = Painter();
    const double dots = document_->printer.resolution() / kTwipsPerInch;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(left * dots, top * dots, width * dots, height * dots), ImageOn(picture));
}

void PaperPrinter::EndDocument() {
    QPainter& painter = Painter();
    if (!painter.end() || document_->printer.printerState() == QPrinter::Error)
        GiveUp();
    document_.reset();
}

}  // namespace halvern
