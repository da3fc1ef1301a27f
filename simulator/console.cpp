#include "simulator/console.h"

#include <algorithm>
#include <iomanip>
#include <iterator>
#include <stdexcept>

namespace orbkl4sim {

namespace {

constexpr const char* kDone = "ok";

void NoMore(std::istringstream& words) {
    if (!(words >> std::ws).eof()) throw std::runtime_error("too many words");
}

/// The last word as a value.
template <typename Value>
Value Last(std::istringstream& words, const char* what) {
    Value value{};
    if (!(words >> value)) throw std::runtime_error(std::string(what) + " is missing");
    NoMore(words);
    return value;
}

bool OnOrOff(std::istringstream& words) {
    const auto word = Last<std::string>(words, "on or off");
    if (word != "on" && word != "off") throw std::runtime_error("neither on nor off: " + word);
    return word == "on";
}

/// An action that takes no words and answers "ok".
auto Simply(std::function<void()> action) {
    return [action = std::move(action)](std::istringstream& words) -> std::string {
        NoMore(words);
        action();
        return kDone;
    };
}

/// An action that takes `on` or `off` and answers "ok".
auto Switch(std::function<void(bool)> action) {
    return [action = std::move(action)](std::istringstream& words) -> std::string {
        action(OnOrOff(words));
        return kDone;
    };
}

double CheckedRate(double rate) {
    if (!(rate >= 0 && rate <= 1)) throw std::runtime_error("a rate is a number from 0 to 1");
    return rate;
}

}  // namespace

Console::Console(Simulator& simulator, const FaultRates& faults, std::atomic<bool>& logging)
    : simulator_(simulator), faults_(faults), logging_(logging), commands_(GeneralCommands()) {
    std::ranges::move(RateCommands(), std::back_inserter(commands_));
}

std::vector<Console::Command> Console::GeneralCommands() {
    return {
        {"help", "", "shows this", [this](std::istringstream&) { return Help(); }},
        {"silent", "on|off", "carries out requests but sends nothing",
         Switch([this](bool on) { simulator_.SetSilent(on); })},
        {"flood", "on|off", "sends random bytes at full speed",
         Switch([this](bool on) { simulator_.SetFlood(on); })},
        {"unplug", "", "unplugs the adapter", Simply([this] { simulator_.Unplug(); })},
        {"replug", "", "plugs it in again", Simply([this] { simulator_.Replug(); })},
        {"power-cycle", "", "switches the sensor off and on",
         Simply([this] { simulator_.PowerCycle(); })},
        {"motion", "rest [ROLL PITCH YAW]|tumble|file PATH", "moves the sensor",
         [this](std::istringstream& words) {
             std::string text;
             std::getline(words >> std::ws, text);
             simulator_.SetMotion(ParseMotion(text));
             return kDone;
         }},
        {"temperature", "CELSIUS", "warms or cools the sensor",
         [this](std::istringstream& words) {
             simulator_.SetTemperature(Last<double>(words, "the temperature"));
             return kDone;
         }},
        {"eeprom", "ADDRESS [WORD]", "shows or sets a word of the memory",
         [this](std::istringstream& words) { return Memory(words); }},
        {"device", "", "shows the device's path",
         [this](std::istringstream& words) {
             NoMore(words);
             return simulator_.DevicePath().string();
         }},
        {"log", "on|off", "shows each request received",
         Switch([this](bool on) { logging_ = on; })},
        {"quit", "", "ends the program", Simply([this] { ended_ = true; })},
    };
}

std::vector<Console::Command> Console::RateCommands() {
    std::vector<Command> commands;
    for (const RateFault& fault : kRateFaults) {
        if (fault.rate == &FaultRates::delay) {
            commands.push_back({fault.name, "RATE [MILLISECONDS]", fault.help,
                                [this](std::istringstream& words) { return Delay(words); }});
        } else {
            commands.push_back({fault.name, "RATE", fault.help,
                                [this, rate = fault.rate](std::istringstream& words) {
                                    return SetRate(rate, words);
                                }});
        }
    }
    return commands;
}

std::string Console::Execute(const std::string& line) {
    std::istringstream words(line);
    std::string name;
    if (!(words >> name)) return "";
    const auto command = std::ranges::find(commands_, name, &Command::name);
    if (command == commands_.end()) return "error: no command '" + name + "'; try help";
    try {
        return command->run(words);
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

std::string Console::SetRate(double FaultRates::*rate, std::istringstream& words) {
    faults_.*rate = CheckedRate(Last<double>(words, "the rate"));
    simulator_.SetFaults(faults_);
    return kDone;
}

std::string Console::Delay(std::istringstream& words) {
    double rate = 0;
    if (!(words >> rate)) throw std::runtime_error("the rate is missing");
    CheckedRate(rate);
    if (!(words >> std::ws).eof()) {
        const auto milliseconds = Last<int>(words, "the time");
        if (milliseconds < 0) throw std::runtime_error("a delay must not be negative");
        faults_.delayTime = std::chrono::milliseconds(milliseconds);
    }
    faults_.delay = rate;
    simulator_.SetFaults(faults_);
    return kDone;
}

std::string Console::Memory(std::istringstream& words) {
    int wordAddress = 0;
    if (!(words >> wordAddress)) throw std::runtime_error("the address is missing");
    if ((words >> std::ws).eof()) return std::to_string(simulator_.Word(wordAddress));
    const auto word = Last<long>(words, "the word");
    if (word < 0 || word > 0xFFFF) throw std::runtime_error("a word is from 0 to 65535");
    simulator_.SetWord(wordAddress, static_cast<std::uint16_t>(word));
    return kDone;
}

}  // namespace orbkl4sim
