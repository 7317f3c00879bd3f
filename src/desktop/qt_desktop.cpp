#include "desktop/qt_desktop.h"

#include <QApplication>
#include <QBuffer>
#include <QByteArray>
#include <QClipboard>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <utility>

#include "desktop/image_bitmap.h"
#include "desktop/message_box.h"
#include "desktop/pixels.h"
#include "desktop/screen_capture.h"
#include "store/failure.h"
#include "store/file_calls.h"
#include "store/system_failure.h"

namespace halvern {

namespace {

void FailUnlessClipboardIsOurs() {
    if (!QGuiApplication::clipboard()->ownsClipboard())
        Fail(FailureCode::kClipboardError);
}

QSize ScreenSize() { return QGuiApplication::primaryScreen()->geometry().size(); }

}  // namespace

QtDesktop::QtDesktop(std::function<PrinterList()> askForPrinters) : printers_(std::move(askForPrinters)) {
    gate_.TellFailure = [this](const std::string& text) {
        SetMousePointer(kPointerNormal);
        ProgressStandsBack();
        MessageBoxWindow(ParentOfBoxes(), text, kCritical, std::string(kProgramTitle)).Ask();
    };
    gate_.AfterEvent = [this] {
        if (forms_.empty())
            gate_.End(0);
    };
}

QtDesktop::~QtDesktop() {
    SetMousePointer(kPointerNormal);
    forms_.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int QtDesktop::Run(const std::function<void()>& start) {
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { gate_.Run(start); }, Qt::QueuedConnection);
    const int status = QApplication::exec();
    return gate_.HasEnded() ? gate_.Status() : status;
}

FormWindow* QtDesktop::WindowOf(Form& form) const {
    const auto found = forms_.find(&form);
    return found == forms_.end() ? nullptr : found->second->Window();
}

Answer QtDesktop::AskUser(const std::string& text, int style, const std::string& title) {
    gate_.ThrowIfEnded();
    const QPointer<QWidget> parent = OpenBox();
    const Answer answer = MessageBoxWindow(parent, text, style, title).Ask();
    CloseBox(parent);
    gate_.ThrowIfEnded();
    return answer;
}

std::optional<std::string> QtDesktop::AskForExistingFile(const FileDialog& dialog) {
    return AskForFile(dialog, FileDialogKind::kExistingFile);
}

std::optional<std::string> QtDesktop::AskForNewFile(const FileDialog& dialog) {
    return AskForFile(dialog, FileDialogKind::kNewFile);
}

std::optional<std::string> QtDesktop::AskForFile(const FileDialog& dialog, FileDialogKind kind) {
    gate_.ThrowIfEnded();
    const QPointer<QWidget> parent = OpenBox();
    auto chosen = FileDialogWindow(parent, dialog, kind).Ask();
    CloseBox(parent);
    gate_.ThrowIfEnded();
    return chosen;
}

QWidget* QtDesktop::OpenBox() {
    CountBoxes(+1);
    return ParentOfBoxes();
}

/// While the user is being asked, nothing else goes on.
void QtDesktop::CountBoxes(int more) {
    openBoxes_ += more;
    ShowPointer();
    ProgressStandsBack();
}

void QtDesktop::ProgressStandsBack() {
    for (const auto& [form, view] : forms_)
        view->StandBack();
}

/// Not every window manager gives the keyboard back to the window below.
void QtDesktop::CloseBox(QWidget* parent) {
    CountBoxes(-1);
    if (parent != nullptr && parent->isVisible())
        parent->activateWindow();
}

/// A box stands over the window that has brought it up, or that the user works with.
QWidget* QtDesktop::ParentOfBoxes() const {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    for (const auto& [form, view] : forms_)
        if (view->Window() != nullptr && view->Window()->IsTellingItIsUp())
            return view->Window();
    if (QWidget* active = QApplication::activeWindow())
        return active;
    for (const auto& [form, view] : forms_)
        if (view->Window() != nullptr && view->Window()->isVisible())
            return view->Window();
    return nullptr;
}

void QtDesktop::FormLoaded(Form& form) { forms_[&form] = std::make_unique<FormView>(form, gate_); }

void QtDesktop::FormUnloaded(Form& form) { forms_.erase(&form); }

void QtDesktop::RunModal(Form& form) {
    gate_.ThrowIfEnded();
    const auto view = forms_.find(&form);
    if (view == forms_.end())
        return;
    CountBoxes(+1);
    const QPointer<QWidget> below = view->second->Window() == nullptr ? nullptr : view->second->Window()->Below();
    view->second->AwaitHiding();
    CloseBox(below);
    gate_.ThrowIfEnded();
}

void QtDesktop::Repaint(Form& form) {
    if (const auto view = forms_.find(&form); view != forms_.end())
        view->second->Repaint(patience);
}

Canvas& QtDesktop::SurfaceOf(Form& form) { return forms_.at(&form)->Surface(); }

std::int32_t QtDesktop::ScreenWidthTwips() const { return Twips(ScreenSize().width()); }

std::int32_t QtDesktop::ScreenHeightTwips() const { return Twips(ScreenSize().height()); }

void QtDesktop::SetMousePointer(int shape) {
    pointer_ = shape;
    ShowPointer();
}

/// The hourglass stands for work: while a box waits for the user, the pointer is the usual one.
void QtDesktop::ShowPointer() {
    const bool hourglass = pointer_ == kPointerHourglass && openBoxes_ == 0;
    const bool shown = QGuiApplication::overrideCursor() != nullptr;
    if (hourglass && !shown)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (!hourglass && shown)
        QGuiApplication::restoreOverrideCursor();
}

void QtDesktop::DoEvents() {
    gate_.ThrowIfEnded();
    QCoreApplication::processEvents();
    gate_.ThrowIfEnded();
}

bool QtDesktop::AllShownAreOnTheScreen() const {
    return std::all_of(forms_.begin(), forms_.end(), [](const auto& shown) {
        const FormWindow* const window = shown.second->Window();
        return window == nullptr || !window->isVisible() || window->windowHandle()->isExposed();
    });
}

/// A window manager may take its time; without one, or with none that tells, the user waits no longer than this.
void QtDesktop::AwaitTheScreen() {
    constexpr std::chrono::milliseconds kLongest{1000}, kBetweenLooks{5};
    const QDeadlineTimer deadline(kLongest);
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (AllShownAreOnTheScreen() || deadline.hasExpired())
            loop.quit();
    });
    look.start(kBetweenLooks);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

/// Counted from when the windows are on the screen. They go on painting meanwhile; what the user does waits until
/// afterwards.
void QtDesktop::Sleep(int milliseconds) {
    gate_.ThrowIfEnded();
    if (!AllShownAreOnTheScreen())
        AwaitTheScreen();
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    gate_.ThrowIfEnded();
}

BitmapPointer QtDesktop::ImageOf(Form& form) {
    return std::make_shared<ImageBitmap>(forms_.at(&form)->Surface().Image().copy());
}

BitmapPointer QtDesktop::CaptureArea(Form& form, bool clientOnly, std::int32_t left, std::int32_t top,
                                     std::int32_t width, std::int32_t height) {
    FormView& view = *forms_.at(&form);
    view.Surface();
    FormWindow& window = *view.Window();
    QWidget& area = clientOnly ? window.Client() : window;
    const QPoint frame = clientOnly ? QPoint() : window.geometry().topLeft() - window.frameGeometry().topLeft();
    const QPoint corner = QPoint(left, top) - frame * window.devicePixelRatio();
    const QImage picture = CaptureOnScreen(area, {corner, QSize(width, height)});
    gate_.ThrowIfEnded();
    return std::make_shared<ImageBitmap>(picture);
}

void QtDesktop::SavePicture(const Bitmap& picture, const std::string& path) {
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    const QImage image = ImageOn(picture).convertToFormat(QImage::Format_RGB888);
    if (!image.save(&buffer, "bmp"))
        Fail(FailureCode::kDeviceError, path);
    if (const std::error_code error =
            ReplaceFile(path, {content.constData(), static_cast<std::size_t>(content.size())}))
        FailWithErrno(error.value(), path);
}

void QtDesktop::ClearClipboard() { QGuiApplication::clipboard()->clear(); }

void QtDesktop::SetClipboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    FailUnlessClipboardIsOurs();
}

void QtDesktop::SetClipboardPicture(const Bitmap& picture) {
    QGuiApplication::clipboard()->setImage(ImageOn(picture));
    FailUnlessClipboardIsOurs();
}

std::vector<std::string> QtDesktop::PrinterNames() { return printers_.List().names; }

std::string QtDesktop::SystemDefaultPrinter() { return printers_.List().defaultName; }

void QtDesktop::SelectPrinter(std::size_t number) { printer_.Select(printers_.List().names.at(number)); }

bool QtDesktop::AnotherInstanceRuns() { return instance_.AnotherRuns(); }

}  // namespace halvern
