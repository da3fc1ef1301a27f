#include "cli/row_sink.h"

#include "cli/error.h"
#include "cli/signals.h"
#include "platform/system/clock.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace orbkl4::cli {

namespace {

constexpr mode_t newFileMode = 0666;

[[noreturn]] void ThrowSystem(const std::string& name, const char* action, int error) {
    throw CliError(Failure::System, name + " can't be " + action + ": " + std::strerror(error),
                   error == ENOSPC ? "make room on the disk" : "");
}

int FlagsFor(Existing existing) {
    switch (existing) {
        case Existing::Refuse: return O_EXCL;
        case Existing::Overwrite: return O_TRUNC;
        case Existing::Append: break;
    }
    return 0;
}

int Opened(const Target& target) {
    const int flags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOCTTY;
    const int file = ::open(target.path.c_str(), flags | FlagsFor(target.existing), newFileMode);
    if (file >= 0) return file;
    if (errno == EEXIST) RefuseIfThere(target.path);
    ThrowSystem(target.path, "opened", errno);
}

/// The last line of `head`, and in the same place that of the file at `path`, must be one; without
/// a head the file must begin with a row.
void RequireSameColumns(const std::string& path, const std::string& head,
                        std::string_view rowStart) {
    std::ifstream file(path, std::ios::binary);
    std::string line;
    std::string wanted;
    for (std::size_t begin = 0; begin < head.size(); begin += wanted.size() + 1) {
        wanted = head.substr(begin, head.find('\n', begin) - begin);
        std::getline(file, line);
    }
    if (head.empty()) std::getline(file, line);
    if (head.empty() ? line.starts_with(rowStart) : line == wanted) return;
    throw CliError(Failure::Usage, path + " holds other columns, so nothing can be appended",
                   "name another file");
}

/// Where the last whole line of the file at `path` ends.
off_t EndOfLines(const std::string& path, off_t size) {
    std::ifstream file(path, std::ios::binary);
    while (size > 0 && file.seekg(size - 1).get() != '\n') --size;
    return size;
}

}  // namespace

Target WithTime(const Target& target) {
    if (target.path.empty()) return target;
    std::array<char, 4096> text{};
    const std::tm now = LocalTime();
    const std::size_t size = std::strftime(text.data(), text.size(), target.path.c_str(), &now);
    if (size > 0) return {{text.data(), size}, target.existing};
    throw CliError(Failure::Usage, "the file name " + target.path + " is empty or too long");
}

void RefuseIfThere(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::exists(std::filesystem::symlink_status(path, ignored))) return;
    throw CliError(Failure::Usage, path + " is there already",
                   "name another file, or give --append or --overwrite");
}

RowSink::RowSink(const Target& target, const RowFormat& format, const Layout& layout)
    : format_(format),
      layout_(layout),
      name_(target.path.empty() ? "standard output" : target.path),
      file_(target.path.empty() ? STDOUT_FILENO : Opened(target)),
      owned_(!target.path.empty()),
      made_(owned_ && target.existing == Existing::Refuse) {
    // A write that fails is to say so: to a pipe that nobody reads, or beyond the size allowed.
    for (const int number : {SIGPIPE, SIGXFSZ}) std::signal(number, SIG_IGN);
    struct stat status {};
    ::fstat(file_, &status);
    regular_ = S_ISREG(status.st_mode);
    if (owned_ && regular_ && status.st_size > 0) {
        Continue();
    } else {
        Begin();
    }
}

RowSink::~RowSink() {
    if (owned_) ::close(file_);
}

bool RowSink::Write(const TimedSample& sample) {
    format_.format(layout_, sample, row_);
    return Put(row_);
}

void RowSink::Withdraw() const {
    if (made_) ::unlink(name_.c_str());
}

/// A service that is started again and again on a full disk must not leave a file each time.
void RowSink::Begin() {
    try {
        Put(format_.head(layout_));
    } catch (const CliError&) {
        Withdraw();
        throw;
    }
}

/// Goes on with a file that holds rows, of which a power failure may have left half a one.
void RowSink::Continue() {
    RequireSameColumns(name_, format_.head(layout_), format_.rowStart);
    struct stat status {};
    if (::fstat(file_, &status) != 0 || ::ftruncate(file_, EndOfLines(name_, status.st_size)) != 0)
        ThrowSystem(name_, "continued", errno);
}

bool RowSink::Put(std::string_view text) {
    std::size_t written = 0;
    while (written < text.size() && !readerGone_) {
        pollfd entry{.fd = file_, .events = POLLOUT, .revents = 0};
        while (!regular_ && !WaitFor({&entry, 1}, Clock::time_point::max())) {
        }
        const ssize_t size = ::write(file_, text.data() + written, text.size() - written);
        const int error = size < 0 ? errno : ENOSPC;
        if (size >= 0) written += static_cast<std::size_t>(size);
        readerGone_ = size < 0 && error == EPIPE;
        const bool again = !regular_ && (size > 0 || error == EAGAIN || error == EINTR);
        if (written < text.size() && !readerGone_ && !again) CutBack(written, error);
    }
    return !readerGone_;
}

/// Takes the `written` bytes of an unfinished row off a file.
void RowSink::CutBack(std::size_t written, int error) const {
    if (regular_ && written > 0) {
        const off_t end = ::lseek(file_, 0, SEEK_CUR);
        if (::ftruncate(file_, end - static_cast<off_t>(written)) == 0) ::lseek(file_, 0, SEEK_END);
    }
    ThrowSystem(name_, "written", error);
}

}  // namespace orbkl4::cli
