#include "cli/commands/common_options.h"

#include "cli/search.h"
#include "platform/system/port_device.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cstdlib>

namespace orbkl4::cli {

namespace {

constexpr const char* deviceOption = "--device";
constexpr const char* portOption = "--port";
constexpr const char* sensorOption = "--sensor";
constexpr const char* baudOption = "--baud";

void TakeVariable(CLI::App& app, const char* option, const char* variable) {
    const char* const text = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe)
    if (text == nullptr || *text == '\0') return;
    try {
        app.get_option(option)->add_result(text);
        app.get_option(option)->run_callback();
    } catch (const CLI::ParseError& error) {
        throw CLI::ValidationError(variable, error.what());
    }
}

}  // namespace

void AddCommonOptions(CLI::App& app, Options& options) {
    constexpr int lastSerialNumber = 65535;
    SensorChoice& sensor = options.sensor;
    auto* const device = app.add_option(deviceOption, sensor.device, "The sensor on the line PATH")
                             ->type_name("PATH");
    app.add_option(portOption, sensor.port, "The sensor on port N of the workbench, 1 to 16")
        ->type_name("N")
        ->check(CLI::Range(1, lastPortNumber).description(""))
        ->excludes(device);
    app.add_option(sensorOption, sensor.serialNumber, "The sensor with this serial number")
        ->type_name("SERIAL")
        ->check(CLI::Range(0, lastSerialNumber).description(""));
    app.add_option(baudOption, sensor.baud, "Its speed, in place of trying all three")
        ->check(CLI::IsMember(SpeedsToTry({})));
    app.add_flag("--json", options.json, "Print one JSON document");
    app.add_flag("-q,--quiet", options.quiet, "Print no messages but errors");
}

void TakeEnvironment(CLI::App& app) {
    const bool chosen =
        app.count(deviceOption) + app.count(portOption) + app.count(sensorOption) > 0;
    if (!chosen) {
        TakeVariable(app, deviceOption, "ORB_KL4_DEVICE");
        TakeVariable(app, sensorOption, "ORB_KL4_SENSOR");
    }
    if (app.count(baudOption) == 0) TakeVariable(app, baudOption, "ORB_KL4_BAUD");
}

}  // namespace orbkl4::cli
