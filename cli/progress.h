#pragma once

#include "cli/notify.h"
#include "cli/output.h"
#include "cli/record_file.h"
#include "cli/signals.h"

#include <cstdint>
#include <string>

namespace orbkl4::cli {

/// Shows how a recording goes: on a line of its own where a person looks at it, and to the service
/// manager.
class Progress {
  public:
    /// `toFile`: the rows go to a file, not to standard output.
    Progress(const Output& output, bool toFile);

    /// The recording begins; `path` is its file, empty for standard output.
    void Begin(const std::string& path);

    /// A sample has come, or failed to: shows `tally` if the last showing is a while ago.
    void Show(const Tally& tally);

    /// Prints a message, which the progress line doesn't run into.
    void Message(const std::string& text);

    /// Shows `tally` for good.
    void End(const Tally& tally);

  private:
    void ShowNow(const Tally& tally, Clock::time_point now);
    void Clear();

    const Output& output_;
    const ServiceNotifier service_;
    const bool onTerminal_;
    std::string path_;
    Clock::time_point start_ = Clock::now();
    Clock::time_point next_ = start_;
    Clock::time_point last_ = start_;
    std::uint64_t lastRows_ = 0;
    bool ready_ = false;
    bool lineShown_ = false;
};

}  // namespace orbkl4::cli
