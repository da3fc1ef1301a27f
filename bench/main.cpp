#include "acquire/channels.h"
#include "acquire/data_files.h"
#include "acquire/logic/packets.h"
#include "bench/commands.h"
#include "bench/process_cost.h"
#include "bench/record.h"
#include "bench/table.h"
#include "bench/workbench.h"
#include "platform/controls/house_style.h"
#include "state/app_state.h"
#include "state/sample_state.h"

#include <QApplication>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace orbkl4::bench {
namespace {

constexpr int rounds = 5;  // each figure is a median of so many, ours and the reference in turn
constexpr double sliceSeconds = 0.3;  // short, so that both have the same share of a busy machine
constexpr const char* views[] = {"SensorBits", "Vectors",       "Quaternions", "Angles",
                                 "Matrices",   "AnglesAccRate", "QuatVec"};

std::vector<const SamplingChannel*> AllChannels() {
    std::vector<const SamplingChannel*> channels;
    for (const char* view : views) {
        for (const SamplingChannel& channel : ChannelsOf(view)) channels.push_back(&channel);
    }
    return channels;
}

std::string NameOf(const SamplingChannel& channel) {
    return std::string(channel.screen) + "." + channel.entry;
}

orbkl4sim::SimulatorOptions Sensor(bool paced, int baud) {
    orbkl4sim::SimulatorOptions options;
    options.paced = paced;
    options.baud = baud;
    options.record = false;
    return options;
}

void MeasureHandlers(Table& table) {
    constexpr int baud = 115200;  // closing allows the bytes sent their time at this speed
    Workbench workbench(Sensor(false, baud), false);
    constexpr int replies = 3000;
    for (const SamplingChannel* channel : AllChannels()) {
        const auto times = workbench.HandlerTimes(*channel, replies);
        const auto bare = BareHandlerTimes(workbench.Device(), channel->Command(), baud,
                                           workbench.DataFile(), replies);
        const auto add = [&](const char* what, double share, Aim aim) {
            constexpr double microseconds = 1e6;
            const double time = Percentile(times, share) * microseconds;
            table.Add(what + NameOf(*channel), Figure(time, "us"),
                      Figure(Percentile(bare, share) * microseconds, "us"), time, aim);
        };
        add("handler median, ", 0.5, AtMost(25));
        add("handler p99, ", 0.99, AtMost(250));
    }
}

/// What came of measuring ours and a reference in turn: medians.
struct Compared {
    double ours = 0;
    double reference = 0;
    double ratio = 0;  ///< of the two in one turn
};

Compared InTurn(int turns, const std::function<double()>& ours,
                const std::function<double()>& reference) {
    std::vector<double> ourFigures;
    std::vector<double> references;
    std::vector<double> ratios;
    for (int turn = 0; turn < turns; ++turn) {
        ourFigures.push_back(ours());
        references.push_back(reference());
        ratios.push_back(ourFigures.back() / references.back());
    }
    return {Median(ourFigures), Median(references), Median(ratios)};
}

void MeasureUnpaced(Table& table) {
    constexpr int baud = 115200;
    Workbench workbench(Sensor(false, baud), false);
    for (const SamplingChannel* channel : AllChannels()) {
        for (const bool saving : {false, true}) {
            const Compared rate = InTurn(
                rounds, [&] { return workbench.SampleLoop(*channel, sliceSeconds, saving).Rate(); },
                [&] {
                    return RawLoop(workbench.Device(), channel->Command(), baud, sliceSeconds)
                        .Rate();
                });
            const std::string what = saving ? "unpaced, saving" : "unpaced";
            table.Add(what + " / raw loop, " + NameOf(*channel), Figure(rate.ours, "/s"),
                      Figure(rate.reference, "/s"), rate.ratio, AtLeast(0.7));
        }
    }
}

/// The raw loop on the same line shows how much of a lag is the simulator's own.
void MeasurePaced(Table& table) {
    constexpr double bitsPerByte = 10;
    constexpr int turns = 3;
    constexpr double seconds = 0.3;
    for (const int baud : {19200, 38400, 115200}) {
        Workbench workbench(Sensor(true, baud), true);
        for (const SamplingChannel* channel : AllChannels()) {
            const double bytes = 1 + static_cast<double>(channel->Packet().length);
            const double limit = baud / bitsPerByte / bytes;
            const Compared rate = InTurn(
                turns, [&] { return workbench.SampleLoop(*channel, seconds, true).Rate(); },
                [&] {
                    return RawLoop(workbench.Device(), channel->Command(), baud, seconds).Rate();
                });
            const std::string where = " at " + std::to_string(baud) + ", " + NameOf(*channel);
            table.Add("rate / wire" + where, Figure(rate.ours, "/s"), Figure(limit, "/s"),
                      rate.ours / limit, AtLeast(0.98));
            table.Add("rate / raw loop" + where, Figure(rate.ours, "/s"),
                      Figure(rate.reference, "/s"), rate.ratio);
        }
    }
}

void MeasureProcessor(Table& table) {
    constexpr int baud = 115200;
    Workbench workbench(Sensor(true, baud), false);
    constexpr double microseconds = 1e6;
    const auto add = [&](const std::string& what, const SamplingChannel& channel, Aim aim) {
        const Compared cost = InTurn(
            rounds,
            [&] { return workbench.SampleLoop(channel, sliceSeconds, false).CpuPerSample(); },
            [&] {
                return RawLoop(workbench.Device(), channel.Command(), baud, sliceSeconds)
                    .CpuPerSample();
            });
        table.Add(what + NameOf(channel), Figure(cost.ours * microseconds, "us"),
                  Figure(cost.reference * microseconds, "us"), cost.ratio, aim);
    };
    for (const SamplingChannel* channel : AllChannels()) {
        add("processor at 150/s / raw loop, ", *channel, AtMost(4));
        workbench.Painting(false);
        add("processor, nothing painted / raw loop, ", *channel, {});
        workbench.Painting(true);
    }
}

double NanosecondsEach(int count, const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) work();
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
    return time.count() / count;
}

/// A good packet of `length` bytes to `command`, its matrix, where it is one, the unit matrix's.
Bytes GoodPacket(DeviceCommand command, std::size_t length) {
    Bytes packet(length);
    packet[0] = ByteOf(command);
    for (const std::size_t element : {1U, 9U, 17U}) {
        if (element + 4 < length) packet[element] = 0x20;
    }
    unsigned sum = packet[0];
    for (std::size_t i = 1; i + 2 < length; i += 2) sum += packet[i] * 256U + packet[i + 1];
    packet[length - 2] = static_cast<std::uint8_t>(sum / 256);
    packet[length - 1] = static_cast<std::uint8_t>(sum);
    return packet;
}

void MeasureDecoders(Table& table) {
    constexpr int decodes = 100000;
    for (const SamplingChannel* channel : AllChannels()) {
        const Bytes packet = GoodPacket(channel->Command(), channel->Packet().length);
        AppState.CommandBytes = packet;
        if (!channel->decode()) std::printf("%s doesn't decode\n", NameOf(*channel).c_str());
        std::vector<double> times;
        times.reserve(rounds);
        for (int round = 0; round < rounds; ++round) {
            times.push_back(NanosecondsEach(decodes, [&] { channel->decode(); }));
        }
        table.Add("decode, " + NameOf(*channel), Figure(Median(times), "ns"), "", Median(times),
                  AtMost(200));
    }
}

void MeasureRows(Table& table) {
    const QTemporaryDir folder;
    AppState.DataFileName = folder.filePath("rows.csv").toStdString();
    std::FILE* kept = std::fopen(folder.filePath("kept.csv").toLocal8Bit().constData(), "w");
    constexpr int rows = 2000;
    std::vector<double> ours;
    std::vector<double> reference;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(NanosecondsEach(rows, [] { WriteSensorBitsToFile(".25"); }));
        reference.push_back(NanosecondsEach(rows, [&] {
            for (int column = 0; column < 10; ++column) std::fprintf(kept, ", %.15g", 40000.0);
            std::fputs("\r\n", kept);
            std::fflush(kept);
        }));
    }
    std::fclose(kept);
    table.Add("row / row in a kept-open flushed file", Figure(Median(ours), "ns"),
              Figure(Median(reference), "ns"), Median(ours) / Median(reference));
}

/// Besides the empty window, one with a line of text: from the first letter on every program needs
/// its fonts.
void MeasureProcesses(Table& table) {
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    struct Sort {
        const char* name;
        const char* unit;
        double scale;
        double ProcessCost::*figure;
    };
    constexpr double mebibyte = 1 << 20;
    constexpr Sort sorts[] = {
        {"start-up", "ms", 1e3, &ProcessCost::startSeconds},
        {"start-up processor time", "ms", 1e3, &ProcessCost::processorSeconds},
        {"resident memory", "MiB", 1 / mebibyte, &ProcessCost::residentBytes},
    };
    std::vector<ProcessCost> ours;
    std::vector<ProcessCost> empty;
    std::vector<ProcessCost> withText;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(CostOf(PROGRAM, {}));
        empty.push_back(CostOf(EMPTY_WINDOW, {}));
        withText.push_back(CostOf(EMPTY_WINDOW, {QStringLiteral("text")}));
    }
    for (const Sort& sort : sorts) {
        const auto median = [&](const std::vector<ProcessCost>& costs) {
            std::vector<double> figures;
            figures.reserve(costs.size());
            for (const ProcessCost& cost : costs) figures.push_back(cost.*sort.figure * sort.scale);
            return Median(figures);
        };
        const double cost = median(ours);
        const auto add = [&](const char* reference, double figureOfIt, Aim aim) {
            table.Add(std::string(sort.name) + reference, Figure(cost, sort.unit),
                      Figure(figureOfIt, sort.unit), cost / figureOfIt, aim);
        };
        const bool aimed = sort.figure != &ProcessCost::processorSeconds;
        add(" / empty Qt window", median(empty), aimed ? AtMost(1.3) : Aim{});
        add(" / Qt window with text", median(withText), {});
    }
}

struct Section {
    const char* name;
    void (*measure)(Table& table);
};

constexpr Section sections[] = {
    {"handlers", MeasureHandlers},   {"unpaced", MeasureUnpaced},   {"paced", MeasurePaced},
    {"processor", MeasureProcessor}, {"decoders", MeasureDecoders}, {"rows", MeasureRows},
    {"processes", MeasureProcesses}, {"record", MeasureRecord},     {"commands", MeasureCommands},
};

}  // namespace
}  // namespace orbkl4::bench

/// Measures the sections named on the command line, all where none is.
int main(int argc, char** argv) {
    using namespace orbkl4::bench;
    const QApplication application(argc, argv);
    const QStringList chosen = QApplication::arguments().mid(1);
    orbkl4::ApplyHouseStyle();
    Table table;
    for (const auto& [name, measure] : sections) {
        if (chosen.isEmpty() || chosen.contains(QLatin1String(name))) measure(table);
    }
    return table.Print() ? EXIT_SUCCESS : EXIT_FAILURE;
}
