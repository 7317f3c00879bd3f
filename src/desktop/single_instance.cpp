#include "desktop/single_instance.h"

#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QString>

namespace halvern {

namespace {

// The folder for run-time files is the user's own and gone after the session. Where the session has none, the folder
// for temporary files is shared, and the file bears the user's number.
QString LockName() {
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!folder.isEmpty() && QFileInfo(folder).isDir())
        return folder + QLatin1String("/halvern.lock");
    return QDir::tempPath() + QLatin1String("/halvern-") + QString::number(::getuid()) + QLatin1String(".lock");
}

}  // namespace

SingleInstance::SingleInstance() : lock_(LockName()) {
    // A session can last for weeks: a lock is stale when its process is gone, never for its age.
    lock_.setStaleLockTime(0);
}

bool SingleInstance::AnotherRuns() {
    if (lock_.isLocked() || lock_.tryLock(0))
        return false;
    // Where no lock file can be made at all, no other instance is known.
    return lock_.error() == QLockFile::LockFailedError;
}

}  // namespace halvern
