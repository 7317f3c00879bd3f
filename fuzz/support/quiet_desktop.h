#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/failure.h"
#include "ui/canvas.h"
#include "ui/desktop.h"
#include "ui/form.h"

namespace halvern::fuzz {

/// A desktop without screen and printer. Message boxes are answered by the letters of a text, over and over: 'n' is no; the
/// rest is up to the target. It is the desktop in use while it lives.
class QuietDesktop final : public Desktop {
  public:
    explicit QuietDesktop(std::string_view answers) : answers_(answers) { UseDesktop(this); }
    ~QuietDesktop() override { UseDesktop(nullptr); }
    QuietDesktop(const QuietDesktop&) = delete;
    QuietDesktop& operator=(const QuietDesktop&) = delete;

    /// What a file dialog is answered; nothing cancels it.
    std::optional<std::string> choice;
    /// What the user does in a dialog; afterwards it is closed.
    std::function<void(Form&)> dialog;

    Answer AskUser(const std::string& /*text*/, int style, const std::string& /*title*/) override {
        if ((style & kYesNo) == 0)
            return Answer::kOk;
        const bool no = !answers_.empty() && answers_[asked_++ % answers_.size()] == 'n';
        return no ? Answer::kNo : Answer::kYes;
    }
    std::optional<std::string> AskForExistingFile(const FileDialog& /*dialog*/) override { return choice; }
    std::optional<std::string> AskForNewFile(const FileDialog& /*dialog*/) override { return choice; }
    void FormLoaded(Form& /*form*/) override {}
    void FormUnloaded(Form& /*form*/) override {}
    void RunModal(Form& form) override {
        if (dialog)
            dialog(form);
        form.Hide();
    }
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
    std::string answers_;
    std::size_t asked_ = 0;
    NullCanvas surface_;
};

}  // namespace halvern::fuzz
