#include "cli/channels.h"
#include "cli/commands/command.h"
#include "cli/session.h"
#include "link/logic/requests.h"
#include "platform/system/qt_text.h"
#include "settings/logic/temperature.h"

#include <CLI/CLI.hpp>

#include <array>
#include <string_view>

namespace orbkl4::cli {

namespace {

/// What the sensor says of itself beyond its serial number and firmware.
struct Condition {
    GainScales gainScales;
    std::string_view mode;
    double tickIntervalMilliseconds;
    double celsius;
};

Condition ReadCondition(Session& session) {
    Condition condition{};
    condition.gainScales = session.ReadGainScales();
    condition.mode = ModeName(session.ReadWord(eeprom::continuousMode));
    condition.tickIntervalMilliseconds = session.ReadTickInterval();
    const Bytes temperature = session.Exchange(Request(DeviceCommand::CmdTemperature));
    condition.celsius = CelsiusOf(WordAt(temperature, 1));
    return condition;
}

QJsonObject Document(const Session& session, const Condition& condition) {
    const GainScales& scales = condition.gainScales;
    return {{"device", QString::fromStdString(session.SerialLine().Name())},
            {"baud", session.SerialLine().Baud()},
            {"serialNumber", session.SerialNumber()},
            {"firmware", QString::fromStdString(session.Firmware())},
            {"gainScales", QJsonObject{{"gyro", scales.GyroGainScale},
                                       {"accelerometer", scales.AccGainScale},
                                       {"magnetometer", scales.MagGainScale}}},
            {"mode", ToQString(condition.mode)},
            {"tickInterval_ms", condition.tickIntervalMilliseconds},
            {"temperature_C", condition.celsius}};
}

Cell Scale(double word) {
    constexpr double unset = 65535;
    return word == unset ? Cell(QStringLiteral("not set"), Colour::Bad)
                         : Cell(QString::number(word));
}

Table Listing(const Session& session, const Condition& condition) {
    const GainScales& scales = condition.gainScales;
    return {
        .heading = {},
        .rows = {{"Device", session.SerialLine().Name()},
                 {"Speed", QStringLiteral("%1 baud").arg(session.SerialLine().Baud())},
                 {"Serial number", QString::number(session.SerialNumber())},
                 {"Firmware", session.Firmware()},
                 {"Gyro gain scale", Scale(scales.GyroGainScale)},
                 {"Accelerometer gain scale", Scale(scales.AccGainScale)},
                 {"Magnetometer gain scale", Scale(scales.MagGainScale)},
                 {"Mode", ToQString(condition.mode)},
                 {"Tick interval", QStringLiteral("%1 ms").arg(condition.tickIntervalMilliseconds)},
                 {"Temperature", QStringLiteral("%1 \u00b0C").arg(condition.celsius)}}};
}

ExitCode ShowInfo(const Context& context) {
    Session session(context.options.sensor);
    const Condition condition = ReadCondition(session);
    context.output.Show("orb-kl4 info", Document(session, condition), Listing(session, condition));
    return ExitCode::Done;
}

}  // namespace

Action SetUpInfo(CLI::App& /*app*/) { return ShowInfo; }

}  // namespace orbkl4::cli
