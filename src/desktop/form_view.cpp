#include "desktop/form_view.h"

namespace halvern {

FormView::FormView(Form& form, EventGate& gate) : form_(form), gate_(gate) { form.Observe(this); }

// After the end of the program the form may be gone already: a failure has left the handler that it lived in.
FormView::~FormView() {
    if (!gate_.HasEnded()) {
        form_.Observe(nullptr);
        EndWaiting();
    }
    if (window_ == nullptr)
        return;
    if (!gate_.HasEnded())
        window_->LetGo();
    window_->hide();
    window_->deleteLater();
}

void FormView::ControlChanged(Control& /*control*/) {
    if (gate_.HasEnded())
        return;
    if (window_ == nullptr && !form_.IsShown())
        return;
    MakeWindow().FormChanged();
    if (form_.IsShown()) {
        window_->BringUp();
    } else {
        window_->hide();
        EndWaiting();
    }
    gate_.ThrowIfEnded();
}

FormWindow& FormView::MakeWindow() {
    if (window_ == nullptr)
        window_ = new FormWindow(form_, gate_);
    return *window_;
}

ImageCanvas& FormView::Surface() { return MakeWindow().Surface(); }

void FormView::AwaitHiding() {
    if (!form_.IsShown())
        return;
    QEventLoop loop;
    waiting_ = &loop;
    loop.exec();
}

void FormView::EndWaiting() {
    if (waiting_ != nullptr)
        waiting_->quit();
    waiting_ = nullptr;
}

}  // namespace halvern
