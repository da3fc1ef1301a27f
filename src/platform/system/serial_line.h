#pragma once

#include "base/bytes.h"
#include "platform/system/line_settings.h"

#include <QSerialPort>

#include <chrono>
#include <string>

namespace orbkl4 {

struct PortDevice;

/// How messages name the port `number`: "port 2 (/dev/ttyUSB1)", or "port 2" without a device.
std::string PortText(int number, const QString& device);

/// Opens `device` for this program alone and discards what it had received before; `port` names it
/// in error texts. Error 8002 if it is absent or can't be opened, 70 if this user lacks permission,
/// and 8005 if the line is in use.
void OpenLine(QSerialPort& line, const PortDevice& device, const std::string& port,
              const LineSettings& settings);

/// Whether the line is closed, or its device is gone.
bool LineIsDead(const QSerialPort& line);

/// Whether a read would find bytes or an error.
bool HasSomethingToRead(const QSerialPort& line);

/// Hands `bytes` to the operating system at once; emits `errorOccurred` if the line is gone.
void SendAtOnce(QSerialPort& line, const Bytes& bytes);

/// When `count` bytes handed over now will have left a line of `baud` bits a second, if those
/// handed over before will have left it at `before`.
std::chrono::steady_clock::time_point SentAt(int baud, std::size_t count,
                                             std::chrono::steady_clock::time_point before);

/// Waits until `sent`, and up to 5 ms more while the device holds unsent bytes; returns at once if
/// the line is dead.
void AwaitSent(QSerialPort& line, std::chrono::steady_clock::time_point sent);

}  // namespace orbkl4
