#include "platform/system/line_settings.h"

#include "base/run_time_error.h"

#include <QStringList>

#include <array>
#include <string>
#include <utility>

namespace orbkl4 {

namespace {

template <typename Value, std::size_t size>
Value Choose(const std::array<std::pair<const char*, Value>, size>& table, const QString& text,
             const std::string& settings) {
    for (const auto& [name, value] : table) {
        if (text == QLatin1String(name)) return value;
    }
    Raise(ErrorNumber::InvalidPropertyValue, "Invalid line settings \"" + settings + "\"");
}

constexpr std::array<std::pair<const char*, QSerialPort::Parity>, 5> parities{
    {{"n", QSerialPort::NoParity},
     {"e", QSerialPort::EvenParity},
     {"o", QSerialPort::OddParity},
     {"m", QSerialPort::MarkParity},
     {"s", QSerialPort::SpaceParity}}};
constexpr std::array<std::pair<const char*, QSerialPort::DataBits>, 4> dataBits{
    {{"8", QSerialPort::Data8},
     {"7", QSerialPort::Data7},
     {"6", QSerialPort::Data6},
     {"5", QSerialPort::Data5}}};
constexpr std::array<std::pair<const char*, QSerialPort::StopBits>, 3> stopBits{
    {{"1", QSerialPort::OneStop},
     {"2", QSerialPort::TwoStop},
     {"1.5", QSerialPort::OneAndHalfStop}}};

}  // namespace

LineSettings ParseLineSettings(std::string_view text) {
    const std::string settings(text);
    const QStringList parts = QString::fromStdString(settings).toLower().split(QLatin1Char(','));
    const qint32 baud = parts.value(0).trimmed().toInt();
    if (parts.size() != 4 || baud <= 0) {
        Raise(ErrorNumber::InvalidPropertyValue, "Invalid line settings \"" + settings + "\"");
    }
    return {baud, Choose(parities, parts[1].trimmed(), settings),
            Choose(dataBits, parts[2].trimmed(), settings),
            Choose(stopBits, parts[3].trimmed(), settings)};
}

}  // namespace orbkl4
