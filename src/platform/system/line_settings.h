#pragma once

#include <QSerialPort>

#include <string_view>

namespace orbkl4 {

/// Line settings as numbers.
struct LineSettings {
    qint32 baud = 0;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;
};

/// Reads a text such as "38400,n,8,1": baud, parity (n, e, o, m or s), data bits (5 to 8), stop
/// bits (1, 1.5 or 2); error 380 for any other text.
LineSettings ParseLineSettings(std::string_view text);

}  // namespace orbkl4
