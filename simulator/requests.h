#pragma once

#include "simulator/bytes.h"

#include <array>
#include <optional>

namespace orbkl4sim {

/// A byte of a request that may be anything.
inline constexpr int kAny = -1;

/// What one command asks for: the length of the whole request and the bytes after the command.
struct RequestShape {
    std::uint8_t command;
    std::size_t length;
    std::array<int, 6> rest{};
};

/// The shape of requests that begin with `command`; none where the sensor knows no such command.
const RequestShape* ShapeOf(std::uint8_t command);

/// Whether `request` is whole and carries the fixed bytes that its command demands.
bool IsWellFormed(const Bytes& request);

/// Finds the requests in a stream of bytes. Bytes that begin no request are passed over.
class RequestParser {
  public:
    /// Takes `byte`, which arrived at `time`, and gives the request that it completes, fixed bytes
    /// right or wrong. A request that stalls for 100 ms is forgotten.
    std::optional<Bytes> Feed(std::uint8_t byte, Time time);

    /// Forgets a request begun.
    void Reset() { partial_.clear(); }

  private:
    Bytes partial_;
    Time last_{};
};

}  // namespace orbkl4sim
