#pragma once

#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include <map>
#include <memory>

#include "desktop/event_gate.h"
#include "desktop/menu_view.h"
#include "desktop/surface_view.h"
#include "render/image_canvas.h"
#include "ui/form.h"

namespace halvern {

/// The window of a form: its menu bar, and below it a widget for each control at the control's place. A form that draws
/// has its surface behind them.
///
/// Before the focus goes from a text box to another control, the box is asked; if it keeps the focus, what would have
/// taken it away is swallowed. Closing the window and turning to another one are not held up.
class FormWindow : public QWidget, public ControlObserver {
  public:
    FormWindow(Form& form, EventGate& gate);

    /// A control of the form has changed.
    void ControlChanged(Control& control) override;
    /// The form's own caption, state or place has changed.
    void FormChanged();
    /// Shows the window, or raises it if it is shown.
    void BringUp();

    /// What the form draws on, as large as the window without its menu.
    ImageCanvas& Surface();

    /// Whether the form is just being told that it has come up. The display may not have made the window active yet.
    bool IsTellingItIsUp() const { return tellingItIsUp_; }

    /// What shows a control; null for one that has no widget here.
    QWidget* WidgetOf(const Control& control) const;
    /// The window that a dialog came up over, null for none and for a window that is no dialog.
    QWidget* Below() const { return below_; }

    /// The window without its menu.
    QWidget& Client() const { return *content_; }
    const MenuView* Menu() const { return menu_.get(); }

    /// From now on the window has nothing to do with the models, which may go first.
    void LetGo();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// Whether there is a form: after the end of the program it may be gone without a word.
    bool IsLive() const { return form_ != nullptr && !gate_.HasEnded(); }
    void AddWidget(Control& control);
    QWidget* ParentOf(const Control& control) const;
    void CarryOutPlace();
    bool LayOut();
    void TellSize();
    void TellItIsUp();
    bool FocusMayGoTo(const QWidget& wanted);
    QPushButton* ButtonForEnter() const;
    void Press(QPushButton* button);

    Form* form_;
    EventGate& gate_;
    QMenuBar* menuBar_ = nullptr;
    std::unique_ptr<MenuView> menu_;
    QWidget* content_;
    QPointer<QWidget> below_;
    SurfaceView* surface_ = nullptr;
    const bool dialog_;
    std::map<const Control*, QWidget*> widgets_;

    Place carriedOut_;  ///< the form's place when it was last carried out
    bool tellingSize_ = false;
    bool willTellItIsUp_ = false;
    bool tellingItIsUp_ = false;
    QSize refused_;     ///< the last size that the form did not take as it was
    int refusals_ = 0;  ///< how often in a row
};

}  // namespace halvern
