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

constexpr ErrnoRow kErrnos[] = {
    {ENOENT, FailureCode::kFileNotFound},     {ENOTDIR, FailureCode::kPathNotFound},
    {EACCES, FailureCode::kPermissionDenied}, {EPERM, FailureCode::kPermissionDenied},
    {EISDIR, FailureCode::kPathOrFileAccess}, {EMFILE, FailureCode::kTooManyFiles},
    {ENFILE, FailureCode::kTooManyFiles},     {ENOSPC, FailureCode::kDiskFull},
};

}  // namespace

void FailWithErrno(int error, std::string_view name) {
    for (const auto& row : kErrnos)
        if (row.error == error)
            Fail(row.code, std::string(name));
    Fail(FailureCode::kDeviceError, std::string(name));
}

}  // namespace halvern
