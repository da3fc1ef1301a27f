#pragma once

#include "acquire/data_files.h"
#include "acquire/logic/decoders.h"
#include "base/bytes.h"

#include <span>
#include <string_view>

namespace orbkl4 {

class MSComm;
class Screen;

/// What one channel does besides; null where it does nothing.
struct ChannelExtras {
    /// Instead of the port's `Input` and of `Send` while a reply is handled.
    void (*input)(MSComm& port, Bytes& bytes) = nullptr;
    void (*send)(MSComm& port, DeviceCommand command) = nullptr;
    /// Right after the reply has been taken into `CommandBytes`.
    void (*afterInput)(const Screen& screen) = nullptr;
    /// Before the request that follows a reply of wrong length or header.
    void (*beforeResend)(MSComm& port) = nullptr;
    /// Before an error in handling a reply is reported.
    void (*onError)(const Screen& screen) = nullptr;
};

/// One way of sampling on one screen. Controls go by their names; empty is none.
struct SamplingChannel {
    const char* screen;
    const char* entry;  ///< the menu entry that starts and stops it
    const char* port;
    const char* timer;  ///< the watchdog
    const char* led;    ///< the lamp that is lit by a good packet
    Decoder decode;
    const RowWriter* write = nullptr;  ///< null where nothing is saved
    const char* otherEntry = "";       ///< disabled while the channel runs, as is `otherFrame`
    const char* otherFrame = "";
    const char* ownFrame = "";  ///< enabled while the channel runs only
    ChannelExtras extras = {};

    /// The reply.
    constexpr const SamplePacket& Packet() const { return decode.packet; }

    /// The one-byte request.
    constexpr DeviceCommand Command() const { return Packet().command; }
};

/// The channels of `screen`, the gyro-stabilized one first.
std::span<const SamplingChannel> ChannelsOf(std::string_view screen);

}  // namespace orbkl4
