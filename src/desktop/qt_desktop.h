#pragma once

#include <QWidget>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/event_gate.h"
#include "desktop/file_dialog.h"
#include "desktop/form_view.h"
#include "desktop/installed_printers.h"
#include "desktop/paper_printer.h"
#include "desktop/single_instance.h"
#include "ui/desktop.h"

namespace halvern {

/// The desktop on Qt Widgets. There has to be an application object.
class QtDesktop : public Desktop {
  public:
    /// Given     askForPrinters   how to ask for the printers; begun at once, on a thread of its own
    explicit QtDesktop(std::function<PrinterList()> askForPrinters = AskPrintSystem);
    ~QtDesktop() override;
    QtDesktop(const QtDesktop&) = delete;
    QtDesktop& operator=(const QtDesktop&) = delete;

    /// Runs the program: `start` as the first event, then events until the program ends, which it also does when an
    /// event has left no form loaded. Returns the exit status.
    int Run(const std::function<void()>& start);

    EventGate& Gate() { return gate_; }

    /// How long a command lasts before a window tells of its progress.
    std::chrono::milliseconds patience{300};

    /// The window of a loaded form; null for one that has not been shown yet.
    FormWindow* WindowOf(Form& form) const;

    /// Name of the current printer, empty without one.
    const std::string& CurrentPrinterName() const { return printer_.Name(); }
    /// Whether the print system still owes its answer, see InstalledPrinters.
    bool StillAskingForPrinters() const { return printers_.StillAsking(); }

    Answer AskUser(const std::string& text, int style, const std::string& title) override;
    std::optional<std::string> AskForExistingFile(const FileDialog& dialog) override;
    std::optional<std::string> AskForNewFile(const FileDialog& dialog) override;
    void FormLoaded(Form& form) override;
    void FormUnloaded(Form& form) override;
    void RunModal(Form& form) override;
    void Repaint(Form& form) override;
    Canvas& SurfaceOf(Form& form) override;
    std::int32_t ScreenWidthTwips() const override;
    std::int32_t ScreenHeightTwips() const override;
    void SetMousePointer(int shape) override;
    void DoEvents() override;
    void Sleep(int milliseconds) override;
    BitmapPointer ImageOf(Form& form) override;
    BitmapPointer CaptureArea(Form& form, bool clientOnly, std::int32_t left, std::int32_t top, std::int32_t width,
                              std::int32_t height) override;
    void SavePicture(const Bitmap& picture, const std::string& path) override;
    void ClearClipboard() override;
    void SetClipboardText(const std::string& text) override;
    void SetClipboardPicture(const Bitmap& picture) override;
    std::vector<std::string> PrinterNames() override;
    std::string SystemDefaultPrinter() override;
    void SelectPrinter(std::size_t number) override;
    Printer& CurrentPrinter() override { return printer_; }
    bool AnotherInstanceRuns() override;

  private:
    QWidget* ParentOfBoxes() const;
    /// Around each box. The first returns the window that the box belongs to (null: none), the second takes it back.
    QWidget* OpenBox();
    void CloseBox(QWidget* parent);
    void CountBoxes(int more);
    bool AllShownAreOnTheScreen() const;
    void AwaitTheScreen();
    void ProgressStandsBack();
    std::optional<std::string> AskForFile(const FileDialog& dialog, FileDialogKind kind);
    void ShowPointer();

    EventGate gate_;
    InstalledPrinters printers_;
    SingleInstance instance_;
    std::map<Form*, std::unique_ptr<FormView>> forms_;
    PaperPrinter printer_;
    int pointer_ = kPointerNormal;
    int openBoxes_ = 0;
};

}  // namespace halvern
