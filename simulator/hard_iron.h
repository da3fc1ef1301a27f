#pragma once

#include "simulator/geometry.h"

#include <algorithm>
#include <optional>

namespace orbkl4sim {

/// The lowest and highest field seen on each axis while the sensor was turned, in gauss.
struct FieldRange {
    Vector3 lowest;
    Vector3 highest;
};

/// `range` widened so that it holds `field`; a range of that one point where there was none.
inline FieldRange Widened(const std::optional<FieldRange>& range, const Vector3& field) {
    if (!range) return {field, field};
    const auto [low, high] = *range;
    return {{std::min(low.x, field.x), std::min(low.y, field.y), std::min(low.z, field.z)},
            {std::max(high.x, field.x), std::max(high.y, field.y), std::max(high.z, field.z)}};
}

/// The field of the iron that turned with the sensor: the middle of the range.
inline Vector3 OffsetFromSphere(const FieldRange& range) {
    return (range.lowest + range.highest) * 0.5;
}

/// The same after turns in the level plane alone, where Z stayed at the earth's `vertical` field.
inline Vector3 OffsetFromCircle(const FieldRange& range, double vertical) {
    Vector3 offset = OffsetFromSphere(range);
    offset.z -= vertical;
    return offset;
}

}  // namespace orbkl4sim
