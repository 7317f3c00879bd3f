#pragma once

#include <QEventLoop>
#include <QPointer>

#include <chrono>
#include <optional>

#include "desktop/event_gate.h"
#include "desktop/form_window.h"
#include "ui/form.h"

namespace halvern {

/// Stands for a loaded form on the desktop. Its window is made when the form is shown for the first time.
///
/// A form that tells progress has its window later: at a repaint when it has been shown for a while. What is over before
/// then flickers over no screen.
class FormView final : public ControlObserver {
  public:
    FormView(Form& form, EventGate& gate);
    /// The window goes when the outermost event is over.
    ~FormView();
    FormView(const FormView&) = delete;
    FormView& operator=(const FormView&) = delete;

    void ControlChanged(Control& control) override;

    /// Returns when the form has been hidden or unloaded, or the program has ended. The view may be gone by then.
    void AwaitHiding();

    /// Shows at once what has changed.
    ///
    /// Given     patience   for how long a form that tells progress is shown before its window comes up
    void Repaint(std::chrono::milliseconds patience);
    /// The user is being asked, or has answered: a window that tells progress goes, and its time begins anew.
    void StandBack();

    /// What the form draws on; its window is made for it, though not shown.
    ImageCanvas& Surface();

    /// Null for a form that has not been shown yet.
    FormWindow* Window() const { return window_; }

  private:
    FormWindow& MakeWindow();
    void ProgressChanged();
    void EndWaiting();

    Form& form_;
    EventGate& gate_;
    const bool tellsProgress_;
    std::optional<std::chrono::steady_clock::time_point> shownSince_;  ///< a form that tells progress
    FormWindow* window_ = nullptr;
    QPointer<QEventLoop> waiting_;  ///< the loop that waits for the form to be hidden; null once it has ended
};

}  // namespace halvern
