#include "base/bytes.h"

#include "base/run_time_error.h"

namespace orbkl4 {

std::uint8_t ByteAt(const Bytes& bytes, std::size_t index) {
    if (index >= bytes.size()) Raise(ErrorNumber::SubscriptOutOfRange);
    return bytes[index];
}

double WordAt(const Bytes& bytes, std::size_t offset) {
    return ByteAt(bytes, offset) * 256.0 + ByteAt(bytes, offset + 1);
}

}  // namespace orbkl4
