#pragma once

#include <QEventLoop>

#include "desktop/event_gate.h"
#include "desktop/form_window.h"
#include "ui/form.h"

namespace halvern {

/// Stands for a loaded form on the desktop. Its window is made when the form is shown for the first time.
class FormView : public ControlObserver {
  public:
    FormView(Form& form, EventGate& gate);
    /// The window goes as soon as its event, if it is in one, is over.
    ~FormView();
    FormView(const FormView&) = delete;
    FormView& operator=(const FormView&) = delete;

    void ControlChanged(Control& control) override;

    /// Returns when the form has been hidden or unloaded, or the program has ended. The view may be gone by then.
    void AwaitHiding();

    /// What the form draws on; its window is made for it, though not shown.
    ImageCanvas& Surface();

    /// Null for a form that has not been shown yet.
    FormWindow* Window() const { return window_; }

  private:
    FormWindow& MakeWindow();
    void EndWaiting();

    Form& form_;
    EventGate& gate_;
    FormWindow* window_ = nullptr;
    QEventLoop* waiting_ = nullptr;  ///< the loop that waits for the form to be hidden
};

}  // namespace halvern
