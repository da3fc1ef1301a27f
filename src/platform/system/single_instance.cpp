#include "platform/system/single_instance.h"

#include "platform/system/folders.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>

#include <memory>

namespace orbkl4 {

bool ClaimSingleInstance() {
    static std::unique_ptr<QLockFile> lock;
    const QString path = ConfigPath(QStringLiteral("ORB-KL4-RS232/instance.lock"));
    QDir().mkpath(QFileInfo(path).path());
    auto claim = std::make_unique<QLockFile>(path);
    // A lock is stale only when its owner has died, however old it is.
    claim->setStaleLockTime(0);
    if (!claim->tryLock(0) && claim->error() == QLockFile::LockFailedError) return false;
    lock = std::move(claim);
    return true;
}

}  // namespace orbkl4
