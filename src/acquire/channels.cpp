#include "acquire/channels.h"

#include "acquire/closed_port.h"
#include "link/communication.h"
#include "platform/events/mscomm.h"
#include "platform/windows/mdi_frame.h"
#include "platform/windows/screen.h"
#include "state/app_state.h"

#include <algorithm>
#include <array>

namespace orbkl4 {

namespace {

/// Widens the frame for a moment and holds the thread meanwhile.
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

void DiscardInput(MSComm& port) {
    while (port.InBufferCount() != 0) port.Input(AppState.CommandBytes);
}

constexpr ChannelExtras passOverClosedPort{.input = InputUnlessClosed, .send = SendUnlessClosed};
constexpr ChannelExtras nudgeAndDrain{
    .afterInput = NudgeIfOverlong, .beforeResend = DiscardInput, .onError = Nudge};

// clang-format off
constexpr auto channelTable = std::to_array<SamplingChannel>({
    {"SensorBits", "mnuSample", "MSComm1", "TimerSampling", "LED",
     DecodeRawBits, &WriteSensorBitsToFile, "", "", "", passOverClosedPort},
    {"Vectors", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED",
     DecodeGyroVectors, &WriteVectorsToFile, "mnuSampleInstant", "fraInstant"},
    {"Vectors", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI",
     DecodeInstantVectors, &WriteVectorsToFile, "mnuSampleGyro", "fraGyro"},
    {"Quaternions", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED",
     DecodeGyroQuaternion, &WriteQuaternionsToFile, "mnuSampleInstant", "fraInstant"},
    {"Quaternions", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI",
     DecodeInstantQuaternion, &WriteQuaternionsToFile, "mnuSampleGyro", "fraGyro"},
    {"Angles", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED",
     DecodeGyroEuler, &WriteAnglesToFile, "mnuSampleInstant"},
    {"Angles", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI",
     DecodeInstantEuler, &WriteAnglesToFile, "mnuSampleGyro"},
    {"Matrices", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED",
     DecodeGyroMatrix, &WriteMatrixToFile, "mnuSampleInstant", "fraInstant"},
    {"Matrices", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI",
     DecodeInstantMatrix, &WriteMatrixToFile, "mnuSampleGyro", "fraGyro"},
    {"AnglesAccRate", "mnuSample", "MSComm1", "TimerSampling", "LED",
     DecodeEulerAccelRate, &WriteAnglesAccRateVectorsToFile},
    {"QuatVec", "mnuSampleGyro", "MSComm1", "TimerSamplingGyro", "LED",
     DecodeGyroQuatVectors, &WriteQuatVecsToFile, "mnuSampleInstant", "fraInstant", "",
     nudgeAndDrain},
    {"QuatVec", "mnuSampleInstant", "MSComm2", "TimerSamplingInstant", "LEDI",
     DecodeInstantQuatVectors, &WriteQuatVecsToFile, "mnuSampleGyro", "fraGyro", "",
     nudgeAndDrain},
    {"SelfTest", "mnuSample", "MSComm1", "TimerSampling", "LED",
     DecodeRawBits, nullptr, "", "", "fraShift", passOverClosedPort},
});
// clang-format on

static_assert(std::ranges::all_of(samplePackets,
                                  [](const SamplePacket& packet) {
                                      return std::ranges::any_of(
                                          channelTable, [&](const SamplingChannel& row) {
                                              return row.Command() == packet.command;
                                          });
                                  }),
              "every packet has a channel that asks for it");

}  // namespace

std::span<const SamplingChannel> ChannelsOf(std::string_view screen) {
    const auto onScreen = [screen](const SamplingChannel& row) { return row.screen == screen; };
    const auto* first = std::ranges::find_if(channelTable, onScreen);
    return {first, std::find_if_not(first, channelTable.end(), onScreen)};
}

}  // namespace orbkl4
