#include "desktop/form_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWindow>

#include "desktop/list_view.h"
#include "desktop/new_widget.h"
#include "desktop/pixels.h"
#include "desktop/text_box_view.h"
#include "render/shown_text.h"

namespace halvern {

namespace {

// A window manager may insist on a size that the form refuses. After so many times the window stays as it is.
constexpr int kMostRefusals = 8;

Qt::WindowFlags FrameOf(const Form& form) {
    // It comes up and paints itself within a handler, when no event passes: the window manager is not asked.
    if (form.TellsProgress())
        return Qt::ToolTip;
    const Qt::WindowFlags titled = Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    if (form.IsModal())
        return Qt::Dialog | titled | Qt::WindowCloseButtonHint;
    if (!form.ClosesByFrame())
        return Qt::Window | titled | Qt::WindowMinMaxButtonsHint;
    return Qt::Window;
}

/// What lies below the menu; a window without a frame has a raised edge there.
QWidget* NewContent(const Form& form, QWidget* parent) {
    auto* content = new QFrame(parent);
    if (form.TellsProgress())
        content->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Raised));
    return content;
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

/// The buttons that a widget is or consists of.
QList<QAbstractButton*> ButtonsOf(QWidget& widget) {
    if (auto* button = qobject_cast<QAbstractButton*>(&widget))
        return {button};
    return widget.findChildren<QAbstractButton*>();
}

}  // namespace

FormWindow::FormWindow(Form& form, EventGate& gate)
    : QWidget(nullptr, FrameOf(form)),
      form_(&form),
      gate_(gate),
      content_(NewContent(form, this)),
      dialog_(form.IsModal()) {
    setAttribute(Qt::WA_ShowWithoutActivating, form.TellsProgress());
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
        for (QAbstractButton* button : ButtonsOf(*widget))
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
    QWidget* widget = NewWidget(control, gate_, ParentOf(control));
    widgets_[&control] = widget;
    // By itself the toolkit would give the focus at a click before anybody could ask, see eventFilter.
    const ControlKind kind = control.Kind();
    if (kind == ControlKind::kButton || kind == ControlKind::kTextBox || kind == ControlKind::kCheckBox) {
        widget->setFocusPolicy(Qt::TabFocus);
        widget->installEventFilter(this);
    } else if (kind == ControlKind::kUpDown) {
        for (QAbstractButton* arrow : ButtonsOf(*widget))
            arrow->installEventFilter(this);
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

void FormWindow::ControlChanged(Control& control) {
    if (gate_.HasEnded())
        return;
    QWidget& widget = *WidgetOf(control);
    widget.setEnabled(control.IsEnabled());
    widget.setVisible(control.IsShown());
    widget.setGeometry(Pixels(control.Where()));
    Mirror(control, widget);
    TellName(control, widget);
    if (control.Kind() == ControlKind::kPanel)
        LayOut();
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
    if (wantsFront)
        setWindowState(windowState() & ~Qt::WindowMinimized);
    if (isVisible() && wantsFront) {
        raise();
        activateWindow();
        TellItIsUp();
    }
    if (isVisible())
        return;
    setWindowModality(form_->IsModal() ? Qt::ApplicationModal : Qt::NonModal);
    // A dialog stands over the window that the user works with.
    below_ = form_->IsModal() || form_->TellsProgress() ? QApplication::activeWindow() : nullptr;
    create();
    windowHandle()->setTransientParent(below_ == nullptr ? nullptr : below_->windowHandle());
    show();
    // The toolkit paints no window before the display has told of it in an event, and none passes until the handler is
    // through. Without a window manager in between the window is there by now.
    if (form_->TellsProgress())
        setAttribute(Qt::WA_Mapped);
}

ImageCanvas& FormWindow::Surface() {
    if (surface_ == nullptr) {
        surface_ = new SurfaceView(*form_, gate_, content_);
        surface_->setAccessibleName(ShownLine(form_->SpokenName().empty() ? form_->Caption() : form_->SpokenName()));
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
    if (event->type() == QEvent::WindowStateChange && IsLive() && isMinimized() != form_->IsMinimised()) {
        TellSize();
        if (isVisible() && !isMinimized())
            TellItIsUp();
    }
}

/// Tells the form of its size; if it wants another one, the window takes that as soon as the event is over.
void FormWindow::TellSize() {
    const QSize told = size();
    if (told == refused_ && refusals_ >= kMostRefusals)
        return;
    {
        const QScopedValueRollback telling(tellingSize_, true);
        gate_.Run([&] { form_->Resized(Twips(told.width()), Twips(told.height()), isMinimized()); },
                  "resize " + form_->Name());
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
        gate_.Run([this] { form_->Unload(); }, "close " + form_->Name());
}

void FormWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        TellItIsUp();
}

// What the form has to say to that may be a message box: it waits until the handler that shows the window is through.
// However often that has shown it, the form is told once.
void FormWindow::TellItIsUp() {
    if (willTellItIsUp_)
        return;
    willTellItIsUp_ = true;
    const auto tell = [this] {
        willTellItIsUp_ = false;
        if (!IsLive() || !isVisible() || isMinimized())
            return;
        const QPointer<FormWindow> self = this;
        tellingItIsUp_ = true;
        gate_.Run([this] { form_->BroughtUp(); }, "show " + form_->Name());
        if (self != nullptr)
            self->tellingItIsUp_ = false;
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
