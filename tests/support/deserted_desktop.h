#pragma once

#include "store/failure.h"
#include "ui/canvas.h"
#include "ui/desktop.h"
#include "ui/form.h"

namespace halvern::test {

/// A desktop with nobody before it, no screen and no printer: questions are answered yes, dialogs of files cancelled,
/// drawings lost. It is the desktop in use while it lives.
class DesertedDesktop : public Desktop {
  public:
    DesertedDesktop() { UseDesktop(this); }
    ~DesertedDesktop() override { UseDesktop(nullptr); }
    DesertedDesktop(const DesertedDesktop&) = delete;
    DesertedDesktop& operator=(const DesertedDesktop&) = delete;

    Answer AskUser(const std::string& /*text*/, int style, const std::string& /*title*/) override {
        return (style & kYesNo) == 0 ? Answer::kOk : Answer::kYes;
    }
    std::optional<std::string> AskForExistingFile(const FileDialog& /*dialog*/) override { return {}; }
    std::optional<std::string> AskForNewFile(const FileDialog& /*dialog*/) override { return {}; }
    void FormLoaded(Form& /*form*/) override {}
    void FormUnloaded(Form& /*form*/) override {}
    void RunModal(Form& form) override { form.Hide(); }
    void Repaint(Form& /*form*/) override {}
    Canvas& SurfaceOf(Form& /*form*/) override { return surface_; }
    std::int32_t ScreenWidthTwips() const override { return 1024 * kTwipsPerPixel; }
    std::int32_t ScreenHeightTwips() const override { return 768 * kTwipsPerPixel; }
    void SetMousePointer(int /*shape*/) override {}
    void DoEvents() override {}
    void Sleep(int /*milliseconds*/) override {}
    BitmapPointer ImageOf(Form& /*form*/) override { return nullptr; }
    BitmapPointer CaptureArea(Form& /*form*/, bool /*clientOnly*/, std::int32_t /*left*/, std::int32_t /*top*/,
                              std::int32_t /*width*/, std::int32_t /*height*/) override {
        return nullptr;
    }
    void SavePicture(const Bitmap& /*picture*/, const std::string& path) override {
        Fail(FailureCode::kDeviceError, path);
    }
    void ClearClipboard() override {}
    void SetClipboardText(const std::string& /*text*/) override {}
    void SetClipboardPicture(const Bitmap& /*picture*/) override {}
    std::vector<std::string> PrinterNames() override { return {}; }
    std::string SystemDefaultPrinter() override { return {}; }
    void SelectPrinter(std::size_t /*number*/) override {}
    Printer& CurrentPrinter() override { Fail(FailureCode::kPrinterError); }
    bool AnotherInstanceRuns() override { return false; }

  private:
    NullCanvas surface_;
};

}  // namespace halvern::test
