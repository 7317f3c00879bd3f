#include "desktop/event_gate.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>
#include <utility>

#include "shell/failure_report.h"
#include "store/failure.h"
#include "ui/desktop.h"

namespace halvern {

void EventGate::Run(const std::function<void()>& event, std::string what) {
    if (ended_)
        return;
    running_.push_back(std::move(what));
    RunToItsEnd(event);
    running_.pop_back();
    if (!running_.empty())
        return;
    for (QObject* const object : std::exchange(leaving_, {}))
        object->deleteLater();
    if (!ended_ && AfterEvent)
        AfterEvent();
}

void EventGate::DeleteWhenOver(QObject& object) {
    if (running_.empty())
        object.deleteLater();
    else
        leaving_.push_back(&object);
}

void EventGate::RunToItsEnd(const std::function<void()>& event) {
    try {
        event();
    } catch (const ProgramEnd&) {
        End(0);
    } catch (const RuntimeFailure& failure) {
        const std::string number = "Run-time error '" + std::to_string(failure.Number()) + "':";
        Fail(FailureReport(failure, running_, "halvern"), number + "\r\n\r\n" + failure.what());
    } catch (const std::exception& defect) {
        Fail(FailureReport(defect, running_, "halvern"), defect.what());
    }
}

void EventGate::Fail(const std::string& onStandardError, const std::string& inBox) {
    if (ended_)
        return;
    // The gate shuts before the box opens: behind the box no handler may work on with what the failure left.
    ended_ = true;
    status_ = kFailureStatus;
    std::fputs(onStandardError.c_str(), stderr);
    if (TellFailure)
        TellFailure(inBox);
    QCoreApplication::exit(status_);
}

void EventGate::End(int status) {
    if (ended_)
        return;
    ended_ = true;
    status_ = status;
    QCoreApplication::exit(status_);
}

void EventGate::ThrowIfEnded() const {
    if (ended_)
        throw ProgramEnd{};
}

}  // namespace halvern
