#include "cli/reply.h"

#include "link/logic/frame_check.h"

#include <array>

namespace orbkl4::cli {

namespace {

/// The bytes of the frame that each header byte begins; 0 if it begins none.
constexpr auto frameLengths = [] {
    std::array<std::size_t, 256> lengths{};
    for (const CommandFormat& format : commandFormats)
        lengths.at(ByteOf(format.command)) = format.replyLength;
    return lengths;
}();

}  // namespace

std::optional<Bytes> ReplyIn(const Bytes& received, DeviceCommand command, bool moreMayCome) {
    std::size_t offset = 0;
    while (offset < received.size()) {
        const std::size_t length = frameLengths.at(received[offset]);
        const bool whole = offset + length <= received.size();
        if (!whole && moreMayCome) return std::nullopt;
        if (length == 0 || !whole || !ChecksumHolds(received, offset, length)) {
            ++offset;
            continue;
        }
        const auto begin = received.begin() + static_cast<std::ptrdiff_t>(offset);
        if (*begin == ByteOf(command)) return Bytes(begin, begin + static_cast<int>(length));
        offset += length;
    }
    return std::nullopt;
}

}  // namespace orbkl4::cli
