#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

namespace halvern::test {

/// Once, when the next window of the kind has been shown and the event loop runs: the test's turn to use it.
template <class Window>
class AtNext : public QObject {
  public:
    explicit AtNext(std::function<void(Window&)> action) : action_(std::move(action)) {
        qApp->installEventFilter(this);
    }

    /// Whether there has been such a window.
    bool Happened() const { return happened_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* window = event->type() == QEvent::Show ? dynamic_cast<Window*>(watched) : nullptr;
        if (window != nullptr && !happened_) {
            happened_ = true;
            qApp->removeEventFilter(this);
            QTimer::singleShot(0, window, [this, window] { action_(*window); });
        }
        return false;
    }

  private:
    std::function<void(Window&)> action_;
    bool happened_ = false;
};

}  // namespace halvern::test
