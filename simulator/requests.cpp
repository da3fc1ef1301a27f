#include "simulator/requests.h"

#include <algorithm>
#include <utility>

namespace orbkl4sim {

namespace {

using namespace std::chrono_literals;

constexpr Time kStall = 100ms;

constexpr std::array kShapes{
    RequestShape{0x01, 1},
    RequestShape{0x02, 1},
    RequestShape{0x03, 1},
    RequestShape{0x04, 1},
    RequestShape{0x05, 1},
    RequestShape{0x06, 1},
    RequestShape{0x07, 1},
    RequestShape{0x0A, 1},
    RequestShape{0x0B, 1},
    RequestShape{0x0C, 1},
    RequestShape{0x0D, 1},
    RequestShape{0x0E, 1},
    RequestShape{0x0F, 4, {0xC1, 0xC3, 0xC5}},
    RequestShape{0x11, 4, {0xC1, 0xC3, 0xC5}},
    RequestShape{0x12, 1},
    RequestShape{0x24, 7, {kAny, kAny, kAny, kAny, kAny, kAny}},
    RequestShape{0x25, 1},
    RequestShape{0x27, 2, {kAny}},
    RequestShape{0x28, 3, {0x00, kAny}},
    RequestShape{0x29, 7, {0x71, 0x00, kAny, kAny, kAny, 0xAA}},
    RequestShape{0x31, 1},
    RequestShape{0x40, 3, {0x71, 0x3E}},
    RequestShape{0x41, 1},
    RequestShape{0x42, 6, {0x71, 0x3E, kAny, kAny, kAny}},
    RequestShape{0xF0, 1},
    RequestShape{0xF1, 1},
};

}  // namespace

const RequestShape* ShapeOf(std::uint8_t command) {
    const auto* const shape = std::ranges::find(kShapes, command, &RequestShape::command);
    return shape == kShapes.end() ? nullptr : &*shape;
}

bool IsWellFormed(const Bytes& request) {
    const RequestShape* const shape = request.empty() ? nullptr : ShapeOf(request.front());
    if (shape == nullptr || request.size() != shape->length) return false;
    for (std::size_t at = 1; at < request.size(); ++at) {
        const int demanded = shape->rest[at - 1];
        if (demanded != kAny && demanded != request[at]) return false;
    }
    return true;
}

std::optional<Bytes> RequestParser::Feed(std::uint8_t byte, Time time) {
    if (time - last_ > kStall) partial_.clear();
    last_ = time;
    if (partial_.empty() && ShapeOf(byte) == nullptr) return std::nullopt;
    partial_.push_back(byte);
    if (partial_.size() < ShapeOf(partial_.front())->length) return std::nullopt;
    return std::exchange(partial_, {});
}

}  // namespace orbkl4sim
