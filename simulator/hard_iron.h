#pragma once

#include "simulator/geometry.h"

#include <algorithm>
#include <optional>

namespace orbkl4sim {

/// The lowest and highest field measured on each axis while the sensor turned, in gauss.
struct FieldRange {
    Vector3 lowest;
    Vector3 highest;
};

/// `range` widened to include `field`; just `field` if there was no range.
inline FieldRange Widened(const std::optional<FieldRange>& range, const Vector3& field) {
    if (!range) return {field, field};
    const auto [low, high] = *range;
    return {{std::min(low.x, field.x), std::min(low.y, field.y), std::min(low.z, field.z)},
            {std::max(high.x, field.x), std::max(high.y, field.y), std::max(high.z, field.z)}};
}

/// The hard iron offset in gauss: the middle of the range.
inline Vector3 OffsetFromSphere(const FieldRange& range) {
    return (range.lowest + range.highest) * 0.5;
}

/// The offset after turns in the level plane, where Z measures the earth's `vertical` field.
inline Vector3 OffsetFromCircle(const FieldRange& range, double vertical) {
    Vector3 offset = OffsetFromSphere(range);
    offset.z -= vertical;
    return offset;
}

}  // namespace orbkl4sim
