#pragma once

#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QString>

#include <memory>
#include <string>

#include "ui/printer.h"

namespace halvern {

/// The current printer, by the toolkit over the system's print service.
class PaperPrinter final : public Printer {
  public:
    /// Given     name   of an installed printer. A document that has been begun on another one is given up.
    void Select(const std::string& name);
    /// Empty before the first choice.
    const std::string& Name() const { return name_; }

    void SetOrientation(Orientation orientation) override;
    float ScaleWidth() override;
    float ScaleHeight() override;
    void PrintLine(std::string_view text) override;
    void PaintPicture(const Bitmap& picture, double left, double top, double width, double height) override;
    void EndDocument() override;

  private:
    /// A document in the making. The painter goes before the device that it paints on.
    struct Document {
        explicit Document(const QPrinterInfo& installed) : printer(installed, QPrinter::HighResolution) {}

        QPrinter printer;
        QPainter painter;
        double nextLine = 0.0;  ///< top of the line to come, in the printer's dots
    };

    Document& Open();
    QPainter& Painter();
    void NextPage();
    [[noreturn]] void GiveUp();

    std::string name_;
    std::unique_ptr<Document> document_;
};

}  // namespace halvern
