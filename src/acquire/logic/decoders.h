#pragma once

#include "acquire/logic/packets.h"
#include "state/app_state.h"
#include "state/sample_state.h"

namespace orbkl4 {

/// The decoder of one data command under its own name, for the program's two records.
struct Decoder {
    const SamplePacket& packet;

    /// Decodes `AppState.CommandBytes` into `SampleState`; false for a bad packet, see `Decode`.
    bool operator()() const { return Decode(packet, AppState.CommandBytes, AppState, SampleState); }
};

inline constexpr Decoder DecodeRawBits{PacketOf(DeviceCommand::CmdRawSensorBits)};
inline constexpr Decoder DecodeGyroVectors{PacketOf(DeviceCommand::CmdGyroStabVectors)};
inline constexpr Decoder DecodeInstantVectors{PacketOf(DeviceCommand::CmdInstantVectors)};
inline constexpr Decoder DecodeGyroQuaternion{PacketOf(DeviceCommand::CmdGyroStabQuaternion)};
inline constexpr Decoder DecodeInstantQuaternion{PacketOf(DeviceCommand::CmdInstantQuaternion)};
inline constexpr Decoder DecodeGyroMatrix{PacketOf(DeviceCommand::CmdGyroStabMatrix)};
inline constexpr Decoder DecodeInstantMatrix{PacketOf(DeviceCommand::CmdInstantMatrix)};
inline constexpr Decoder DecodeGyroEuler{PacketOf(DeviceCommand::CmdGyroStabEuler)};
inline constexpr Decoder DecodeInstantEuler{PacketOf(DeviceCommand::CmdInstantEuler)};
inline constexpr Decoder DecodeEulerAccelRate{PacketOf(DeviceCommand::CmdEulerAccelRate)};
inline constexpr Decoder DecodeGyroQuatVectors{PacketOf(DeviceCommand::CmdGyroStabQuatCompVectors)};
inline constexpr Decoder DecodeInstantQuatVectors{
    PacketOf(DeviceCommand::CmdGyroStabQuatInstantVectors)};

}  // namespace orbkl4
