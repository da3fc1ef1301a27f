#pragma once

#include "simulator/bytes.h"

#include <array>
#include <optional>

namespace orbkl4sim {

/// Stands for a byte of a request that may have any value.
inline constexpr int kAny = -1;

/// The length of a command's whole request, and the bytes after the command.
struct RequestFormat {
    std::uint8_t command;
    std::size_t length;
    std::array<int, 6> rest{};
};

/// The format of requests that begin with `command`; null for an unknown command.
const RequestFormat* FindFormat(std::uint8_t command);

/// Whether `request` is complete and has the fixed bytes of its command.
bool IsWellFormed(const Bytes& request);

/// Finds the requests in a stream of bytes. Bytes that don't begin a request are skipped.
class RequestParser {
  public:
    /// Takes the `byte` that arrived at `time` and returns the request that it completes, whether
    /// its fixed bytes are right or wrong. A request is dropped after a gap of 100 ms.
    std::optional<Bytes> Feed(std::uint8_t byte, Time time);

    /// Drops an incomplete request.
    void Reset() { partial_.clear(); }

  private:
    Bytes partial_;
    Time last_{};
};

}  // namespace orbkl4sim
