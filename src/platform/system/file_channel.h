#pragma once

#include <string>
#include <string_view>

namespace orbkl4 {

/// Writes text files line by line; a line ends in CR LF. Every line is one unbuffered write, so
/// that a file holds whole lines only, whatever ends the program.
class FileChannel {
  public:
    FileChannel() = default;
    ~FileChannel();
    FileChannel(const FileChannel&) = delete;
    FileChannel& operator=(const FileChannel&) = delete;

    /// Opens `path` (UTF-8) for output from its beginning; error 55 while the channel is open, 76
    /// or 70 and the like where the file can't be made.
    void OpenForOutput(const std::string& path);

    /// Opens `path` for appending, making it where it doesn't exist; errors as `OpenForOutput`.
    void OpenForAppend(const std::string& path);

    /// Writes `text` and CR LF; on failure the file is cut back to its last whole line, and the
    /// channel stays open (error 61 on a full disk).
    void Print(std::string_view text);

    /// Closes the file; nothing where none is open.
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
