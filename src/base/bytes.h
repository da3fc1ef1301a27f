#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orbkl4 {

/// Bytes of a request or a reply, in wire order.
using Bytes = std::vector<std::uint8_t>;

/// The byte at `index`; error 9 (subscript out of range) where there is none.
std::uint8_t ByteAt(const Bytes& bytes, std::size_t index);

/// The unsigned big-endian word (0 to 65535) at `offset`; error 9 where it isn't whole.
double WordAt(const Bytes& bytes, std::size_t offset);

}  // namespace orbkl4
