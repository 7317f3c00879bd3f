#pragma once

#include <climits>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/recording_canvas.h"
#include "ui/canvas.h"
#include "ui/desktop.h"
#include "ui/form.h"
#include "ui/printer.h"

namespace halvern::test {

/// What a message box asked, and what it was answered.
struct Message {
    std::string text;
    int style;
    std::string title;
    Answer answer;
};

/// A desktop without a screen: it answers from the queues that the test has filled, and keeps what it was told.
///
/// It is the desktop in use while it lives.
class TestDesktop : public Desktop, public Printer, private ControlObserver {
  public:
    TestDesktop() { UseDesktop(this); }
    ~TestDesktop() override { UseDesktop(nullptr); }
    TestDesktop(const TestDesktop&) = delete;
    TestDesktop& operator=(const TestDesktop&) = delete;

    /// Answers to come, for boxes of Yes and No; the test fails when there is none.
    std::deque<Answer> answers;
    /// Files to choose; nothing stands for a cancel. The test fails when there is none.
    std::deque<std::optional<std::string>> choices;
    std::vector<std::string> printers;
    std::string defaultPrinter;
    bool anotherInstance = false;
    std::int32_t screenWidthPixels = 1024, screenHeightPixels = 768;
    /// Called when a window is loaded, before its Form_Load.
    std::function<void(Form&)> atLoad;
    /// What the user does with each dialog to come; the test fails when there is nothing, or the dialog stays.
    std::deque<std::function<void(Form&)>> dialogs;
    RecordingCanvas surface;
    /// Called at each pass through the event queue.
    std::function<void()> atPass;

    std::vector<Message> messages;
    std::vector<FileDialog> fileDialogs;
    std::vector<Form*> loaded;
    int pointer = kPointerNormal;
    std::vector<int> pointers;
    std::vector<std::size_t> printersSelected;
    /// What became of the clipboard, in its order: "cleared", "text ...", "picture 665x499".
    std::vector<std::string> clipboard;
    bool clipboardFails = false;
    /// What was printed, in its order: "line ...", "portrait", "picture 665x499 at 1,2 size 3,4", "end".
    std::vector<std::string> printed;
    /// Size of the printer's page in portrait, twips.
    float pageWidth = 12240.0F, pageHeight = 15840.0F;
    /// Lines, pictures and ends of documents that the printer takes before it fails.
    int printsBeforeFault = INT_MAX;
    /// What was captured of windows: "client 0,0 665x499".
    std::vector<std::string> captures;
    /// Pictures saved, "665x499 PATH"; where the fault is set they can't be.
    std::vector<std::string> pictures;
    bool picturesFail = false;
    /// What happened to windows and time, in its order: "load Keld", "show Keld", "100 passes", "sleep 1750", ...
    std::vector<std::string> story;
    /// What happened to the windows that tell progress, which the story leaves out: "show cmpltfrm", "repaint cmpltfrm".
    std::vector<std::string> progress;

    Answer AskUser(const std::string& text, int style, const std::string& title) override;
    std::optional<std::string> AskForExistingFile(const FileDialog& dialog) override;
    std::optional<std::string> AskForNewFile(const FileDialog& dialog) override;
    void FormLoaded(Form& form) override;
    void FormUnloaded(Form& form) override;
    void RunModal(Form& form) override;
    void Repaint(Form& form) override;
    Canvas& SurfaceOf(Form& form) override;
    std::int32_t ScreenWidthTwips() const override { return screenWidthPixels * kTwipsPerPixel; }
    std::int32_t ScreenHeightTwips() const override { return screenHeightPixels * kTwipsPerPixel; }
    void SetMousePointer(int shape) override;
    void DoEvents() override;
    void Sleep(int milliseconds) override;
    std::vector<std::string> PrinterNames() override { return printers; }
    std::string SystemDefaultPrinter() override { return defaultPrinter; }
    void SelectPrinter(std::size_t number) override { printersSelected.push_back(number); }
    Printer& CurrentPrinter() override { return *this; }
    BitmapPointer ImageOf(Form& form) override;
    BitmapPointer CaptureArea(Form& form, bool clientOnly, std::int32_t left, std::int32_t top, std::int32_t width,
                              std::int32_t height) override;
    void SavePicture(const Bitmap& picture, const std::string& path) override;
    void ClearClipboard() override { clipboard.emplace_back("cleared"); }
    void SetClipboardText(const std::string& text) override;
    void SetClipboardPicture(const Bitmap& picture) override;
    bool AnotherInstanceRuns() override { return anotherInstance; }

    void SetOrientation(Orientation orientation) override;
    float ScaleWidth() override { return lying_ ? pageHeight : pageWidth; }
    float ScaleHeight() override { return lying_ ? pageWidth : pageHeight; }
    void PrintLine(std::string_view text) override;
    void PaintPicture(const Bitmap& picture, double left, double top, double width, double height) override;
    void EndDocument() override;

  private:
    void ControlChanged(Control& control) override;
    std::optional<std::string> Choice(const FileDialog& dialog);

    void TakePrint(std::string what);

    int passes_ = 0;
    bool lying_ = false;  ///< the page
    std::set<Control*> shown_;
};

/// The report as it stands.
std::vector<std::string> ReportLines();

}  // namespace halvern::test
