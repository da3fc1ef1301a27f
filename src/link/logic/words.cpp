#include "link/logic/words.h"

#include "base/arithmetic.h"
#include "base/run_time_error.h"

namespace orbkl4 {

namespace {

std::uint8_t ToByte(std::int32_t x) {
    if (x < 0 || x > 255) Raise(ErrorNumber::Overflow);
    return static_cast<std::uint8_t>(x);
}

}  // namespace

std::uint8_t ValueToMSB(double x) {
    const std::int32_t whole = ToInt32(x);
    // The division would turn -255 to -1 into byte 0, but no negative number is a word.
    return ToByte(whole < 0 ? whole : whole / 256);
}

std::uint8_t ValueToLSB(double x) { return ToByte(ToInt32(x) % 256); }

}  // namespace orbkl4
