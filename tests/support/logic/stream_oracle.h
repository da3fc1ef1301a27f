#pragma once

#include "base/bytes.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orbkl4::test {

/// The packets of a channel, independent of the program's table.
struct PacketKind {
    unsigned command;
    bool isGyro;
    std::size_t words;  ///< without ticks and checksum
    bool isMatrix = false;
};

/// Bytes that are sent in one write.
struct Piece {
    Bytes bytes;
    bool awaited;  ///< the next piece follows only when the program has this one
};

/// A channel, how it saves, and a stream in pieces.
struct StreamCase {
    const PacketKind* kind;
    bool saving;
    double interval;  ///< least ticks between two rows
    std::vector<Piece> pieces;
};

/// Turns any bytes into a case: good packets, corrupted ones, ones with another header and random
/// bytes, cut anywhere.
StreamCase ReadStreamCase(std::span<const std::uint8_t> data);

/// The same stream with the bytes of each reply sent one by one up to the one that completes it, so
/// that the program must do the same.
StreamCase CutSingly(const StreamCase& streamCase);

/// What the program may do with a reply.
enum class Verdict { Shown, Saved, Held, BadSum, WrongFrame };

inline constexpr std::size_t verdicts = 5;

/// Says for each piece of a stream what a sampling channel must do with it.
class StreamOracle {
  public:
    explicit StreamOracle(const StreamCase& streamCase) : case_(streamCase) {}

    /// Takes bytes sent at once; whether they complete a reply, which `LastVerdict` then judges.
    bool Takes(const Bytes& bytes);

    Verdict LastVerdict() const { return verdict_; }

    /// The bytes that came since the last reply.
    std::size_t Waiting() const { return waiting_.size(); }

    /// Whether the lamp is lit.
    bool Lit() const { return lit_; }

    /// The last reply.
    const Bytes& Reply() const { return reply_; }

  private:
    Verdict Judge();

    const StreamCase& case_;
    Bytes waiting_;
    Bytes reply_;
    Verdict verdict_ = Verdict::WrongFrame;
    bool lit_ = false;
    double gyroTicks_ = 0;
    double lastWritten_ = 0;
};

}  // namespace orbkl4::test
