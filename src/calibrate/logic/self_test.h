#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace orbkl4 {

/// One shift of the self test: its check box and its bit in the self test byte.
struct SelfTestShift {
    std::string_view control, caption;
    std::uint8_t bit;
};

inline constexpr std::array selfTestShifts = std::to_array<SelfTestShift>({
    {"chk0", "Bit 0: Shift Gyros Negative", 1},
    {"chk1", "Bit 1: Shift Gyros/Accels Positive", 2},
    {"chk2", "Bit 2: Shift Mags", 4},
    {"chk3", "Bit 3: Reverse Mags Shift", 8},
});

/// The self test byte of the shifts that are `ticked`, in the order of `selfTestShifts`.
constexpr std::uint8_t SelfTestByte(std::span<const bool, selfTestShifts.size()> ticked) {
    unsigned sum = 0;
    for (std::size_t i = 0; i < selfTestShifts.size(); ++i)
        if (ticked[i]) sum += selfTestShifts.at(i).bit;
    return static_cast<std::uint8_t>(sum);
}

}  // namespace orbkl4
