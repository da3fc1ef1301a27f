#pragma once

#include "base/bytes.h"
#include "cli/line_hold.h"
#include "cli/signals.h"

#include <QSerialPort>

#include <string>

namespace orbkl4::cli {

/// An open serial line, for this program alone, read and written without an event loop. Closing it
/// gives the device its former speed and driver flags back.
class Line {
  public:
    /// Opens `device` at `baud` with 8 data bits, no parity and 1 stop bit, and discards what it
    /// had received before; throws what `LineHold` does.
    Line(const PortDevice& device, int baud);
    ~Line();
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    /// The device's path.
    const std::string& Name() const { return name_; }

    int Baud() const { return baud_; }

    /// Changes the speed once all that was sent has left, and discards what has come.
    void SetBaud(int baud);

    /// Whether the device is gone.
    bool Dead() const;

    /// What to wait on for bytes to come.
    int Handle() const { return handle_; }

    /// Hands `bytes` to the device; throws `Failure::LineGone` if it is gone. What a device doesn't
    /// take within a second is dropped, and its reply missed.
    void Send(const Bytes& bytes);

    /// Appends to `received` what has come by now; throws `Failure::LineGone`.
    void TakeIn(Bytes& received);

    /// Waits for bytes and appends them to `received`; false if `deadline` passes without any.
    /// Throws `Failure::LineGone` and `Interrupted`.
    bool Receive(Bytes& received, Clock::time_point deadline);

    /// Drops what has come by now.
    void Discard() const;

  private:
    void Read(int handle, Bytes& received) const;
    [[noreturn]] void ThrowGone() const;

    LineHold hold_;  // first, as it must outlive the open port
    std::string name_;
    QSerialPort port_;
    int baud_;
    int handle_ = -1;         ///< that of `port_`, whose reads and writes don't wait
    Clock::time_point sent_;  ///< when the bytes handed over have left the line
};

}  // namespace orbkl4::cli
