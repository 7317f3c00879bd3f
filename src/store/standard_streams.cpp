#include "store/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

namespace halvern {

// A new descriptor is the lowest that is free, so that each falls into its place. It is open for the other direction: a
// program that reads from it or prints to it is told.
void HoldStandardStreams() {
    constexpr int kDirections[] = {O_WRONLY, O_RDONLY, O_RDONLY};
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (::fcntl(stream, F_GETFD) < 0)
            static_cast<void>(::open("/dev/null", kDirections[stream]));
}

}  // namespace halvern
