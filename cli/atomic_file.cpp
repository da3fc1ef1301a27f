#include "cli/atomic_file.h"

#include "cli/error.h"

#include <QSaveFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace orbkl4::cli {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void ThrowUnwritable(const fs::path& path, const std::string& why) {
    throw CliError(Failure::System, path.string() + " can't be written: " + why,
                   "see whether the disk is full and who may write there");
}

/// Has the disk hold the entries of `folder` as they are now.
void SyncFolder(const fs::path& folder) {
    const int handle = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0) ThrowUnwritable(folder, std::strerror(errno));
    const int error = ::fsync(handle) == 0 ? 0 : errno;
    ::close(handle);
    // Some network file systems have no such request for folders.
    if (error != 0 && error != EINVAL) ThrowUnwritable(folder, std::strerror(error));
}

}  // namespace

void ReplaceFile(const std::string& path, const QByteArray& content) {
    std::error_code none;
    const fs::path real = fs::weakly_canonical(path, none);
    const fs::path target = none ? fs::path(path) : real;
    if (fs::exists(target, none) && !fs::is_regular_file(target, none)) {
        ThrowUnwritable(path, "it is no plain file");
    }
    QSaveFile file(QString::fromStdString(target.string()));
    const bool written = file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
                         file.flush() && ::fsync(file.handle()) == 0 && file.commit();
    if (!written) {
        const bool known = file.error() != QFileDevice::NoError;
        ThrowUnwritable(path, known ? file.errorString().toStdString() : std::strerror(errno));
    }
    SyncFolder(target.parent_path());
}

void MakeFolders(const std::string& folder) {
    const fs::path path = fs::path(folder).lexically_normal();
    std::error_code error;
    if (path.empty() || fs::is_directory(path, error)) return;
    MakeFolders(path.parent_path().string());
    if (!fs::create_directory(path, error) && error) ThrowUnwritable(path, error.message());
    SyncFolder(path.parent_path());
}

}  // namespace orbkl4::cli
