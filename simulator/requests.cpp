#include "simulator/requests.h"

#include <algorithm>
#include <utility>

namespace orbkl4sim {

namespace {

using namespace std::chrono_literals;

constexpr Time kLongestGap = 100ms;

constexpr std::array kFormats{
    RequestFormat{0x01, 1},
    RequestFormat{0x02, 1},
    RequestFormat{0x03, 1},
    RequestFormat{0x04, 1},
    RequestFormat{0x05, 1},
    RequestFormat{0x06, 1},
    RequestFormat{0x07, 1},
    RequestFormat{0x0A, 1},
    RequestFormat{0x0B, 1},
    RequestFormat{0x0C, 1},
    RequestFormat{0x0D, 1},
    RequestFormat{0x0E, 1},
    RequestFormat{0x0F, 4, {0xC1, 0xC3, 0xC5}},
    RequestFormat{0x11, 4, {0xC1, 0xC3, 0xC5}},
    RequestFormat{0x12, 1},
    RequestFormat{0x24, 7, {kAny, kAny, kAny, kAny, kAny, kAny}},
    RequestFormat{0x25, 1},
    RequestFormat{0x27, 2, {kAny}},
    RequestFormat{0x28, 3, {0x00, kAny}},
    RequestFormat{0x29, 7, {0x71, 0x00, kAny, kAny, kAny, 0xAA}},
    RequestFormat{0x31, 1},
    RequestFormat{0x40, 3, {0x71, 0x3E}},
    RequestFormat{0x41, 1},
    RequestFormat{0x42, 6, {0x71, 0x3E, kAny, kAny, kAny}},
    RequestFormat{0xF0, 1},
    RequestFormat{0xF1, 1},
};

}  // namespace

const RequestFormat* FindFormat(std::uint8_t command) {
    const auto* const format = std::ranges::find(kFormats, command, &RequestFormat::command);
    return format == kFormats.end() ? nullptr : &*format;
}

bool IsWellFormed(const Bytes& request) {
    const RequestFormat* const format = request.empty() ? nullptr : FindFormat(request.front());
    if (format == nullptr || request.size() != format->length) return false;
    for (std::size_t at = 1; at < request.size(); ++at) {
        const int expected = format->rest[at - 1];
        if (expected != kAny && expected != request[at]) return false;
    }
    return true;
}

std::optional<Bytes> RequestParser::Feed(std::uint8_t byte, Time time) {
    if (time - last_ > kLongestGap) partial_.clear();
    last_ = time;
    if (partial_.empty() && FindFormat(byte) == nullptr) return std::nullopt;
    partial_.push_back(byte);
    if (partial_.size() < FindFormat(partial_.front())->length) return std::nullopt;
    return std::exchange(partial_, {});
}

}  // namespace orbkl4sim
