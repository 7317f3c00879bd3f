#pragma once

#include "render/image_canvas.h"
#include "store/failure.h"
#include "ui/desktop.h"
#include "ui/form.h"

namespace halvern::bench {

/// A desktop with nobody before it, and a picture for the window that draws.
class BenchDesktop : public Desktop {
  public:
    BenchDesktop() { UseDesktop(this); }
    ~BenchDesktop() override { UseDesktop(nullptr); }
    BenchDesktop(const BenchDesktop&) = delete;
    BenchDesktop& operator=(const BenchDesktop&) = delete;

    ImageCanvas canvas;

    Answer AskUser(const std::string& /*text*/, int /*style*/, const std::string& /*title*/) override {
        return Answer::kOk;
    }
    std::optional<std::string> AskForExistingFile(const FileDialog& /*dialog*/) override { return {}; }
    std::optional<std::string> AskForNewFile(const FileDialog& /*dialog*/) override { return {}; }
    void FormLoaded(Form& /*form*/) override {}
    void FormUnloaded(Form& /*form*/) override {}
    void RunModal(Form& /*form*/) override {}
    void Repaint(Form& /*form*/) override {}
    Canvas& SurfaceOf(Form& /*form*/) override { return canvas; }
    std::int32_t ScreenWidthTwips() const override { return 1920 * kTwipsPerPixel; }
    std::int32_t ScreenHeightTwips() const override { return 1080 * kTwipsPerPixel; }
    void SetMousePointer(int /*shape*/) override {}
    void DoEvents() override {}
    void Sleep(int /*milliseconds*/) override {}
    BitmapPointer ImageOf(Form& /*form*/) override { return {}; }
    BitmapPointer CaptureArea(Form& /*form*/, bool /*clientOnly*/, std::int32_t /*left*/, std::int32_t /*top*/,
                              std::int32_t /*width*/, std::int32_t /*height*/) override {
        return {};
    }
    void SavePicture(const Bitmap& /*picture*/, const std::string& /*path*/) override {}
    void ClearClipboard() override {}
    void SetClipboardText(const std::string& /*text*/) override {}
    void SetClipboardPicture(const Bitmap& /*picture*/) override {}
    std::vector<std::string> PrinterNames() override { return {}; }
    std::string SystemDefaultPrinter() override { return {}; }
    void SelectPrinter(std::size_t /*number*/) override {}
    Printer& CurrentPrinter() override { Fail(FailureCode::kPrinterError); }
    bool AnotherInstanceRuns() override { return false; }
};

}  // namespace halvern::bench
