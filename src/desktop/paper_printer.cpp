#include "desktop/paper_printer.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLibrary>
#include <QPrinterInfo>
#include <QStringList>
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

/// The text in pieces that each fit on a line.
///
/// A break of lines would swallow the blanks on its way, and what stands behind them would lose its column. Blanks that
/// don't break are as wide, and stay.
QStringList Pieces(const QString& text, const QFont& font, QPrinter& printer, double width) {
    QTextLayout layout(QString(text).replace(QLatin1Char(' '), QChar(QChar::Nbsp)), font, &printer);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
        line.setLineWidth(width);
    layout.endLayout();
    QStringList pieces;
    for (int i = 0; i < layout.lineCount(); ++i)
        pieces += text.mid(layout.lineAt(i).textStart(), layout.lineAt(i).textLength());
    return pieces;
}

/// Whether the print service has taken the document that was the last thing sent to it. The toolkit does not tell; the
/// service's own library, through which the toolkit sends, keeps the answer.
bool IsAccepted() {
    constexpr int kLibraryVersion = 2;
    constexpr int kLastSuccess = 0x00FF;
    using LastAnswer = int (*)();
    static const auto lastAnswer =
        reinterpret_cast<LastAnswer>(QLibrary::resolve(QStringLiteral("cups"), kLibraryVersion, "cupsLastError"));
    if (lastAnswer == nullptr)
        return false;
    const int answer = lastAnswer();
    return answer >= 0 && answer <= kLastSuccess;
}

}  // namespace

void PaperPrinter::Select(const std::string& name) {
    document_.reset();
    name_ = name;
}

void PaperPrinter::GiveUp() {
    document_.reset();
    Fail(FailureCode::kPrinterError, name_);
}

// A printer that has gone meanwhile must not become the toolkit's own choice of another one. Without a printer the print
// service is not even asked: it may be one that does not answer.
PaperPrinter::Document& PaperPrinter::Open() {
    if (document_ != nullptr)
        return *document_;
    const QString name = QString::fromStdString(name_);
    const QPrinterInfo installed = name_.empty() ? QPrinterInfo() : QPrinterInfo::printerInfo(name);
    if (installed.isNull())
        GiveUp();
    document_ = std::make_unique<Document>(installed);
    QPrinter& printer = document_->printer;
    if (!printer.isValid() || printer.printerName() != name)
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
    const QSizeF page = printer.pageRect(QPrinter::DevicePixel).size();
    const QFont font = FontOfText(printer);
    const QFontMetricsF metrics(font, &printer);
    painter.setFont(font);
    for (const QString& piece : Pieces(ShownLine(text), font, printer, page.width())) {
        if (document_->nextLine + metrics.height() > page.height())
            NextPage();
        painter.drawText(QPointF(0.0, document_->nextLine + metrics.ascent()), piece);
        document_->nextLine += metrics.height();
    }
}

void PaperPrinter::PaintPicture(const Bitmap& picture, double left, double top, double width, double height) {
    QPainter& painter = Painter();
    const double dots = document_->printer.resolution() / kTwipsPerInch;
    // Otherwise it would be compressed as a photograph, which leaves shadows around thin lines and letters.
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(left * dots, top * dots, width * dots, height * dots), ImageOn(picture));
}

void PaperPrinter::EndDocument() {
    QPainter& painter = Painter();
    if (!painter.end() || document_->printer.printerState() == QPrinter::Error || !IsAccepted())
        GiveUp();
    document_.reset();
}

}  // namespace halvern
