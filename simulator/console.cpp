#include "simulator/console.h"

#include "simulator/port_link.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace orbkl4sim {

namespace {

constexpr const char* kDone = "ok";

constexpr NumberRange kRate{"RATE", 0, 1};
constexpr NumberRange kPort{"PORT", 1, 16, NumberRange::Kind::kWhole};
constexpr NumberRange kDelay{"MILLISECONDS", 0, kLongestDelay};
constexpr NumberRange kCelsius{"CELSIUS", -50, 449};  // what the temperature word can express

/// A command without arguments that answers "ok".
auto Simple(std::function<void()> action) {
    return [action = std::move(action)](Arguments& arguments) -> std::string {
        arguments.ExpectEnd();
        action();
        return kDone;
    };
}

/// A command with the argument `on` or `off` that answers "ok".
auto Switch(std::function<void(bool)> action) {
    return [action = std::move(action)](Arguments& arguments) -> std::string {
        action(arguments.LastSwitch());
        return kDone;
    };
}

/// A command without arguments that answers with a text.
auto Query(std::function<std::string()> text) {
    return [text = std::move(text)](Arguments& arguments) {
        arguments.ExpectEnd();
        return text();
    };
}

}  // namespace

Console::Console(Simulator& simulator, std::atomic<bool>& logging)
    : simulator_(simulator), logging_(logging), commands_(OtherCommands()) {
    std::ranges::move(FaultCommands(), std::back_inserter(commands_));
}

std::vector<Console::Command> Console::OtherCommands() {
    return {
        {"help", "", "shows this", Query([this] { return Help(); })},
        {"motion", "rest [ROLL PITCH YAW]|tumble|file PATH", "moves the sensor",
         [this](Arguments& arguments) {
             simulator_.SetMotion(ParseMotion(std::string(arguments.Rest())));
             return kDone;
         }},
        {"temperature", "CELSIUS", "warms or cools the sensor",
         [this](Arguments& arguments) {
             simulator_.SetTemperature(arguments.LastNumber(kCelsius));
             return kDone;
         }},
        {"eeprom", "ADDRESS [WORD]", "shows or sets a word of the memory",
         [this](Arguments& arguments) { return Memory(arguments); }},
        {"device", "", "shows the device's path",
         Query([this] { return simulator_.DevicePath().string(); })},
        {"log", "on|off", "shows each request received",
         Switch([this](bool on) { logging_ = on; })},
        {"power-cycle", "", "switches the sensor off and on",
         Simple([this] { simulator_.PowerCycle(); })},
        {"quit", "", "ends the program", Simple([this] { ended_ = true; })},
        {"faults", "", "lists the faults that are on", Query([this] { return Faults(); })},
    };
}

std::vector<Console::Command> Console::FaultCommands() {
    std::vector<Command> commands{
        {"silent", "on|off", "carries out requests but sends nothing",
         Switch([this](bool on) { simulator_.SetSilent(on); })},
        {"flood", "on|off", "sends random bytes at full speed",
         Switch([this](bool on) { simulator_.SetFlood(on); })},
        {"unplug", "", "unplugs the adapter", Simple([this] { simulator_.Unplug(); })},
        {"replug", "[PORT]", "plugs it in again, also on another port",
         [this](Arguments& arguments) {
             const auto port = arguments.OptionalLastNumber(kPort);
             if (port) {
                 simulator_.ReplugAs(PortLinkPath(static_cast<int>(*port)));
             } else {
                 simulator_.Replug();
             }
             return kDone;
         }},
        {"power", "on|off", "switches the sensor on or off",
         Switch([this](bool on) { simulator_.SetPower(on); })},
        {"stuck", "ADDRESS on|off", "ignores writes to a word but confirms them",
         [this](Arguments& arguments) {
             const auto wordAddress = static_cast<int>(arguments.Number(kAddressRange));
             simulator_.SetStuck(wordAddress, arguments.LastSwitch());
             return kDone;
         }},
    };
    for (const RateFault& fault : kRateFaults) {
        const bool delays = fault.rate == &FaultRates::delay;
        commands.push_back(
            {fault.name, delays ? "RATE [MILLISECONDS]" : "RATE", fault.help,
             [this, rate = fault.rate](Arguments& arguments) { return SetRate(rate, arguments); }});
    }
    return commands;
}

std::string Console::Execute(const std::string& line) {
    Arguments arguments(line);
    if (arguments.AtEnd()) return "";
    const std::string name(arguments.Word("the command"));
    const auto command = std::ranges::find(commands_, name, &Command::name);
    if (command == commands_.end()) return "error: no command '" + name + "'; try help";
    try {
        return command->run(arguments);
    } catch (const std::exception& error) {
        return std::string("error: ") + error.what();
    }
}

std::string Console::Help() const {
    std::ostringstream text;
    for (const Command& command : commands_) {
        const std::string call = command.name + ' ' + command.usage;
        text << std::left << std::setw(46) << call << ' ' << command.help << '\n';
    }
    text << "A RATE is the fraction of replies, from 0 to 1.";
    return text.str();
}

/// The faults that are on, as the commands that switch them on.
std::string Console::Faults() const {
    const FaultState state = simulator_.Faults();
    std::ostringstream text;
    const auto begin = [&text]() -> std::ostream& {
        return text << (text.tellp() > 0 ? ", " : "");
    };
    for (const RateFault& fault : kRateFaults) {
        const double rate = state.rates.*fault.rate;
        if (rate == 0) continue;
        begin() << fault.name << ' ' << rate;
        if (fault.rate == &FaultRates::delay) {
            text << ' ' << std::chrono::duration<double, std::milli>(state.rates.delayTime).count();
        }
    }
    if (state.silent) begin() << "silent on";
    if (state.flooding) begin() << "flood on";
    for (const int wordAddress : state.stuckWords) begin() << "stuck " << wordAddress << " on";
    if (state.unpowered) begin() << "power off";
    if (state.unplugged) begin() << "unplug";
    return text.tellp() > 0 ? text.str() : "no faults are on";
}

std::string Console::SetRate(double FaultRates::*rate, Arguments& arguments) {
    FaultRates rates = simulator_.Faults().rates;
    if (rate == &FaultRates::delay) {
        rates.delay = arguments.Number(kRate);
        const auto milliseconds = arguments.OptionalLastNumber(kDelay);
        if (milliseconds) rates.delayTime = Milliseconds(*milliseconds);
    } else {
        rates.*rate = arguments.LastNumber(kRate);
    }
    simulator_.SetFaults(rates);
    return kDone;
}

std::string Console::Memory(Arguments& arguments) {
    const auto wordAddress = static_cast<int>(arguments.Number(kAddressRange));
    const auto word = arguments.OptionalLastNumber(kWordRange);
    if (!word) return std::to_string(simulator_.Word(wordAddress));
    simulator_.SetWord(wordAddress, static_cast<std::uint16_t>(*word));
    return kDone;
}

}  // namespace orbkl4sim
