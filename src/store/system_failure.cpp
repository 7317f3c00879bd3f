#include "store/system_failure.h"

#include <cerrno>
#include <string>

#include "store/failure.h"

namespace halvern {

namespace {

struct ErrnoRow {
    int error;
    FailureCode code;
};

// What is not listed is a fault of the device: EIO, EPIPE, and what a file system of its own kind may come up with.
constexpr ErrnoRow kErrnos[] = {
    {ENOENT, FailureCode::kFileNotFound},
    // A name that the system or the file system can't have.
    {ENAMETOOLONG, FailureCode::kBadFileNumber},
    {EINVAL, FailureCode::kBadFileNumber},
    {EILSEQ, FailureCode::kBadFileNumber},
    {ENOTDIR, FailureCode::kPathNotFound},
    // What stands under the name is nothing to read or write: a folder, links in a ring, a pipe that nobody reads, a
    // device that is not there.
    {EISDIR, FailureCode::kPathOrFileAccess},
    {ELOOP, FailureCode::kPathOrFileAccess},
    {ENXIO, FailureCode::kPathOrFileAccess},
    {ENODEV, FailureCode::kPathOrFileAccess},
    // Not allowed, for ever or while it is in use.
    {EACCES, FailureCode::kPermissionDenied},
    {EPERM, FailureCode::kPermissionDenied},
    {EROFS, FailureCode::kPermissionDenied},
    {EBUSY, FailureCode::kPermissionDenied},
    {ETXTBSY, FailureCode::kPermissionDenied},
    {EAGAIN, FailureCode::kPermissionDenied},
    {EMFILE, FailureCode::kTooManyFiles},
    {ENFILE, FailureCode::kTooManyFiles},
    // No room: on the disk, for this user, in one file.
    {ENOSPC, FailureCode::kDiskFull},
    {EDQUOT, FailureCode::kDiskFull},
    {EFBIG, FailureCode::kDiskFull},
};

}  // namespace

void FailWithErrno(int error, std::string_view name) {
    for (const auto& row : kErrnos)
        if (row.error == error)
            Fail(row.code, std::string(name));
    Fail(FailureCode::kDeviceError, std::string(name));
}

}  // namespace halvern
