#pragma once

#include "cli/row_format.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orbkl4::cli {

/// What to do with a file that is there already.
enum class Existing : std::uint8_t { Refuse, Append, Overwrite };

/// Where the rows go.
struct Target {
    std::string path = {};  ///< empty: standard output
    Existing existing = Existing::Refuse;
};

/// `target` with strftime's fields in its path filled in for the present local time; throws
/// `Failure::Usage` where that gives no path.
Target WithTime(const Target& target);

/// Throws `Failure::Usage` where there is something at `path`.
void RefuseIfThere(const std::string& path);

/// Writes a recording, one unbuffered write for each row, so that there is never half a row in it.
class RowSink {
  public:
    /// Opens the target, and writes the format's head where it doesn't begin with it. Throws
    /// `Failure::Usage` for a file that is refused or holds other columns, `System` where it can't
    /// be opened or written, which leaves no new file.
    RowSink(const Target& target, const RowFormat& format, const Layout& layout);
    ~RowSink();
    RowSink(const RowSink&) = delete;
    RowSink& operator=(const RowSink&) = delete;

    /// Writes the sample's row. Waits while a pipe is full. False where nobody reads the pipe any
    /// more; throws `Failure::System` where the row can't be written, and `Interrupted`.
    bool Write(const TimedSample& sample);

    /// Removes the file where this recording has made it.
    void Withdraw() const;

  private:
    void Begin();
    void Continue();
    bool Put(std::string_view text);
    [[noreturn]] void CutBack(std::size_t written, int error) const;

    const RowFormat& format_;
    const Layout& layout_;
    std::string name_;
    int file_;
    bool owned_ = false;
    bool made_ = false;
    bool regular_ = false;
    bool readerGone_ = false;
    std::string row_;
};

}  // namespace orbkl4::cli
