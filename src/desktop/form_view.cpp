#include "desktop/form_view.h"

namespace halvern {

using std::chrono::steady_clock;

FormView::FormView(Form& form, EventGate& gate) : form_(form), gate_(gate), tellsProgress_(form.TellsProgress()) {
    form.Observe(this);
}

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
    gate_.DeleteWhenOver(*window_);
}

void FormView::ControlChanged(Control& /*control*/) {
    if (gate_.HasEnded())
        return;
    if (tellsProgress_)
        return ProgressChanged();
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

void FormView::ProgressChanged() {
    form_.FrontGiven();
    if (window_ != nullptr)
        window_->FormChanged();
    if (!form_.IsShown())
        shownSince_.reset();
    else if (!shownSince_.has_value())
        shownSince_ = steady_clock::now();
    if (!form_.IsShown() && window_ != nullptr)
        window_->hide();
}

void FormView::Repaint(std::chrono::milliseconds patience) {
    if (tellsProgress_ && shownSince_.has_value() && steady_clock::now() - *shownSince_ >= patience)
        MakeWindow().BringUp();
    if (window_ != nullptr && window_->isVisible())
        window_->repaint();
}

// A failure asks too, and the form may be gone by then: only the window is looked at.
void FormView::StandBack() {
    if (!tellsProgress_)
        return;
    if (window_ != nullptr)
        window_->hide();
    if (shownSince_.has_value())
        shownSince_ = steady_clock::now();
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
