#include "cli/ports.h"

#include "cli/commands/command.h"
#include "cli/search.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>

#include <algorithm>
#include <array>
#include <map>
#include <memory>

namespace orbkl4::cli {

namespace {

using SensorsByDevice = std::map<QString, FoundSensor>;

struct StateRow {
    PortState state;
    const char* name;
    Colour colour;
};

constexpr std::array stateRows = std::to_array<StateRow>({
    {PortState::Free, "free", Colour::Good},
    {PortState::Absent, "absent", Colour::Faint},
    {PortState::Denied, "denied", Colour::Bad},
    {PortState::Busy, "busy", Colour::Bad},
});

const StateRow& RowOf(PortState state) {
    return *std::ranges::find(stateRows, state, &StateRow::state);
}

SensorsByDevice AskFreePorts(const SensorChoice& choice) {
    const std::vector<int> speeds = SpeedsToTry(choice);
    SensorsByDevice sensors;
    for (FoundSensor& sensor :
         AskForSensors(OpenFreePorts(speeds.front()), speeds, patienceWithAll)) {
        const QString device = QString::fromStdString(sensor.line->Name());
        sensors.emplace(device, std::move(sensor));
    }
    return sensors;
}

/// `text` as JSON, null if it is empty.
QJsonValue OrNull(const QString& text) { return text.isEmpty() ? QJsonValue() : QJsonValue(text); }

QJsonObject Described(const Port& port, const FoundSensor* sensor) {
    QJsonValue found;
    if (sensor != nullptr) {
        found = QJsonObject{{"serialNumber", sensor->serialNumber},
                            {"firmware", QString::fromStdString(sensor->firmware)},
                            {"baud", sensor->line->Baud()}};
    }
    return {{"port", port.number},
            {"device", OrNull(port.device.name)},
            {"byId", OrNull(QString::fromStdString(port.byId))},
            {"description", OrNull(QString::fromStdString(port.description))},
            {"state", QLatin1String(RowOf(port.state).name)},
            {"remedy", OrNull(QString::fromStdString(port.remedy))},
            {"sensor", found}};
}

std::vector<Cell> RowFor(const Port& port, const FoundSensor* sensor) {
    const StateRow& state = RowOf(port.state);
    QString remark = QString::fromStdString(port.remedy);
    if (sensor != nullptr) {
        remark = QStringLiteral("sensor %1, firmware %2, %3 baud")
                     .arg(sensor->serialNumber)
                     .arg(QString::fromStdString(sensor->firmware))
                     .arg(sensor->line->Baud());
    }
    return {QString::number(port.number),
            port.device.name,
            Cell(state.name, state.colour),
            port.description,
            port.byId,
            remark};
}

ExitCode ShowPorts(const Context& context, bool probe) {
    const std::vector<Port> ports = ListPorts();
    const SensorsByDevice sensors =
        probe ? AskFreePorts(context.options.sensor) : SensorsByDevice();
    Table table{.heading = {"PORT", "DEVICE", "STATE", "ADAPTER", "BY ID", ""}, .rows = {}};
    QJsonArray described;
    for (const Port& port : ports) {
        const auto sensor = sensors.find(port.device.name);
        const FoundSensor* const found = sensor == sensors.end() ? nullptr : &sensor->second;
        described.append(Described(port, found));
        table.rows.push_back(RowFor(port, found));
    }
    context.output.Show("orb-kl4 ports", {{"ports", described}}, table);
    return ExitCode::Done;
}

}  // namespace

Action SetUpPorts(CLI::App& app) {
    const auto probe = std::make_shared<bool>(false);
    app.add_flag("--probe", *probe, "Ask each free port for its sensor");
    return [probe](const Context& context) { return ShowPorts(context, *probe); };
}

}  // namespace orbkl4::cli
