#include "store/system_failure.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "store/failure.h"
#include "support/failure.h"

namespace halvern {
namespace {

struct ErrorCase {
    int error;
    int failure;
};

constexpr ErrorCase kErrors[] = {
    {ENOENT, 53}, {ENAMETOOLONG, 52}, {EINVAL, 52}, {EILSEQ, 52}, {ENOTDIR, 76}, {EISDIR, 75}, {ELOOP, 75},
    {ENXIO, 75},  {ENODEV, 75},       {EACCES, 70}, {EPERM, 70},  {EROFS, 70},   {EBUSY, 70},  {ETXTBSY, 70},
    {EAGAIN, 70}, {EMFILE, 67},       {ENFILE, 67}, {ENOSPC, 61}, {EDQUOT, 61},  {EFBIG, 61},  {EIO, 57},
    {EPIPE, 57},  {ESTALE, 57},       {EBADF, 57},  {ENOMEM, 57}, {0, 57},       {-1, 57},
};

TEST(SystemFailure, HasTheNumberOfWhatTheUserMeets) {
    for (const auto& c : kErrors)
        EXPECT_FAILURE(c.failure, FailWithErrno(c.error, std::strerror(c.error)));
}

TEST(SystemFailure, KnowsTheFile) {
    try {
        FailWithErrno(EFBIG, "large.txt");
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.Detail(), "large.txt");
        EXPECT_STREQ(failure.what(), "Disk full");
    }
}

}  // namespace
}  // namespace halvern
