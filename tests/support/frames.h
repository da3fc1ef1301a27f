#pragma once

#include "base/bytes.h"

#include <cstdint>
#include <vector>

namespace orbkl4 {

/// Sets the last two bytes of a reply to its checksum, by plain integers.
inline void MendChecksum(Bytes& reply) {
    unsigned sum = reply[0];
    for (std::size_t i = 1; i + 4 <= reply.size(); i += 2) sum += reply[i] * 256U + reply[i + 1];
    reply[reply.size() - 2] = static_cast<std::uint8_t>(sum / 256);
    reply[reply.size() - 1] = static_cast<std::uint8_t>(sum);
}

/// A reply of `header`, `words` (ticks included) and a good checksum.
inline Bytes Frame(unsigned header, const std::vector<unsigned>& words) {
    Bytes reply{static_cast<std::uint8_t>(header)};
    for (const unsigned word : words) {
        reply.push_back(static_cast<std::uint8_t>(word / 256));
        reply.push_back(static_cast<std::uint8_t>(word));
    }
    reply.resize(reply.size() + 2);
    MendChecksum(reply);
    return reply;
}

}  // namespace orbkl4
