#pragma once

#include "base/run_time_error.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orbkl4 {

/// Bytes of a request or a reply, in wire order.
using Bytes = std::vector<std::uint8_t>;

/// The byte at `index`; error 9 (subscript out of range) where there is none.
inline std::uint8_t ByteAt(const Bytes& bytes, std::size_t index) {
    if (index >= bytes.size()) Raise(ErrorNumber::SubscriptOutOfRange);
    return bytes[index];
}

/// The unsigned big-endian word (0 to 65535) at `offset`; error 9 where it isn't whole.
inline double WordAt(const Bytes& bytes, std::size_t offset) {
    return ByteAt(bytes, offset) * 256.0 + ByteAt(bytes, offset + 1);
}

}  // namespace orbkl4
