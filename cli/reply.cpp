#include "cli/reply.h"

#include "link/logic/frame_check.h"

#include <algorithm>

namespace orbkl4::cli {

namespace {

/// The bytes of a frame that begins with `header`; 0 where none does.
std::size_t FrameLength(std::uint8_t header) {
    const auto* const row = std::ranges::find(
        commandFormats, header, [](const CommandFormat& format) { return ByteOf(format.command); });
    return row == commandFormats.end() ? 0 : row->replyLength;
}

}  // namespace

std::optional<Bytes> ReplyIn(const Bytes& received, DeviceCommand command, bool moreMayCome) {
    std::size_t offset = 0;
    while (offset < received.size()) {
        const std::size_t length = FrameLength(received[offset]);
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
