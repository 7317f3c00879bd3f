#include "desktop/event_gate.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>

#include "store/failure.h"
#include "ui/desktop.h"

namespace halvern {

void EventGate::Run(const std::function<void()>& event) {
    if (ended_)
        return;
    ++depth_;
    try {
        event();
    } catch (const ProgramEnd&) {
        End(0);
    } catch (const RuntimeFailure& failure) {
        const std::string number = "Run-time error '" + std::to_string(failure.Number()) + "':";
        Fail(number + " " + failure.what(), number + "\r\n\r\n" + failure.what());
    } catch (const std::exception& failure) {
        Fail(failure.what(), failure.what());
    }
    --depth_;
    if (depth_ == 0 && !ended_ && AfterEvent)
        AfterEvent();
}

void EventGate::Fail(const std::string& onStandardError, const std::string& inBox) {
    if (ended_)
        return;
    // The gate shuts before the box opens: behind the box no handler may work on with what the failure left.
    ended_ = true;
    status_ = kFailureStatus;
    std::fprintf(stderr, "%s\n", onStandardError.c_str());
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
