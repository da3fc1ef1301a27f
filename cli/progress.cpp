#include "cli/progress.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace orbkl4::cli {

namespace {

using namespace std::chrono_literals;

constexpr auto timeBetweenShowings = 500ms;

/// Whether a line can be written over, and rows don't get in its way.
bool HasLine(const Output& output, bool toFile) {
    const char* const terminal = std::getenv("TERM");  // NOLINT(concurrency-mt-unsafe)
    return !output.Quiet() && ::isatty(STDERR_FILENO) != 0 && terminal != nullptr &&
           std::string_view(terminal) != "dumb" && (toFile || ::isatty(STDOUT_FILENO) == 0);
}

std::size_t TerminalWidth() {
    constexpr std::size_t usual = 80;
    winsize size{};
    const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : usual;
}

std::string Counted(std::uint64_t count, const char* one, const char* several) {
    return std::to_string(count) + (count == 1 ? one : several);
}

/// Rows, rate and time as for a stop-watch.
std::string RowsText(std::uint64_t rows, double rate, std::chrono::seconds time) {
    std::array<char, 64> text{};
    constexpr int perHour = 3600;
    constexpr int perMinute = 60;
    const auto seconds = static_cast<int>(time.count());
    std::snprintf(text.data(), text.size(), ", %.1f/s, %d:%02d:%02d", rate, seconds / perHour,
                  seconds % perHour / perMinute, seconds % perMinute);
    return Counted(rows, " row", " rows") + text.data();
}

std::string FaultsText(const Tally& tally) {
    return Counted(tally.badReplies, " bad reply", " bad replies") + ", " +
           Counted(tally.Gaps(), " gap", " gaps");
}

}  // namespace

Progress::Progress(const Output& output, bool toFile)
    : output_(output), onTerminal_(HasLine(output, toFile)) {}

void Progress::Begin(const std::string& path) {
    path_ = path;
    start_ = next_ = last_ = Clock::now();
}

void Progress::Show(const Tally& tally) {
    if (!ready_ && tally.samples > 0) {
        service_.Ready();
        ready_ = true;
        next_ = Clock::now();
    }
    if (!onTerminal_ && !service_.Active()) return;
    if (const auto now = Clock::now(); now >= next_) ShowNow(tally, now);
}

void Progress::ShowNow(const Tally& tally, Clock::time_point now) {
    const std::chrono::duration<double> since = now - last_;
    const double rate =
        since.count() > 0 ? static_cast<double>(tally.rows - lastRows_) / since.count() : 0;
    last_ = now;
    lastRows_ = tally.rows;
    next_ = now + timeBetweenShowings;
    const auto time = std::chrono::duration_cast<std::chrono::seconds>(now - start_);
    std::string text = RowsText(tally.rows, rate, time) + ", " + FaultsText(tally);
    service_.Status(text);
    if (!onTerminal_) return;
    if (!path_.empty()) text += ", " + path_;
    std::fprintf(stderr, "\r\x1b[K%s", text.substr(0, TerminalWidth() - 1).c_str());
    lineShown_ = true;
}

void Progress::Message(const std::string& text) {
    Clear();
    service_.Status(text);
    output_.Message(text);
}

void Progress::End(const Tally& tally) {
    last_ = start_;  // the rate of the whole recording
    lastRows_ = 0;
    if (onTerminal_ || service_.Active()) ShowNow(tally, Clock::now());
    if (lineShown_) std::fputs("\n", stderr);
    lineShown_ = false;
}

void Progress::Clear() {
    if (lineShown_) std::fputs("\r\x1b[K", stderr);
    lineShown_ = false;
}

}  // namespace orbkl4::cli
