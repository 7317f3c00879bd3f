#include "replay/replay_desktop.h"

#include <filesystem>
#include <memory>
#include <ostream>
#include <system_error>

#include "replay/render.h"
#include "replay/script.h"
#include "store/failure.h"

namespace halvern::replay {

namespace {

constexpr const char* kPrinter = "Replay";

/// The name that a dialog hands over for what was typed into it.
std::filesystem::path Accepted(const FileDialog& dialog, const std::filesystem::path& typed) {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    if (error && !typed.is_absolute())
        throw ScriptError("the current directory is gone");
    std::filesystem::path path = (folder / typed).lexically_normal();
    if (!dialog.defaultExtension.empty() && path.has_filename() && !path.has_extension())
        path += "." + dialog.defaultExtension;
    return path;
}

bool IsFileThatExists(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

}  // namespace

ReplayDesktop::ReplayDesktop(AnswerSource& answers, std::ostream& out) : answers_(answers), out_(out) {
    UseDesktop(this);
}

ReplayDesktop::~ReplayDesktop() { UseDesktop(nullptr); }

void ReplayDesktop::SetScreen(std::int32_t widthPixels, std::int32_t heightPixels, bool printer) {
    widthPixels_ = widthPixels;
    heightPixels_ = heightPixels;
    hasPrinter_ = printer;
}

Question ReplayDesktop::OpenQuestion() const {
    if (box_.has_value())
        return Question::kMessageBox;
    return dialog_.has_value() ? Question::kFileDialog : Question::kNone;
}

void ReplayDesktop::AnswerBox(Answer answer) {
    if (box_->yesNo && answer == Answer::kOk)
        throw ScriptError("the message box asks for yes or no");
    if (!box_->yesNo && answer != Answer::kOk)
        throw ScriptError("the message box has OK alone");
    box_->answer = answer;
}

void ReplayDesktop::DrawOn(Form& form, Canvas& surface, const std::function<void()>& paint) {
    struct Elsewhere {
        std::optional<OtherSurface>& other;
        ~Elsewhere() { other.reset(); }
    };
    const Elsewhere elsewhere{other_};
    other_ = OtherSurface{&form, &surface};
    paint();
}

Answer ReplayDesktop::AskUser(const std::string& text, int style, const std::string& title) {
    if (other_.has_value())
        return Answer::kOk;
    box_ = OpenBox{.yesNo = (style & kYesNo) != 0, .answer = {}};
    // Nobody has to take notice of a box that leaves no choice: it goes away when the script goes on without it.
    if (!box_->yesNo && !answers_.AnswerComesNext())
        box_->answer = Answer::kOk;
    while (!box_->answer.has_value())
        answers_.CarryOutNextLine();
    const Answer answer = *box_->answer;
    box_.reset();
    PrintMessage(out_, {.style = style, .title = title, .text = text, .answer = answer});
    return answer;
}

void ReplayDesktop::Choose(const std::string& path) {
    const std::filesystem::path accepted = Accepted(*dialog_->settings, path);
    if (dialog_->forExistingFile && !IsFileThatExists(accepted))
        throw ScriptError("no such file: " + path);
    if (!accepted.has_filename())
        throw ScriptError("no name of a file: " + path);
    dialog_->path = accepted.string();
    dialog_->answered = true;
}

void ReplayDesktop::Cancel() { dialog_->answered = true; }

std::optional<std::string> ReplayDesktop::AskForExistingFile(const FileDialog& dialog) {
    return AskForFile(dialog, true);
}

std::optional<std::string> ReplayDesktop::AskForNewFile(const FileDialog& dialog) { return AskForFile(dialog, false); }

std::optional<std::string> ReplayDesktop::AskForFile(const FileDialog& dialog, bool forExistingFile) {
    dialog_ = OpenDialog{.settings = &dialog, .forExistingFile = forExistingFile, .answered = false, .path = {}};
    while (!dialog_->answered)
        answers_.CarryOutNextLine();
    const auto path = std::move(dialog_->path);
    dialog_.reset();
    return path;
}

void ReplayDesktop::FormLoaded(Form& form) { loadedForms_.push_back(&form); }

void ReplayDesktop::FormUnloaded(Form& form) { std::erase(loadedForms_, &form); }

Canvas& ReplayDesktop::SurfaceOf(Form& form) {
    if (other_.has_value() && other_->form == &form)
        return *other_->surface;
    const auto pixels = [](std::int32_t twips) { return static_cast<float>(twips) / kTwipsPerPixel; };
    surface_.SetSize(pixels(form.Where().width), pixels(form.Where().height));
    return surface_;
}

void ReplayDesktop::RunModal(Form& form) {
    dialogs_.push_back(&form);
    while (form.IsShown())
        answers_.CarryOutNextLine();
    dialogs_.pop_back();
    focusedBox_ = nullptr;
}

namespace {

/// A picture of a window: only its size is known before it is to go into a file.
struct WindowPicture final : Bitmap {
    WindowPicture(std::int32_t pixelsWide, std::int32_t pixelsHigh) : width(pixelsWide), height(pixelsHigh) {}
    std::int32_t PixelWidth() const override { return width; }
    std::int32_t PixelHeight() const override { return height; }

    std::int32_t width, height;
};

}  // namespace

BitmapPointer ReplayDesktop::ImageOf(Form& form) {
    return std::make_shared<WindowPicture>(PixelsOf(form.Where().width), PixelsOf(form.Where().height));
}

BitmapPointer ReplayDesktop::CaptureArea(Form& /*form*/, bool /*clientOnly*/, std::int32_t /*left*/,
                                         std::int32_t /*top*/, std::int32_t width, std::int32_t height) {
    return std::make_shared<WindowPicture>(width, height);
}

// The plot window's is the one picture that the program saves.
void ReplayDesktop::SavePicture(const Bitmap& /*picture*/, const std::string& path) { WritePlotBitmap(*this, path); }

void ReplayDesktop::SetClipboardPicture(const Bitmap& picture) {
    clipboard_ = "picture " + std::to_string(picture.PixelWidth()) + 'x' + std::to_string(picture.PixelHeight());
}

Printer& ReplayDesktop::CurrentPrinter() {
    if (!hasPrinter_)
        Fail(FailureCode::kPrinterError);
    return printer_;
}

std::vector<std::string> ReplayDesktop::PrinterNames() {
    if (!hasPrinter_)
        return {};
    return {kPrinter};
}

std::string ReplayDesktop::SystemDefaultPrinter() { return hasPrinter_ ? kPrinter : ""; }

}  // namespace halvern::replay
