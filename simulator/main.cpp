#include "simulator/console.h"
#include "simulator/port_link.h"
#include "simulator/simulator.h"
#include "simulator/wake_pipe.h"

#include <CLI/CLI.hpp>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <optional>
#include <poll.h>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace orbkl4sim {
namespace {

/// Options of the program, beyond those of the simulator library.
struct ProgramOptions {
    int port = 1;
    std::string link;
    std::string motion = "tumble";
    bool noNoise = false;
    bool unpaced = false;
    double delayMilliseconds = 300;
    std::optional<std::uint16_t> serialNumber;
    std::vector<std::pair<int, std::uint16_t>> words;  // address and word
    std::vector<int> stuckAddresses;
    pid_t parent = getppid();  // read at start-up, when the parent still lives
    bool exitWithParent = false;
    bool exitOnEof = false;
};

void AddFaults(CLI::App& app, FaultRates& faults, ProgramOptions& program) {
    for (const RateFault& fault : kRateFaults) {
        app.add_option(std::string("--") + fault.name, faults.*fault.rate, fault.help)
            ->check(CLI::Range(0.0, 1.0))
            ->group("Faults (fraction of replies, from 0 to 1)");
    }
    app.add_option("--delay-ms", program.delayMilliseconds,
                   "Milliseconds by which replies are late")
        ->check(CLI::Range(0.0, kLongestDelay));
    app.add_option("--stuck", program.stuckAddresses,
                   "Addresses of words that ignore writes but confirm them")
        ->type_name("ADDRESS")
        ->check(CLI::Range(0, 254));
}

void AddOptions(CLI::App& app, ProgramOptions& program, SimulatorOptions& options) {
    auto* const port = app.add_option("--port", program.port, "Port number to use")
                           ->check(CLI::Range(1, 16))
                           ->capture_default_str();
    app.add_option("--link", program.link, "Link to the device, instead of a port number")
        ->excludes(port);
    app.add_option("--motion", program.motion,
                   "rest, 'rest ROLL PITCH YAW' (degrees), tumble or 'file PATH'")
        ->capture_default_str();
    app.add_flag("--no-noise", program.noNoise, "Measure without noise");
    app.add_option("--seed", options.seed, "Seed of noise and faults")->capture_default_str();
    app.add_option("--eeprom", options.eepromFile, "File that stores the sensor's memory");
    app.add_option("--baud", options.baud, "Baud rate, stored in the memory")
        ->check(CLI::IsMember({19200, 38400, 115200}));
    app.add_option("--serial-number", program.serialNumber, "Serial number, stored in the memory")
        ->check(CLI::Range(0, 0xFFFF));
    app.add_option("--word", program.words, "Word of the memory, stored at an even address")
        ->type_name("ADDRESS WORD")
        ->check(CLI::Range(0, 0xFFFF));
    app.add_flag("--unpaced", program.unpaced, "Reply as fast as requests arrive");
    app.add_flag("--exit-with-parent", program.exitWithParent, "End with the parent process");
    app.add_flag("--exit-on-eof", program.exitOnEof, "End at the end of standard input");
    AddFaults(app, options.faults, program);
}

/// Returns a descriptor that becomes readable on SIGINT, SIGTERM and SIGHUP.
int WatchSignals() {
    static const WakePipe signalPipe;
    struct sigaction action {};
    action.sa_handler = [](int) { signalPipe.Wake(); };
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaction(number, &action, nullptr);
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
    return signalPipe.Descriptor();
}

void Print(const std::string& text) {
    if (text.empty()) return;
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
}

std::string ToText(const Request& request) {
    std::string text = request.heard ? "<" : "< (not heard)";
    for (const std::uint8_t byte : request.bytes) {
        std::array<char, 4> digits{};
        std::snprintf(digits.data(), digits.size(), " %02X", byte);
        text += digits.data();
    }
    return text;
}

/// Carries out commands from standard input until the program has to end.
void RunConsole(Console& console, const ProgramOptions& program, int signals) {
    constexpr int parentCheckInterval = 250;  // milliseconds
    std::string pending;
    std::array<pollfd, 2> watched{pollfd{signals, POLLIN, 0}, pollfd{STDIN_FILENO, POLLIN, 0}};
    while (!console.Ended()) {
        poll(watched.data(), watched.size(), program.exitWithParent ? parentCheckInterval : -1);
        if (watched[0].revents != 0) return;
        if (program.exitWithParent && getppid() != program.parent) return;
        if (watched[1].revents == 0) continue;
        std::array<char, 4096> buffer;  // NOLINT(*-member-init): filled by read
        const ssize_t size = read(STDIN_FILENO, buffer.data(), buffer.size());
        if (size <= 0) {
            if (program.exitOnEof) return;
            watched[1].fd = -1;
            continue;
        }
        pending.append(buffer.data(), static_cast<std::size_t>(size));
        for (auto end = pending.find('\n'); end != std::string::npos; end = pending.find('\n')) {
            Print(console.Execute(pending.substr(0, end)));
            pending.erase(0, end + 1);
        }
    }
}

int Run(const ProgramOptions& program, SimulatorOptions options) {
    const int signals = WatchSignals();
    const std::filesystem::path link =
        program.link.empty() ? PortLinkPath(program.port) : std::filesystem::path(program.link);
    options.record = false;
    options.noise = !program.noNoise;
    options.paced = !program.unpaced;
    options.motion = ParseMotion(program.motion);
    options.faults.delayTime = Milliseconds(program.delayMilliseconds);
    options.onError = [](const std::string& what) { std::fprintf(stderr, "%s\n", what.c_str()); };
    std::atomic<bool> logging = false;
    options.onRequest = [&logging](const Request& request) {
        if (logging) Print(ToText(request));
    };
    Simulator simulator(std::move(options));
    if (program.serialNumber) simulator.SetWord(address::kSerialNumber, *program.serialNumber);
    for (const auto& [wordAddress, word] : program.words) simulator.SetWord(wordAddress, word);
    for (const int wordAddress : program.stuckAddresses) simulator.SetStuck(wordAddress, true);
    simulator.LinkAs(link);
    simulator.Start();
    Print(link.string() + " -> " + simulator.DevicePath().string());
    Console console(simulator, logging);
    RunConsole(console, program, signals);
    return 0;
}

}  // namespace
}  // namespace orbkl4sim

int main(int argc, char** argv) {
    try {
        CLI::App app(
            "A simulated ORB-KL4 on a pseudo terminal. Standard input takes commands: try help.");
        orbkl4sim::ProgramOptions program;
        orbkl4sim::SimulatorOptions options;
        orbkl4sim::AddOptions(app, program, options);
        CLI11_PARSE(app, argc, argv);
        return orbkl4sim::Run(program, std::move(options));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orb-kl4-simulator: %s\n", error.what());
        return 1;
    }
}
