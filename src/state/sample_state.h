#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace orbkl4 {

/// The latest decoded fields of every data command. Fields are shared across commands on purpose:
/// the table of packets says which command fills which.
struct Sample {
    using Matrix = std::array<double, 9>;  ///< column by column: M11, M21, M31, M12 …

    double HeaderGyro = 0, HeaderInstant = 0;
    double TicksGyro = 0, TicksInstant = 0;
    double ChecksumGyro = 0, ChecksumInstant = 0;
    double CalcChecksumGyro = 0, CalcChecksumInstant = 0;
    double RawMag1 = 0, RawMag2 = 0, RawMag3 = 0;
    double RawAcc1 = 0, RawAcc2 = 0, RawAcc3 = 0;
    double RawAngRate1 = 0, RawAngRate2 = 0, RawAngRate3 = 0;
    double StabMagX = 0, StabMagY = 0, StabMagZ = 0;
    double StabAccX = 0, StabAccY = 0, StabAccZ = 0;
    double CompAngRateX = 0, CompAngRateY = 0, CompAngRateZ = 0;
    double InstMagX = 0, InstMagY = 0, InstMagZ = 0;
    double InstAccX = 0, InstAccY = 0, InstAccZ = 0;
    double InstAngRateX = 0, InstAngRateY = 0, InstAngRateZ = 0;
    double StabQuat0 = 0, StabQuat1 = 0, StabQuat2 = 0, StabQuat3 = 0;
    double InstQuat0 = 0, InstQuat1 = 0, InstQuat2 = 0, InstQuat3 = 0;
    Matrix StabMatrix{}, InstMatrix{};
    double MatrixDeterminant = 0;
    double Roll = 0, Pitch = 0, Yaw = 0;  ///< degrees
};

/// How sampling and saving stand.
struct Sampling {
    bool SaveActive = false;            ///< samples are to be written
    std::string SampleTimeText;         ///< seconds since the start of sampling, as text
    std::int64_t LastReplyTime = 0;     ///< whole seconds of the monotonic clock; 0 is long ago
    double LastWrittenTicks = 0;        ///< ticks of the last sample written; may go negative
    double WriteIntervalTicks = 0;      ///< least distance of two written samples; 0 is every one
    std::int64_t SampleStartCount = 0;  ///< performance counter at the start of sampling
    std::int64_t SampleNowCount = 0;    ///< performance counter at the current sample
};

/// What has happened since the user last started a channel.
struct RunTally {
    bool Running = false;         ///< a channel is on
    std::int64_t Samples = 0;     ///< good replies
    std::int64_t BadReplies = 0;  ///< replies of wrong length, header, check sum or end
    std::int64_t Restarts = 0;    ///< by the watchdog
    std::int64_t LostRows = 0;    ///< samples that could not be written
    std::string FailedFile;       ///< path (UTF-8) of the file that could not be written, or empty
    std::string FailureText;      ///< why not
};

/// Plain counts of how sampling goes, for the status line; they decide nothing.
struct Tally : RunTally {
    bool Restarting = false;          ///< the watchdog is stopping and starting the channel
    std::int64_t RowsOfDataFile = 0;  ///< rows written since the data file was chosen
};

/// The latest sample and the state of sampling; every screen reads and writes it directly.
struct SampleStateRecord : Sample, Sampling, Tally {};

/// The one record of the process.
inline SampleStateRecord SampleState;

}  // namespace orbkl4
