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

/// Whether `reply` is a firmware version reply by the search's own rule: 5 bytes, its header, a sum
/// that isn't wrapped. An empty reply is none.
bool IsFirmwareReply(const Bytes& reply);

/// The five requests whose replies, back to back in one read, make up the identity; in order.
std::array<Bytes, 5> IdentityRequests();

/// The identity told by the five replies, nothing unless they are 31 bytes with the firmware's
/// header or the serial number's in its place; no checksum is tested.
std::optional<DeviceIdentity> ParseIdentity(const Bytes& replies);

/// A firmware number with its points: "3.1.01" for 3101, "12.3.45" for 12345.
std::string FirmwareText(double number);

/// The warning for each gain scale that is unset, in the order gyro, accelerometer, magnetometer.
std::vector<std::string_view> GainScaleWarnings(const GainScales& scales);

}  // namespace orbkl4
