#include "desktop/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWindow>

#include <stdexcept>

#include "desktop/list_view.h"
#include "desktop/picture_view.h"
#include "desktop/pixels.h"
#include "desktop/shown_text.h"
#include "desktop/text_box_view.h"

namespace halvern {

namespace {

// A window manager may insist on a size that the form refuses. After so many times the window stays as it is.
constexpr int kMostRefusals = 8;

QWidget* NewLabel(Label& /*label*/, QWidget* parent) {
    auto* widget = new QLabel(parent);
    widget->setTextFormat(Qt::PlainText);
    return widget;
}

QWidget* NewButton(Button& button, EventGate& gate, QWidget* parent) {
    auto* widget = new QPushButton(parent);
    QObject::connect(widget, &QPushButton::clicked, widget, [&button, &gate] {
        gate.Run([&] {
            if (button.Click)
                button.Click();
        });
    });
    return widget;
}

QWidget* NewLine(QWidget* parent) {
    auto* widget = new QFrame(parent);
    widget->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Plain));
    widget->setForegroundRole(QPalette::Mid);
    return widget;
}

/// What stands on a panel is bold, and larger where the screen has room for it.
QFont FontOfPanels() {
    constexpr int kSmallScreen = 640, kSmallText = 13, kText = 16;
    QFont font({QStringLiteral("Times New Roman"), QStringLiteral("Liberation Serif")});
    font.setStyleHint(QFont::Serif);
    font.setBold(true);
    font.setPixelSize(QGuiApplication::primaryScreen()->geometry().width() > kSmallScreen ? kText : kSmallText);
    return font;
}

QWidget* NewPanel(QWidget* parent) {
    auto* widget = new QFrame(parent);
    widget->setFont(FontOfPanels());
    widget->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    widget->setAutoFillBackground(true);
    return widget;
}

QWidget* NewProgressBar(QWidget* parent) {
    auto* widget = new QProgressBar(parent);
    widget->setTextVisible(false);
    return widget;
}

/// The caption of a frame is no access key.
QString WithoutAccessKey(QString caption) { return caption.replace(QLatin1Char('&'), QLatin1String("&&")); }

Qt::WindowFlags FrameOf(const Form& form) {
    const Qt::WindowFlags titled = Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    if (form.IsModal())
        return Qt::Dialog | titled | Qt::WindowCloseButtonHint;
    if (!form.ClosesByFrame())
        return Qt::Window | titled | Qt::WindowMinMaxButtonsHint;
    return Qt::Window;
}

void FocusFirst(const std::vector<Control*>& controls, const FormWindow& window) {
    for (const Control* control : controls) {
        QWidget* widget = window.WidgetOf(*control);
        if (widget == nullptr || (widget->focusPolicy() & Qt::TabFocus) == 0 || !control->IsEnabled() ||
            !control->IsShown())
            continue;
        widget->setFocus();
        return;
    }
}

}  // namespace

FormWindow::FormWindow(Form& form, EventGate& gate)
    : QWidget(nullptr, FrameOf(form)), form_(&form), gate_(gate), content_(new QWidget(this)), dialog_(form.IsModal()) {
    if (form.MenuOf() != nullptr) {
        menuBar_ = new QMenuBar(this);
        menu_ = std::make_unique<MenuView>(*menuBar_, *form.MenuOf(), gate);
    }
    for (Control* control : form.Controls())
        AddWidget(*control);
    if (focusWidget() == nullptr)
        FocusFirst(form.Controls(), *this);
    FormChanged();
}

void FormWindow::LetGo() {
    if (menu_ != nullptr)
        menu_->LetGo();
    for (Control* control : form_->Controls()) {
        control->Observe(nullptr);
        QWidget* widget = WidgetOf(*control);
        if (auto* list = dynamic_cast<ListView*>(widget))
            list->LetGo();
        else if (auto* box = dynamic_cast<TextBoxView*>(widget))
            box->LetGo();
        else if (auto* button = dynamic_cast<QPushButton*>(widget))
            button->disconnect();
    }
    if (surface_ != nullptr)
        surface_->LetGo();
    form_ = nullptr;
}

QWidget* FormWindow::WidgetOf(const Control& control) const {
    const auto found = widgets_.find(&control);
    return found == widgets_.end() ? nullptr : found->second;
}

void FormWindow::AddWidget(Control& control) {
    QWidget* widget = NewWidget(control);
    widgets_[&control] = widget;
    // By itself the toolkit would give the focus at a click before anybody could ask, see eventFilter.
    if (control.Kind() == ControlKind::kButton || control.Kind() == ControlKind::kTextBox) {
        widget->setFocusPolicy(Qt::TabFocus);
        widget->installEventFilter(this);
    }
    control.Observe(this);
    ControlChanged(control);
}

/// The panel that a control stands on, or the window's content.
QWidget* FormWindow::ParentOf(const Control& control) const {
    for (const Control* other : form_->Controls())
        if (other->Kind() == ControlKind::kPanel && static_cast<const Panel*>(other)->Holds(control))
            return WidgetOf(*other);
    return content_;
}

QWidget* FormWindow::NewWidget(Control& control) {
    QWidget* parent = ParentOf(control);
    switch (control.Kind()) {
        case ControlKind::kLabel:
            return NewLabel(static_cast<Label&>(control), parent);
        case ControlKind::kButton:
            return NewButton(static_cast<Button&>(control), gate_, parent);
        case ControlKind::kTextBox:
            return new TextBoxView(static_cast<TextBox&>(control), gate_, parent);
        case ControlKind::kFrame:
            return new QGroupBox(parent);
        case ControlKind::kLine:
            return NewLine(parent);
        case ControlKind::kPanel:
            return NewPanel(parent);
        case ControlKind::kListBox:
            return new ListView(static_cast<ListBox&>(control), parent);
        case ControlKind::kPicture:
            return new PictureView(static_cast<Picture&>(control).Resource(), parent);
        case ControlKind::kProgressBar:
            return NewProgressBar(parent);
        default:
            throw std::logic_error("no widget for a control of this kind: " + control.Name());
    }
}

void FormWindow::ControlChanged(Control& control) {
    if (gate_.HasEnded())
        return;
    QWidget& widget = *WidgetOf(control);
    widget.setEnabled(control.IsEnabled());
    widget.setVisible(control.IsShown());
    widget.setGeometry(Pixels(control.Where()));
    if (control.Kind() == ControlKind::kPanel)
        LayOut();
    else if (auto* label = dynamic_cast<QLabel*>(&widget))
        label->setText(ShownLine(control.Caption()));
    else if (auto* button = dynamic_cast<QPushButton*>(&widget))
        button->setText(ShownLine(control.Caption()));
    else if (auto* list = dynamic_cast<ListView*>(&widget))
        list->ExtentChanged();
    else if (auto* box = dynamic_cast<TextBoxView*>(&widget))
        box->BoxChanged();
    else if (auto* frame = dynamic_cast<QGroupBox*>(&widget))
        frame->setTitle(WithoutAccessKey(ShownLine(control.Caption())));
    else if (auto* bar = dynamic_cast<QProgressBar*>(&widget))
        bar->setValue(static_cast<ProgressBar&>(control).Value());
}

void FormWindow::FormChanged() {
    setWindowTitle(ShownTitle(form_->Caption()));
    setEnabled(form_->IsEnabled());
    CarryOutPlace();
}

/// Moves and resizes the window to the form's place, where that differs from what was last carried out.
void FormWindow::CarryOutPlace() {
    // Within a resize event the toolkit has not done with the old size yet.
    if (tellingSize_)
        return;
    const Place now = form_->Where();
    if (now.left != carriedOut_.left || now.top != carriedOut_.top)
        move(QGuiApplication::primaryScreen()->geometry().topLeft() + Pixels(now).topLeft());
    carriedOut_ = now;
    if (dialog_)
        setFixedSize(Pixels(now).size());
    else if (Pixels(now).size() != size())
        resize(Pixels(now).size());
}

void FormWindow::BringUp() {
    const bool wantsFront = form_->WantsFront();
    form_->FrontGiven();
    if (isVisible() && wantsFront) {
        raise();
        activateWindow();
    }
    if (isVisible())
        return;
    setWindowModality(form_->IsModal() ? Qt::ApplicationModal : Qt::NonModal);
    // A dialog stands over the window that the user works with.
    QWidget* below = form_->IsModal() ? QApplication::activeWindow() : nullptr;
    create();
    windowHandle()->setTransientParent(below == nullptr ? nullptr : below->windowHandle());
    show();
}

ImageCanvas& FormWindow::Surface() {
    if (surface_ == nullptr) {
        surface_ = new SurfaceView(*form_, gate_, content_);
        surface_->lower();
        surface_->show();
    }
    LayOut();
    return surface_->Surface();
}

/// Gives menu, content, panels and surface their places. Result: whether the surface has another size than before.
bool FormWindow::LayOut() {
    int menuHeight = 0;
    if (menuBar_ != nullptr) {
        menuHeight = menuBar_->heightForWidth(width());
        menuBar_->setGeometry(0, 0, width(), menuHeight);
    }
    content_->setGeometry(0, menuHeight, width(), height() - menuHeight);
    for (const auto& [control, widget] : widgets_)
        if (auto* panel = dynamic_cast<QFrame*>(widget); panel != nullptr && control->Kind() == ControlKind::kPanel)
            panel->setGeometry(0, content_->height() - panel->height(), content_->width(), panel->height());
    if (surface_ == nullptr)
        return false;
    surface_->setGeometry(content_->rect());
    return surface_->FollowSize();
}

// A surface that has lost its size has lost its picture with it.
void FormWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool surfaceChanged = LayOut();
    if (IsLive() && (surfaceChanged || size() != Pixels(form_->Where()).size()))
        TellSize();
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && IsLive() && isMinimized() != form_->IsMinimised())
        TellSize();
}

/// Tells the form of its size; if it wants another one, the window takes that as soon as the event is over.
void FormWindow::TellSize() {
    const QSize told = size();
    if (told == refused_ && refusals_ >= kMostRefusals)
        return;
    {
        const QScopedValueRollback telling(tellingSize_, true);
        gate_.Run([&] { form_->Resized(Twips(told.width()), Twips(told.height()), isMinimized()); });
    }
    if (!IsLive() || isMinimized())
        return;
    const bool refused = Pixels(form_->Where()).size() != told;
    refusals_ = refused && told == refused_ ? refusals_ + 1 : 0;
    refused_ = refused ? told : QSize();
    const auto carryOut = [this] {
        if (IsLive())
            CarryOutPlace();
    };
    QMetaObject::invokeMethod(this, carryOut, Qt::QueuedConnection);
}

// The form decides; if it agrees, the window goes with it.
void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (IsLive() && form_->ClosesByFrame())
        gate_.Run([this] { form_->Unload(); });
}

// What the form has to say to that may be a message box: it waits until the handler that shows the window is through.
void FormWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    const auto tell = [this] {
        if (IsLive() && isVisible())
            gate_.Run([this] { form_->BroughtUp(); });
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

bool FormWindow::FocusMayGoTo(const QWidget& wanted) {
    auto* box = dynamic_cast<TextBoxView*>(focusWidget());
    return box == nullptr || box == &wanted || box->Leave();
}

/// Mouse and access keys on the way to a control: it gets the focus, unless a box keeps it and the event with it.
bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool takesFocus = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick ||
                            event->type() == QEvent::Shortcut;
    if (!takesFocus || !IsLive())
        return false;
    auto& widget = static_cast<QWidget&>(*watched);
    if (!widget.isEnabled())
        return false;
    if (!FocusMayGoTo(widget))
        return true;
    widget.setFocus(event->type() == QEvent::Shortcut ? Qt::ShortcutFocusReason : Qt::MouseFocusReason);
    return false;
}

// The tabulator; the toolkit hands it up to the window.
bool FormWindow::focusNextPrevChild(bool next) {
    auto* box = dynamic_cast<TextBoxView*>(focusWidget());
    if (box != nullptr && !box->Leave())
        return true;
    return QWidget::focusNextPrevChild(next);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!IsLive() || event->isAutoRepeat())
        return;
    if (event->matches(QKeySequence::Cancel) && form_->CancelButton() != nullptr)
        Press(dynamic_cast<QPushButton*>(WidgetOf(*form_->CancelButton())));
    else if (enter)
        Press(ButtonForEnter());
    else
        QWidget::keyPressEvent(event);
}

/// The button that has the focus; in a text box, the first one of the form.
QPushButton* FormWindow::ButtonForEnter() const {
    if (auto* button = dynamic_cast<QPushButton*>(focusWidget()))
        return button;
    if (dynamic_cast<TextBoxView*>(focusWidget()) == nullptr)
        return nullptr;
    for (const Control* control : form_->Controls())
        if (auto* button = dynamic_cast<QPushButton*>(WidgetOf(*control)))
            return button;
    return nullptr;
}

void FormWindow::Press(QPushButton* button) {
    if (button == nullptr || !button->isEnabled() || !button->isVisible() || !FocusMayGoTo(*button))
        return;
    button->setFocus();
    button->click();
}

}  // namespace halvern
