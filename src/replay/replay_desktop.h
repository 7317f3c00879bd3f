#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "replay/names.h"
#include "replay/print.h"
#include "replay/replay_printer.h"
#include "ui/canvas.h"
#include "ui/desktop.h"
#include "ui/form.h"
#include "ui/text_box.h"

namespace halvern::replay {

/// Where the answers to the program's questions come from: the lines of the script that follow.
class AnswerSource {
  public:
    virtual bool AnswerComesNext() const = 0;
    /// Carries out the next line, or leaves for good with an exception.
    virtual void CarryOutNextLine() = 0;

  protected:
    ~AnswerSource() = default;
};

/// What the program waits for in the middle of a command.
enum class Question { kNone, kMessageBox, kFileDialog };

/// The desktop of a replay: a screen that nobody sees, one printer, and questions that the script answers.
///
/// A question returns when a line has answered it; until then the script is read on. It is the desktop in use while it
/// lives.
class ReplayDesktop : public Desktop {
  public:
    /// Given     answers   read on with while a question waits
    ///           out       takes the message boxes, when they are answered
    ReplayDesktop(AnswerSource& answers, std::ostream& out);
    ~ReplayDesktop() override;
    ReplayDesktop(const ReplayDesktop&) = delete;
    ReplayDesktop& operator=(const ReplayDesktop&) = delete;

    std::ostream& Out() { return out_; }

    /// Before the program starts.
    void SetScreen(std::int32_t widthPixels, std::int32_t heightPixels, bool printer);
    static constexpr std::int32_t kMostPixels = 0x7FFFFFFF / kTwipsPerPixel;

    /// The windows that are loaded, in the order of their loading. The program runs as long as there is one.
    const std::vector<Form*>& LoadedForms() const { return loadedForms_; }

    /// The modal dialog that is open, the innermost one; null for none.
    Form* OpenDialogForm() const { return dialogs_.empty() ? nullptr : dialogs_.back(); }

    /// The box of the open dialog that has kept the focus, its text refused, or has taken it back; null for none.
    TextBox* FocusedBox() const { return focusedBox_; }
    void SetFocusedBox(TextBox* box) { focusedBox_ = box; }

    PrintedDesktop WhatCanBePrinted() const { return {OpenDialogForm(), clipboard_, printer_.Printed()}; }

    OpenWindows Windows() const { return {loadedForms_, OpenDialogForm()}; }

    Question OpenQuestion() const;

    /// Answers the message box that is open.
    ///
    /// Throws ScriptError for a button that the box has not
    void AnswerBox(Answer answer);

    /// Accepts the file dialog that is open. The path is made absolute, `.` and `..` are taken out, links are left alone.
    ///
    /// Throws ScriptError for a path that the dialog does not take
    void Choose(const std::string& path);

    /// Cancels the file dialog that is open.
    void Cancel();

    /// Draws a window on another surface: what `paint` does to the window's goes there.
    ///
    /// Note      no box comes up meanwhile. The program has said what there is to say when it showed the window, and a
    ///           drawing can be made while another question waits
    void DrawOn(Form& form, Canvas& surface, const std::function<void()>& paint);

    Answer AskUser(const std::string& text, int style, const std::string& title) override;
    std::optional<std::string> AskForExistingFile(const FileDialog& dialog) override;
    std::optional<std::string> AskForNewFile(const FileDialog& dialog) override;
    void FormLoaded(Form& form) override;
    void FormUnloaded(Form& form) override;
    void RunModal(Form& form) override;
    void Repaint(Form& /*form*/) override {}
    Canvas& SurfaceOf(Form& form) override;
    std::int32_t ScreenWidthTwips() const override { return widthPixels_ * kTwipsPerPixel; }
    std::int32_t ScreenHeightTwips() const override { return heightPixels_ * kTwipsPerPixel; }
    void SetMousePointer(int /*shape*/) override {}
    /// The events stand in the script, and each waits for its turn.
    void DoEvents() override {}
    void Sleep(int /*milliseconds*/) override {}
    BitmapPointer ImageOf(Form& form) override;
    /// No screen shows the window: the picture has the size of the rectangle, and nothing on it.
    BitmapPointer CaptureArea(Form& form, bool clientOnly, std::int32_t left, std::int32_t top, std::int32_t width,
                              std::int32_t height) override;
    void SavePicture(const Bitmap& picture, const std::string& path) override;
    void ClearClipboard() override { clipboard_ = "empty"; }
    void SetClipboardText(const std::string& text) override { clipboard_ = "text " + Quoted(text); }
    void SetClipboardPicture(const Bitmap& picture) override;
    std::vector<std::string> PrinterNames() override;
    std::string SystemDefaultPrinter() override;
    void SelectPrinter(std::size_t /*number*/) override {}
    Printer& CurrentPrinter() override;
    /// Replays may run side by side.
    bool AnotherInstanceRuns() override { return false; }

  private:
    struct OpenBox {
        bool yesNo;
        std::optional<Answer> answer;
    };
    struct OpenDialog {
        const FileDialog* settings;
        bool forExistingFile;
        bool answered = false;
        std::optional<std::string> path;
    };

    std::optional<std::string> AskForFile(const FileDialog& dialog, bool forExistingFile);

    AnswerSource& answers_;
    std::ostream& out_;
    std::int32_t widthPixels_ = 1024;
    std::int32_t heightPixels_ = 768;
    bool hasPrinter_ = true;
    std::vector<Form*> loadedForms_;
    std::vector<Form*> dialogs_;
    TextBox* focusedBox_ = nullptr;
    NullCanvas surface_;
    ReplayPrinter printer_;
    std::string clipboard_ = "empty";
    struct OtherSurface {
        Form* form;
        Canvas* surface;
    };
    std::optional<OtherSurface> other_;
    std::optional<OpenBox> box_;
    std::optional<OpenDialog> dialog_;
};

}  // namespace halvern::replay
