#include "faults/failing_calls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdarg>
#include <cstdlib>
#include <string_view>

namespace halvern::test {

namespace {

struct State {
    bool counts = false;
    std::string folder;
    FaultPlan plan;
    int calls = 0;
    bool broken = false;  ///< a write has been cut in half, and the next one fails
};

/// Made at the first call: other parts of the process open files before this one's objects are constructed.
State& TheState() {
    static State state;
    return state;
}

constinit int injected = 0;
constexpr int kMostDescriptors = 4096;
constinit std::array<bool, kMostDescriptors> watched{};

bool IsWatched(int descriptor) {
    return descriptor >= 0 && descriptor < kMostDescriptors && watched[static_cast<std::size_t>(descriptor)];
}

void Watch(int descriptor, bool isWatched) {
    if (descriptor >= 0 && descriptor < kMostDescriptors)
        watched[static_cast<std::size_t>(descriptor)] = isWatched;
}

/// Whether a path leads below the folder, as it is written.
bool LeadsThere(const char* path) {
    if (!TheState().counts || path == nullptr)
        return false;
    std::string whole = path;
    if (!whole.starts_with('/')) {
        char folder[PATH_MAX];
        if (::getcwd(folder, sizeof folder) == nullptr)
            return false;
        whole = std::string(folder) + '/' + whole;
    }
    return whole.starts_with(TheState().folder + '/');
}

bool Refuse(int error) {
    ++injected;
    errno = error;
    return true;
}

/// Counts a call. Result: whether it is to fail; errno tells why.
///
/// Given     onceAtMost   it works where others fail for good: a full disk lets files be taken away
bool Fails(bool concerns, bool onceAtMost = false) {
    State& state = TheState();
    if (!concerns || !state.counts)
        return false;
    ++state.calls;
    if (state.plan.call == 0 || state.calls < state.plan.call)
        return false;
    if (state.calls > state.plan.call)
        return state.plan.forGood && !onceAtMost && Refuse(state.plan.error);
    return Refuse(state.plan.fault == Fault::kInterrupted ? EINTR : state.plan.error);
}

/// Whether the call that comes is a write to be treated so.
bool IsNext(Fault fault) {
    const State& state = TheState();
    return state.counts && state.plan.fault == fault && state.calls + 1 == state.plan.call;
}

template <class Function>
Function* System(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int OpenedBySystem(const char* name, const char* path, int flags, mode_t mode) {
    const bool concerns = LeadsThere(path);
    if (Fails(concerns))
        return -1;
    const int descriptor = System<int(const char*, int, mode_t)>(name)(path, flags, mode);
    Watch(descriptor, concerns);
    return descriptor;
}

}  // namespace

void BeginFaults(const std::string& folder, const FaultPlan& plan) {
    TheState() = {.counts = true, .folder = folder, .plan = plan, .calls = 0, .broken = false};
}

int EndFaults() {
    TheState().counts = false;
    return TheState().calls;
}

int FaultsInjected() { return injected; }

}  // namespace halvern::test

// Functions of the system's names, before the system's own.
extern "C" {

using namespace halvern::test;

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>((flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, int) : 0);
    va_end(arguments);
    return OpenedBySystem("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>((flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, int) : 0);
    va_end(arguments);
    return OpenedBySystem("open64", path, flags, mode);
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
    static auto* const system = System<ssize_t(int, const void*, size_t)>("write");
    if (IsWatched(descriptor)) {
        if (TheState().counts && TheState().broken) {
            TheState().broken = TheState().plan.forGood;
            Refuse(TheState().plan.error);
            return -1;
        }
        if (IsNext(Fault::kNoneTaken)) {
            ++TheState().calls;
            ++injected;
            return 0;
        }
        if (IsNext(Fault::kHalfTaken) && size > 1) {
            ++TheState().calls;
            TheState().broken = true;
            return system(descriptor, bytes, size / 2);
        }
        if (Fails(true))
            return -1;
    }
    return system(descriptor, bytes, size);
}

ssize_t read(int descriptor, void* bytes, size_t size) {
    static auto* const system = System<ssize_t(int, void*, size_t)>("read");
    return Fails(IsWatched(descriptor)) ? -1 : system(descriptor, bytes, size);
}

int fsync(int descriptor) {
    static auto* const system = System<int(int)>("fsync");
    return Fails(IsWatched(descriptor)) ? -1 : system(descriptor);
}

int close(int descriptor) {
    static auto* const system = System<int(int)>("close");
    const bool fails = Fails(IsWatched(descriptor));
    const int error = errno;
    Watch(descriptor, false);
    const int result = system(descriptor);
    if (!fails)
        return result;
    errno = error;
    return -1;
}

int fstat(int descriptor, struct stat* status) noexcept {
    static auto* const system = System<int(int, struct stat*)>("fstat");
    return Fails(IsWatched(descriptor)) ? -1 : system(descriptor, status);
}

int rename(const char* from, const char* to) noexcept {
    static auto* const system = System<int(const char*, const char*)>("rename");
    return Fails(LeadsThere(to)) ? -1 : system(from, to);
}

int unlink(const char* path) noexcept {
    static auto* const system = System<int(const char*)>("unlink");
    return Fails(LeadsThere(path), true) ? -1 : system(path);
}

int mkdir(const char* path, mode_t mode) noexcept {
    static auto* const system = System<int(const char*, mode_t)>("mkdir");
    return Fails(LeadsThere(path)) ? -1 : system(path, mode);
}

}  // extern "C"
