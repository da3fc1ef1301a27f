#pragma once

#include <string>
#include <string_view>

namespace orbkl4 {

/// Writes text files line by line; a line ends in CR LF. Each line is one unbuffered write, so that
/// a file holds whole lines even if the program is killed.
class FileChannel {
  public:
    FileChannel() = default;
    ~FileChannel();
    FileChannel(const FileChannel&) = delete;
    FileChannel& operator=(const FileChannel&) = delete;

    /// Opens `path` (UTF-8) for output from its beginning; error 55 while the channel is open,
    /// else those of `RaiseSystemError`.
    void OpenForOutput(const std::string& path);

    /// Opens `path` for appending and creates it if needed; errors as `OpenForOutput`.
    void OpenForAppend(const std::string& path);

    /// Writes `text` and CR LF. On failure (error 61 on a full disk) the file is cut back to its
    /// last whole line and the channel stays open.
    void Print(std::string_view text);

    /// Closes the file, if one is open.
    void Close();

    /// Whether a file is open.
    bool IsOpen() const { return file_ >= 0; }

  private:
    void Open(const std::string& path, int flags);

    int file_ = -1;
    std::string line_;
};

/// The one channel of the process.
FileChannel& Channel1();

}  // namespace orbkl4
