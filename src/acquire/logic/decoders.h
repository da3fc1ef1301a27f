#pragma once

#include "acquire/logic/packets.h"
#include "state/app_state.h"
#include "state/sample_state.h"

namespace orbkl4 {

/// The decoder of one data command under its own name, for the program's two records.
struct Decoder {
    DeviceCommand command;

    /// Decodes `AppState.CommandBytes` into `SampleState`; false for a bad packet, see `Decode`.
    bool operator()() const {
        return Decode(PacketOf(command), AppState.CommandBytes, AppState, SampleState);
    }
};

inline constexpr Decoder DecodeRawBits{DeviceCommand::CmdRawSensorBits};
inline constexpr Decoder DecodeGyroVectors{DeviceCommand::CmdGyroStabVectors};
inline constexpr Decoder DecodeInstantVectors{DeviceCommand::CmdInstantVectors};
inline constexpr Decoder DecodeGyroQuaternion{DeviceCommand::CmdGyroStabQuaternion};
inline constexpr Decoder DecodeInstantQuaternion{DeviceCommand::CmdInstantQuaternion};
inline constexpr Decoder DecodeGyroMatrix{DeviceCommand::CmdGyroStabMatrix};
inline constexpr Decoder DecodeInstantMatrix{DeviceCommand::CmdInstantMatrix};
inline constexpr Decoder DecodeGyroEuler{DeviceCommand::CmdGyroStabEuler};
inline constexpr Decoder DecodeInstantEuler{DeviceCommand::CmdInstantEuler};
inline constexpr Decoder DecodeEulerAccelRate{DeviceCommand::CmdEulerAccelRate};
inline constexpr Decoder DecodeGyroQuatVectors{DeviceCommand::CmdGyroStabQuatCompVectors};
inline constexpr Decoder DecodeInstantQuatVectors{DeviceCommand::CmdGyroStabQuatInstantVectors};

}  // namespace orbkl4
