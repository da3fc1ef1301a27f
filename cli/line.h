#pragma once

#include "base/bytes.h"
#include "cli/line_hold.h"
#include "cli/signals.h"

#include <QDeadlineTimer>
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

    int Baud() const { return port_.baudRate(); }

    /// Changes the speed once all that was sent has left, and discards what has come.
    void SetBaud(int baud);

    /// Whether the device is gone.
    bool Dead() const;

    /// What to wait on for bytes to come.
    int Handle() const { return static_cast<int>(port_.handle()); }

    /// Hands `bytes` to the device at once; throws `Failure::LineGone` if it is gone.
    void Send(const Bytes& bytes);

    /// Appends to `received` what has come by now; throws `Failure::LineGone`.
    void TakeIn(Bytes& received);

    /// Waits for bytes and appends them to `received`; false if `deadline` passes without any.
    /// Throws `Failure::LineGone` and `Interrupted`.
    bool Receive(Bytes& received, Clock::time_point deadline);

    /// Drops what has come by now.
    void Discard() const;

  private:
    [[noreturn]] void ThrowGone() const;

    LineHold hold_;  // first, as it must outlive the open port
    std::string name_;
    QSerialPort port_;
    QDeadlineTimer sent_{0};
};

}  // namespace orbkl4::cli
