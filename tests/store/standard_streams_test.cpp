#include "store/standard_streams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>

namespace halvern {
namespace {

bool Fails(ssize_t transferred) { return transferred < 0 && errno == EBADF; }

/// In a process of its own that was started with these streams closed: bit 0 for a file that came to stand in the place of
/// a stream, bit 1 for a stream that took or gave something. Every other stream is left alone.
int WhatGoesWrong(std::initializer_list<int> closed) {
    const pid_t child = ::fork();
    if (child == 0) {
        for (const int stream : closed)
            ::close(stream);
        HoldStandardStreams();
        int wrong = ::open("/dev/null", O_RDONLY) > STDERR_FILENO ? 0 : 1;
        char byte = 'x';
        for (const int stream : closed)
            if (!Fails(stream == STDIN_FILENO ? ::read(stream, &byte, 1) : ::write(stream, &byte, 1)))
                wrong |= 2;
        ::_exit(wrong);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(StandardStreams, ThatAreClosedAreNoPlaceForAFile) {
    EXPECT_EQ(WhatGoesWrong({}), 0);
    EXPECT_EQ(WhatGoesWrong({0}), 0);
    EXPECT_EQ(WhatGoesWrong({1}), 0);
    EXPECT_EQ(WhatGoesWrong({2}), 0);
    EXPECT_EQ(WhatGoesWrong({0, 2}), 0);
    EXPECT_EQ(WhatGoesWrong({0, 1, 2}), 0);
}

}  // namespace
}  // namespace halvern
