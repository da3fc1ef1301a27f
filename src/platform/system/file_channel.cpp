#include "platform/system/file_channel.h"

#include "base/run_time_error.h"
#include "platform/system/system_error.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace orbkl4 {

namespace {

constexpr mode_t newFileMode = 0666;

}  // namespace

FileChannel::~FileChannel() { Close(); }

void FileChannel::OpenForOutput(const std::string& path) { Open(path, O_TRUNC); }

void FileChannel::OpenForAppend(const std::string& path) { Open(path, O_APPEND); }

void FileChannel::Open(const std::string& path, int flags) {
    if (IsOpen()) Raise(ErrorNumber::FileAlreadyOpen);
    file_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | flags, newFileMode);
    if (file_ < 0) RaiseSystemError(errno);
}

void FileChannel::Print(std::string_view text) {
    line_.assign(text).append("\r\n");
    const auto written = ::write(file_, line_.data(), line_.size());
    if (written == static_cast<ssize_t>(line_.size())) return;
    const int error = written < 0 ? errno : ENOSPC;
    if (written > 0) {
        const off_t end = ::lseek(file_, 0, SEEK_END);
        if (::ftruncate(file_, end - written) == 0) ::lseek(file_, 0, SEEK_END);
    }
    RaiseSystemError(error);
}

void FileChannel::Close() {
    if (IsOpen()) ::close(file_);
    file_ = -1;
}

FileChannel& Channel1() {
    static FileChannel channel;
    return channel;
}

}  // namespace orbkl4
