#pragma once

#include "base/bytes.h"
#include "support/logic/decoder_oracle.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orbkl4::test {

/// Bytes that are sent in one write.
struct Piece {
    Bytes bytes;
    bool awaited;  ///< the next piece follows only when the program has this one
};

/// A channel, how it saves, and a stream in pieces.
struct StreamCase {
    const DecoderRow* row;
    bool saving;
    double interval;  ///< least ticks between two rows
    std::vector<Piece> pieces;
};

/// Makes a case of any bytes: good packets, spoilt ones, ones of another header and plain rubbish,
/// cut anywhere.
StreamCase ReadStreamCase(std::span<const std::uint8_t> data);

/// The same stream with the bytes of each reply sent singly, up to the one that completes it, so
/// that nothing that the program does may change.
StreamCase CutSingly(const StreamCase& streamCase);

/// What the program may make of what a reply brought.
enum class Verdict { Shown, Saved, Held, BadSum, WrongFrame };

inline constexpr std::size_t verdicts = 5;

/// Says for each piece of a stream what a sampling channel must do with it.
class StreamOracle {
  public:
    explicit StreamOracle(const StreamCase& streamCase) : case_(streamCase) {}

    /// Takes bytes that came at once; whether they make up a reply, on which the oracle then has a
    /// verdict.
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
