#include "acquire/channels.h"

#include "acquire/closed_port.h"
#include "acquire/data_files.h"
#include "link/communication.h"
#include "platform/events/mscomm.h"
#include "platform/windows/mdi_frame.h"
#include "platform/windows/screen.h"
#include "state/app_state.h"

#include <algorithm>
#include <array>

namespace orbkl4 {

namespace {

/// Flicks the frame's width and holds the thread meanwhile.
void Nudge(const Screen& screen) {
    constexpr int twips = 50;
    constexpr std::int32_t milliseconds = 100;
    auto* frame = qobject_cast<MdiFrame*>(screen.window());
    if (frame != nullptr) frame->ChangeWidth(twips);
    WaitMilliseconds(milliseconds);
    if (frame != nullptr) frame->ChangeWidth(-twips);
}

void NudgeIfOverlong(const Screen& screen) {
    constexpr std::size_t onePacket = 31;
    if (AppState.CommandBytes.size() > onePacket) Nudge(screen);
}

void DrainPort(MSComm& port) {
    while (port.InBufferCount() != 0) port.Input(AppState.CommandBytes);
}

void WriteSensorBits(Side /*side*/, std::string_view timeText) { WriteSensorBitsToFile(timeText); }

void WriteAnglesAccRate(Side /*side*/, std::string_view timeText) {
    WriteAnglesAccRateVectorsToFile(timeText);
}

constexpr ChannelExtras passOverClosedPort{.input = InputUnlessClosed,
                                           .output = OutputUnlessClosed};
constexpr ChannelExtras nudgeAndDrain{
    .afterInput = NudgeIfOverlong, .beforeResend = DrainPort, .onError = Nudge};

using enum DeviceCommand;

// clang-format off
constexpr auto channels = std::to_array<SamplingChannel>({
    {"SensorBits", "mnuSample", "MSComm1", "TimerSampling", "LED", CmdRawSensorBits,
     DecodeRawBits, WriteSensorBits, "", "", passOverClosedPort},
    {"Vectors", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED", CmdGyroStabVectors,
     DecodeGyroVectors, WriteVectorsToFile, "mnuSampleInstant", "fraInstant"},
    {"Vectors", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI", CmdInstantVectors,
     DecodeInstantVectors, WriteVectorsToFile, "mnuSampleGyro", "fraGyro"},
    {"Quaternions", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED", CmdGyroStabQuaternion,
     DecodeGyroQuaternion, WriteQuaternionsToFile, "mnuSampleInstant", "fraInstant"},
    {"Quaternions", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI",
     CmdInstantQuaternion,
     DecodeInstantQuaternion, WriteQuaternionsToFile, "mnuSampleGyro", "fraGyro"},
    {"Angles", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED", CmdGyroStabEuler,
     DecodeGyroEuler, WriteAnglesToFile, "mnuSampleInstant", ""},
    {"Angles", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI", CmdInstantEuler,
     DecodeInstantEuler, WriteAnglesToFile, "mnuSampleGyro", ""},
    {"Matrices", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED", CmdGyroStabMatrix,
     DecodeGyroMatrix, WriteMatrixToFile, "mnuSampleInstant", "fraInstant"},
    {"Matrices", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI", CmdInstantMatrix,
     DecodeInstantMatrix, WriteMatrixToFile, "mnuSampleGyro", "fraGyro"},
    {"AnglesAccRate", "mnuSample", "MSComm1", "TimerSampling", "LED", CmdEulerAccelRate,
     DecodeEulerAccelRate, WriteAnglesAccRate, "", ""},
    {"QuatVec", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED", CmdGyroStabQuatCompVectors,
     DecodeGyroQuatVectors, WriteQuatVecsToFile, "mnuSampleInstant", "fraInstant", nudgeAndDrain},
    {"QuatVec", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI",
     CmdGyroStabQuatInstantVectors,
     DecodeInstantQuatVectors, WriteQuatVecsToFile, "mnuSampleGyro", "fraGyro", nudgeAndDrain},
});
// clang-format on

static_assert(channels.size() == samplePackets.size(), "one channel for each packet");

}  // namespace

std::span<const SamplingChannel> ChannelsOf(std::string_view screen) {
    const auto onScreen = [screen](const SamplingChannel& row) { return row.screen == screen; };
    const auto* first = std::ranges::find_if(channels, onScreen);
    return {first, std::find_if_not(first, channels.end(), onScreen)};
}

}  // namespace orbkl4
