#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/bitmap.h"

namespace halvern {

class Canvas;
class Form;
class Printer;

/// Styles of a message box; they add up.
inline constexpr int kOkOnly = 0, kYesNo = 4, kCritical = 16, kQuestion = 32, kExclamation = 48, kDefaultSecond = 256;

/// The icon's part of a style.
inline constexpr int kIconMask = 0x70;

enum class Answer { kOk = 1, kYes = 6, kNo = 7 };

/// Shapes of the mouse pointer.
inline constexpr int kPointerNormal = 0, kPointerHourglass = 11;

/// The settings of one file dialog.
struct FileDialog {
    std::string title;
    /// "description|pattern", more pairs behind further bars; blanks around a pattern are no part of it.
    std::string filter;
    /// Sum of the flags below.
    int flags = 0;
    /// Added to a name that has none, without the dot; empty for none.
    std::string defaultExtension;
    /// Name that stands in the dialog at first.
    std::string fileName;
    /// Longest name that the design provides for, in characters.
    int maxFileSize = 127;
};
inline constexpr int kAskBeforeOverwriting = 2, kPathMustExist = 2048, kFileMustExist = 4096, kAskBeforeCreating = 8192;

/// Message boxes: plain text, line breaks as carriage return and line feed. Returns when the user has answered.
class MessageBoxes {
  public:
    virtual Answer AskUser(const std::string& text, int style, const std::string& title) = 0;

  protected:
    ~MessageBoxes() = default;
};

/// File dialogs: the absolute path chosen, in the file system's bytes, or nothing when the user cancelled.
class FileDialogs {
  public:
    virtual std::optional<std::string> AskForExistingFile(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> AskForNewFile(const FileDialog& dialog) = 0;

  protected:
    ~FileDialogs() = default;
};

/// The windows and the screen that they stand on. A form is shown and hidden through its model.
class Windows {
  public:
    virtual void FormLoaded(Form& form) = 0;
    virtual void FormUnloaded(Form& form) = 0;
    /// Returns when the form, which is shown, has been hidden or unloaded.
    virtual void RunModal(Form& form) = 0;
    /// Shows at once what has changed on a form that is loaded.
    virtual void Repaint(Form& form) = 0;
    /// The surface that a form draws on, as large as its client area.
    virtual Canvas& SurfaceOf(Form& form) = 0;
    virtual std::int32_t ScreenWidthTwips() const = 0;
    virtual std::int32_t ScreenHeightTwips() const = 0;
    virtual void SetMousePointer(int shape) = 0;

  protected:
    ~Windows() = default;
};

/// The event queue of the one thread.
class EventQueue {
  public:
    /// One pass through the waiting events.
    virtual void DoEvents() = 0;
    virtual void Sleep(int milliseconds) = 0;

  protected:
    ~EventQueue() = default;
};

/// Pictures of windows.
class Pictures {
  public:
    /// What a form has drawn on its surface, also where other windows cover it.
    virtual BitmapPointer ImageOf(Form& form) = 0;

    /// What the screen shows of a window.
    ///
    /// Given     clientOnly                  positions count from the top left of the client area, not of the frame
    ///           left, top, width, height    pixels
    virtual BitmapPointer CaptureArea(Form& form, bool clientOnly, std::int32_t left, std::int32_t top,
                                      std::int32_t width, std::int32_t height) = 0;

    /// Writes a Windows bitmap of 24 bits a pixel.
    ///
    /// Given     path   in the file system's bytes
    /// Fails     with the number of what kept it from being written; a file of that name stays as it was
    virtual void SavePicture(const Bitmap& picture, const std::string& path) = 0;

  protected:
    ~Pictures() = default;
};

/// What other programs can paste. Setting it fails 521 where the display does not take it.
class Clipboard {
  public:
    virtual void ClearClipboard() = 0;
    virtual void SetClipboardText(const std::string& text) = 0;
    virtual void SetClipboardPicture(const Bitmap& picture) = 0;

  protected:
    ~Clipboard() = default;
};

/// The installed printers, counted from 0 here; the program's menus count them from 1.
class Printers {
  public:
    virtual std::vector<std::string> PrinterNames() = 0;
    /// Name of the system's default printer, empty if it has none.
    virtual std::string SystemDefaultPrinter() = 0;
    /// Given     number   0 .. PrinterNames().size() - 1
    virtual void SelectPrinter(std::size_t number) = 0;
    /// The one that was selected last. Fails 482 when none has been.
    virtual Printer& CurrentPrinter() = 0;

  protected:
    ~Printers() = default;
};

/// Everything that the program asks of the platform.
class Desktop : public MessageBoxes,
                public FileDialogs,
                public Windows,
                public EventQueue,
                public Pictures,
                public Clipboard,
                public Printers {
  public:
    virtual ~Desktop() = default;

    /// Whether another instance of this program runs for this user.
    virtual bool AnotherInstanceRuns() = 0;
};

/// The desktop in use. A program sets it once, before anything else; null takes it away again.
Desktop& TheDesktop();
void UseDesktop(Desktop* desktop);

/// Title of message boxes that the design gives none.
inline constexpr std::string_view kProgramTitle = "Halvern";

Answer MsgBox(const std::string& text, int style = kOkOnly, std::string_view title = kProgramTitle);
void MousePointer(int shape);
void DoEvents();

/// Thrown to leave the running handler for good; only the adapters' outermost level catches it.
struct ProgramEnd {};

/// Ends the whole program at once: no further handler runs, nothing is asked, no file is closed.
[[noreturn]] void EndProgram();

}  // namespace halvern
