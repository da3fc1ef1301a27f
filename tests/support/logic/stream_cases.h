#pragma once

#include "base/bytes.h"
#include "support/logic/decoder_oracle.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orbkl4::test {

/// What the sender does behind a piece that completes no reply.
enum class Settle {
    Not,       ///< nothing
    ByEvents,  ///< lets the program's events run once
    ByCount,   ///< waits until the program has the piece
};

/// Bytes that are sent in one write.
struct Piece {
    Bytes bytes;
    Settle settle = Settle::Not;
    bool restart = false;  ///< the channel is stopped and started before it
};

/// A channel, how it saves, and a stream in pieces.
struct StreamCase {
    const DecoderRow* row;
    bool saving;
    double interval;  ///< least ticks between two rows
    std::vector<Piece> pieces;
};

/// The length of the channel's replies in bytes.
inline std::size_t LengthOf(const DecoderRow& row) { return 5 + 2 * row.kinds.size(); }

/// Makes a case of any bytes: good packets, spoilt ones, ones of another header and plain rubbish,
/// cut anywhere.
StreamCase ReadStreamCase(std::span<const std::uint8_t> data);

/// How the bytes that make up one reply, as the program must see it, are cut.
enum class Cutting {
    Whole,  ///< not at all
    Single  ///< singly, up to the byte that completes the reply
};

/// The stream of `pieces` cut anew, but only where fewer than `length` bytes wait, so that nothing
/// that the program does may change.
std::vector<Piece> Recut(const std::vector<Piece>& pieces, std::size_t length, Cutting cutting);

}  // namespace orbkl4::test
