#pragma once

#include "base/bytes.h"
#include "state/app_state.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orbkl4 {

/// What the sensor says of itself when a connection is made.
struct DeviceIdentity : SensorIdentity, GainScales {};

/// Whether `reply` counts as a firmware version reply in the search: 5 bytes, the header, and a
/// checksum that is the sum without the modulo. False for an empty one.
bool IsFirmwareReply(const Bytes& reply);

/// The five requests for the identity, in order; their replies are read together.
std::array<Bytes, 5> IdentityRequests();

/// The identity in the five replies. Nothing where they aren't 31 bytes, or where neither the
/// firmware's header nor the serial number's is in its place; no checksum is tested.
std::optional<DeviceIdentity> ParseIdentity(const Bytes& replies);

/// A firmware number with points: "3.1.01" for 3101, "12.3.45" for 12345.
std::string FirmwareText(double number);

/// The warning for each gain scale that is unset, in the order gyro, accelerometer, magnetometer.
std::vector<std::string_view> GainScaleWarnings(const GainScales& scales);

}  // namespace orbkl4
