#include "support/test_desktop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

#include "store/failure.h"
#include "store/report.h"

namespace halvern::test {

Answer TestDesktop::AskUser(const std::string& text, int style, const std::string& title) {
    Answer answer = Answer::kOk;
    if ((style & kYesNo) != 0) {
        if (answers.empty())
            throw std::logic_error("the test has no answer for: " + text);
        answer = answers.front();
        answers.pop_front();
    }
    messages.push_back({text, style, title, answer});
    return answer;
}

std::optional<std::string> TestDesktop::Choice(const FileDialog& dialog) {
    fileDialogs.push_back(dialog);
    if (choices.empty())
        throw std::logic_error("the test has no file for: " + dialog.title);
    auto choice = choices.front();
    choices.pop_front();
    return choice;
}

std::optional<std::string> TestDesktop::AskForExistingFile(const FileDialog& dialog) { return Choice(dialog); }

std::optional<std::string> TestDesktop::AskForNewFile(const FileDialog& dialog) { return Choice(dialog); }

void TestDesktop::FormLoaded(Form& form) {
    loaded.push_back(&form);
    story.push_back("load " + form.Name());
    form.Observe(this);
    if (atLoad)
        atLoad(form);
}

void TestDesktop::FormUnloaded(Form& form) {
    std::erase(loaded, &form);
    form.Observe(nullptr);
    story.push_back("unload " + form.Name());
}

namespace {

struct TestBitmap final : Bitmap {
    TestBitmap(std::int32_t pixelsWide, std::int32_t pixelsHigh) : width(pixelsWide), height(pixelsHigh) {}
    std::int32_t PixelWidth() const override { return width; }
    std::int32_t PixelHeight() const override { return height; }
    std::int32_t width, height;
};

std::string SizeOf(const Bitmap& picture) {
    return std::to_string(picture.PixelWidth()) + 'x' + std::to_string(picture.PixelHeight());
}

std::string Pair(double first, double second) {
    char text[64];
    std::snprintf(text, sizeof text, "%.3f,%.3f", first, second);
    return text;
}

}  // namespace

BitmapPointer TestDesktop::ImageOf(Form& form) {
    const Place& place = form.Where();
    return std::make_shared<TestBitmap>(place.width / kTwipsPerPixel, place.height / kTwipsPerPixel);
}

BitmapPointer TestDesktop::CaptureArea(Form& form, bool clientOnly, std::int32_t left, std::int32_t top,
                                       std::int32_t width, std::int32_t height) {
    const auto picture = std::make_shared<TestBitmap>(width, height);
    captures.push_back(form.Name() + (clientOnly ? " client " : " window ") + std::to_string(left) + ',' +
                       std::to_string(top) + ' ' + SizeOf(*picture));
    return picture;
}

void TestDesktop::SavePicture(const Bitmap& picture, const std::string& path) {
    if (picturesFail)
        Fail(FailureCode::kDeviceError, path);
    pictures.push_back(SizeOf(picture) + ' ' + path);
}

void TestDesktop::SetClipboardText(const std::string& text) {
    if (clipboardFails)
        Fail(FailureCode::kClipboardError);
    clipboard.push_back("text " + text);
}

void TestDesktop::SetClipboardPicture(const Bitmap& picture) {
    if (clipboardFails)
        Fail(FailureCode::kClipboardError);
    clipboard.push_back("picture " + SizeOf(picture));
}

void TestDesktop::SetOrientation(Orientation orientation) {
    lying_ = orientation == Orientation::kLandscape;
    printed.emplace_back(lying_ ? "landscape" : "portrait");
}

void TestDesktop::TakePrint(std::string what) {
    if (printsBeforeFault-- <= 0)
        Fail(FailureCode::kPrinterError);
    printed.push_back(std::move(what));
}

void TestDesktop::PrintLine(std::string_view text) { TakePrint("line " + std::string(text)); }

void TestDesktop::PaintPicture(const Bitmap& picture, double left, double top, double width, double height) {
    TakePrint("picture " + SizeOf(picture) + " at " + Pair(left, top) + " size " + Pair(width, height));
}

void TestDesktop::EndDocument() {
    TakePrint("end");
    lying_ = false;
}

void TestDesktop::Repaint(Form& form) { progress.push_back("repaint " + form.Name()); }

Canvas& TestDesktop::SurfaceOf(Form& form) {
    const Place& place = form.Where();
    surface.SetSize(static_cast<float>(place.width) / kTwipsPerPixel,
                    static_cast<float>(place.height) / kTwipsPerPixel);
    return surface;
}

void TestDesktop::ControlChanged(Control& control) {
    const auto* form = dynamic_cast<const Form*>(&control);
    if (form != nullptr && form->TellsProgress()) {
        progress.push_back((control.IsShown() ? "show " : "hide ") + control.Name());
        return;
    }
    if (control.IsShown() && shown_.insert(&control).second)
        story.push_back("show " + control.Name());
    else if (!control.IsShown() && shown_.erase(&control) != 0)
        story.push_back("hide " + control.Name());
}

void TestDesktop::RunModal(Form& form) {
    if (dialogs.empty())
        throw std::logic_error("the test does nothing with the dialog " + form.Name());
    const auto act = dialogs.front();
    dialogs.pop_front();
    act(form);
    if (form.IsShown())
        throw std::logic_error("the test leaves the dialog open: " + form.Name());
}

void TestDesktop::SetMousePointer(int shape) {
    pointer = shape;
    pointers.push_back(shape);
}

void TestDesktop::DoEvents() {
    ++passes_;
    const std::string told = std::to_string(passes_) + (passes_ == 1 ? " pass" : " passes");
    if (passes_ > 1 && !story.empty() && story.back().find(" pass") != std::string::npos)
        story.back() = told;
    else {
        passes_ = 1;
        story.push_back("1 pass");
    }
    if (atPass)
        atPass();
}

void TestDesktop::Sleep(int milliseconds) { story.push_back("sleep " + std::to_string(milliseconds)); }

std::vector<std::string> ReportLines() {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < OutFileBox().ListCount(); ++i)
        lines.push_back(OutFileBox().Line(i));
    return lines;
}

}  // namespace halvern::test
