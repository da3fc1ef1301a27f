#pragma once

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

namespace orbkl4sim {

/// Bytes of a request or a reply, in wire order.
using Bytes = std::vector<std::uint8_t>;

/// Time since the simulator was created, or a duration.
using Time = std::chrono::nanoseconds;

/// The duration of `count` milliseconds.
inline Time Milliseconds(double count) {
    return std::chrono::duration_cast<Time>(std::chrono::duration<double, std::milli>(count));
}

/// A reply frame: `header`, `words` in big-endian order, and the checksum word.
inline Bytes Frame(std::uint8_t header, std::span<const std::uint16_t> words) {
    Bytes frame{header};
    unsigned sum = header;
    const auto append = [&frame](unsigned word) {
        frame.push_back(static_cast<std::uint8_t>((word >> 8U) & 0xFFU));
        frame.push_back(static_cast<std::uint8_t>(word & 0xFFU));
    };
    for (const std::uint16_t word : words) {
        append(word);
        sum += word;
    }
    append(sum & 0xFFFFU);
    return frame;
}

inline Bytes Frame(std::uint8_t header, std::initializer_list<std::uint16_t> words) {
    return Frame(header, std::span(words.begin(), words.size()));
}

/// The big-endian word at `offset` of `bytes`; throws std::out_of_range if `bytes` end before it.
inline std::uint16_t WordAt(const Bytes& bytes, std::size_t offset) {
    return static_cast<std::uint16_t>((bytes.at(offset) << 8U) | bytes.at(offset + 1));
}

}  // namespace orbkl4sim
