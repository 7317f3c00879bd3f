#include "desktop/user.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <thread>

#include "desktop/run_halvern.h"

namespace halvern::test {

namespace {

constexpr std::chrono::seconds kPatience{40};

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

/// A title as the search for windows takes it, an extended regular expression.
std::string Escaped(const std::string& title) {
    std::string escaped;
    for (const char c : title) {
        if (std::string_view(".^$*+?()[]{}|\\").find(c) != std::string_view::npos)
            escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

}  // namespace

CommandResult RunCommand(const std::string& command) {
    const std::string limited = "timeout 40 " + command + " 2>&1";
    FILE* pipe = ::popen(limited.c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error("cannot run " + command);
    std::string output;
    char buffer[512];
    for (std::size_t count = 0; (count = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        output.append(buffer, count);
    const int status = ::pclose(pipe);
    return {output, WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

std::string FindWindow(const std::string& title) {
    for (;;) {
        const auto [output, status] =
            RunCommand("xdotool search --sync --onlyvisible --name " + Quoted("^" + Escaped(title) + "$"));
        if (status == 0)
            return FirstLine(output);
        // The search stumbles over windows that go while it looks at them.
        if (output.find("BadWindow") == std::string::npos)
            throw std::runtime_error("no window " + title + ": " + output);
    }
}

void ActivateWindow(const std::string& window) {
    const auto [output, status] = RunCommand("xdotool windowactivate --sync " + window);
    if (status != 0)
        throw std::runtime_error("window " + window + " cannot be activated: " + output);
}

std::string User::Do(const std::string& arguments) {
    // In a language without umlauts it could not type them.
    const auto [output, status] = RunCommand("env LC_ALL=C.UTF-8 xdotool " + arguments);
    if (status != 0)
        throw std::runtime_error("xdotool " + arguments + ": " + output);
    return output;
}

void User::Press(const std::string& keys) { Do("key --delay 20 " + keys); }

void User::Type(const std::string& text) { Do("type --delay 12 " + Quoted(text)); }

void User::Click(QPoint place) { Do(MoveTo(place) + " click 1"); }

std::string User::MoveTo(QPoint place) {
    if (ratio_ == 0.0)
        ratio_ = Look([] { return QGuiApplication::primaryScreen()->devicePixelRatio(); });
    const QPoint pixel = (QPointF(place) * ratio_).toPoint();
    return "mousemove " + std::to_string(pixel.x()) + " " + std::to_string(pixel.y());
}

std::string User::AwaitWindow(const std::string& title) {
    const std::string window = FindWindow(title);
    Await("the window " + title + " to be active", [title = QString::fromStdString(title)] {
        return QApplication::activeWindow() != nullptr && QApplication::activeWindow()->windowTitle() == title;
    });
    return window;
}

void User::AwaitNoWindow(const std::string& title) {
    Await("the window " + title + " to be gone", [title = QString::fromStdString(title)] {
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->windowTitle() == title)
                return false;
        return true;
    });
}

void User::Await(const std::string& what, std::function<bool()> condition) {
    if (!Comes(what, std::move(condition), kPatience))
        throw std::runtime_error("waited in vain for " + what);
}

bool User::Comes(const std::string& what, std::function<bool()> condition, std::chrono::seconds patience) {
    struct Watch {
        QMetaObject::Connection connection;
        bool met = false;
    };
    auto watch = std::make_shared<Watch>();
    const auto look = [this, watch, condition] {
        if (watch->met || !condition())
            return;
        QObject::disconnect(watch->connection);
        const std::lock_guard lock(mutex_);
        watch->met = true;
        news_.notify_all();
    };
    if (QCoreApplication::instance() == nullptr)
        throw std::runtime_error("no program to wait for " + what);
    const auto begin = [watch, look] {
        auto* dispatcher = QAbstractEventDispatcher::instance();
        watch->connection = QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, dispatcher, look);
        look();
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), begin, Qt::QueuedConnection);
    std::unique_lock lock(mutex_);
    news_.wait_for(lock, patience, [&] { return watch->met || over_; });
    if (!watch->met && over_)
        throw std::runtime_error("the program ended before " + what);
    return watch->met;
}

void User::ProgramIsOver() {
    const std::lock_guard lock(mutex_);
    over_ = true;
    news_.notify_all();
}

void User::Choose(char menu, const std::string& items) {
    Press(std::string("alt+") + menu);
    Await(std::string("the menu of ") + menu, [] { return QApplication::activePopupWidget() != nullptr; });
    for (const char item : items)
        Press(std::string(1, item));
}

void User::Photograph(const std::string& name) {
    const auto file = std::filesystem::path(HALVERN_SCREENSHOTS) / (name + ".png");
    std::filesystem::create_directories(file.parent_path());
    const auto shoot = [&] {
        // What the windows have put off, their painting above all.
        QCoreApplication::sendPostedEvents();
        return QApplication::primaryScreen()->grabWindow(0).save(QString::fromStdString(file.string()));
    };
    const bool written = Look(shoot);
    if (!written)
        throw std::runtime_error("cannot write " + file.string());
}

int WithUser(const std::function<void(User&)>& acts) {
    User user;
    std::thread thread([&] {
        try {
            acts(user);
        } catch (const std::exception& failure) {
            ADD_FAILURE() << failure.what();
            const std::lock_guard lock(user.mutex_);
            if (!user.over_ && QCoreApplication::instance() != nullptr)
                QMetaObject::invokeMethod(
                    QCoreApplication::instance(), [] { QCoreApplication::exit(99); }, Qt::QueuedConnection);
        }
    });
    char name[] = "halvern";
    const int status = RunHalvern(name);
    user.ProgramIsOver();
    thread.join();
    return status;
}

}  // namespace halvern::test
