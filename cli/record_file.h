#pragma once

#include "cli/row_sink.h"
#include "state/app_state.h"

#include <QJsonObject>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace orbkl4::cli {

/// A time without samples: from the last one before it to the first one after it.
struct Gap {
    std::chrono::microseconds from;  ///< Unix time, like `to`
    std::chrono::microseconds to;
    const char* why;  ///< a code word of errors
};

/// What a recording has come to.
struct Tally {
    std::uint64_t samples = 0;  ///< received
    std::uint64_t rows = 0;     ///< written
    std::uint64_t badReplies = 0;
    std::uint64_t timeouts = 0;
    std::vector<Gap> gaps = {};      ///< no more than `mostGapsListed`
    std::uint64_t gapsUnlisted = 0;  ///< beyond those

    static constexpr std::size_t mostGapsListed = 10000;

    /// Adds a gap.
    void Note(const Gap& gap) {
        if (gaps.size() < mostGapsListed) {
            gaps.push_back(gap);
        } else {
            ++gapsUnlisted;
        }
    }

    std::uint64_t Gaps() const { return gaps.size() + gapsUnlisted; }
};

/// The sensor that is recorded, as it was found.
struct RecordedSensor {
    std::string device;
    int baud;
    int serialNumber;
    std::string firmware;
    GainScales gainScales;
    double tickIntervalMilliseconds;
};

/// `time` (Unix) as UTC with milliseconds, such as "2026-01-31T12:00:00.250Z".
QString UtcText(std::chrono::microseconds time);

/// The sensor, the channel and the columns of its rows, as JSON.
QJsonObject Described(const RecordedSensor& sensor, const Channel& channel,
                      const std::vector<ColumnTitle>& columns);

/// The file that says what a recording holds, which lies beside it as "<recording>.json".
class RecordFile {
  public:
    /// The file of the recording at `recording`, which is as `description` says. If that goes on
    /// with earlier recordings, what is known of them is kept; throws `Failure::Usage` if they are
    /// of another sensor or channel, or hold other columns.
    RecordFile(const std::string& recording, QJsonObject description,
               std::chrono::microseconds start, bool goesOn);

    /// Throws `Failure::Usage` where `target` is to be refused as it is there, or this file is.
    static void Permit(const Target& target);

    /// Writes the file anew, in one step, and returns what it says; `ended` is how the recording
    /// ended, null as long as it runs. Throws `Failure::System`.
    QJsonObject Write(const Tally& tally, const QJsonValue& ended,
                      std::chrono::microseconds now) const;

    /// Adds `value` to the file as `name`.
    void Add(const QString& name, const QJsonValue& value) { document_[name] = value; }

  private:
    std::string path_;
    QJsonObject document_;
};

}  // namespace orbkl4::cli
