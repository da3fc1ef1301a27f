#pragma once

#include "support/logic/stream_cases.h"

#include <array>

namespace orbkl4::test {

/// What the program may make of what a reply brought.
enum class Verdict { Shown, Saved, Held, BadSum, WrongFrame };

inline constexpr std::size_t verdicts = 5;

/// Says for each piece of a stream what a sampling channel must do with it.
class StreamOracle {
  public:
    explicit StreamOracle(const StreamCase& streamCase)
        : row_(*streamCase.row), saving_(streamCase.saving), interval_(streamCase.interval) {}

    /// The channel was stopped and started.
    void Restart();

    /// Takes bytes that came at once; whether they make up a reply, on which the oracle then has a
    /// verdict.
    bool Takes(const Bytes& bytes);

    Verdict LastVerdict() const { return verdict_; }

    /// The bytes that came since the last reply.
    std::size_t Waiting() const { return waiting_.size(); }

    /// Whether the lamp is lit.
    bool Lit() const { return lit_; }

    /// The packet on show, empty for none.
    const Bytes& OnShow() const { return onShow_; }

  private:
    Verdict Judge(const Bytes& reply);

    const DecoderRow& row_;
    bool saving_;
    double interval_;
    Bytes waiting_;
    Verdict verdict_ = Verdict::WrongFrame;
    bool lit_ = false;
    Bytes onShow_;
    double gyroTicks_ = 0;
    double lastWritten_ = 0;
};

}  // namespace orbkl4::test
