#include "acquire/channels.h"
#include "acquire/logic/packets.h"
#include "acquire/logic/sample_state.h"
#include "bench/process_cost.h"
#include "bench/table.h"
#include "bench/workbench.h"
#include "datafiles/data_files.h"
#include "frame/logic/app_state.h"
#include "platform/look.h"

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
    Workbench workbench(Sensor(false, 38400), false);
    constexpr int replies = 3000;
    constexpr double microseconds = 1e6;
    for (const SamplingChannel* channel : AllChannels()) {
        const auto times = workbench.HandlerTimes(*channel, replies);
        const double median = Median(times) * microseconds;
        const double slow = Percentile(times, 0.99) * microseconds;
        table.Add("handler median, " + NameOf(*channel), Figure(median, "us"), "", median,
                  AtMost(25));
        table.Add("handler p99, " + NameOf(*channel), Figure(slow, "us"), "", slow, AtMost(250));
    }
}

/// Runs our loop and the raw one in turn and gives the medians of what `figure` sees in them.
std::pair<double, double> SideBySide(Workbench& workbench, const SamplingChannel& channel, int baud,
                                     const std::function<double(const LoopResult&)>& figure) {
    constexpr double seconds = 0.6;
    std::vector<double> ours;
    std::vector<double> raw;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(figure(workbench.SampleLoop(channel, seconds, true)));
        raw.push_back(figure(RawLoop(workbench.Device(), channel.command, baud, seconds)));
    }
    return {Median(ours), Median(raw)};
}

void MeasureUnpaced(Table& table) {
    Workbench workbench(Sensor(false, 38400), false);
    for (const SamplingChannel* channel : AllChannels()) {
        const auto [ours, raw] = SideBySide(workbench, *channel, 38400, &LoopResult::Rate);
        table.Add("unpaced rate / raw loop, " + NameOf(*channel), Figure(ours, "/s"),
                  Figure(raw, "/s"), ours / raw, AtLeast(0.7));
    }
}

void MeasurePaced(Table& table) {
    constexpr double bitsPerByte = 10;
    constexpr double seconds = 2;
    for (const int baud : {19200, 38400, 115200}) {
        Workbench workbench(Sensor(true, baud), true);
        for (const SamplingChannel* channel : AllChannels()) {
            const double bytes = 1 + static_cast<double>(ReplyLength(channel->command));
            const double limit = baud / bitsPerByte / bytes;
            const double rate = workbench.SampleLoop(*channel, seconds, true).Rate();
            table.Add("rate / wire at " + std::to_string(baud) + ", " + NameOf(*channel),
                      Figure(rate, "/s"), Figure(limit, "/s"), rate / limit, AtLeast(0.98));
        }
    }
}

void MeasureProcessor(Table& table) {
    Workbench workbench(Sensor(true, 115200), false);
    constexpr double microseconds = 1e6;
    for (const SamplingChannel* channel : AllChannels()) {
        const auto [ours, raw] = SideBySide(workbench, *channel, 115200, &LoopResult::CpuPerSample);
        table.Add("processor at 150/s / raw loop, " + NameOf(*channel),
                  Figure(ours * microseconds, "us"), Figure(raw * microseconds, "us"), ours / raw,
                  AtMost(4));
    }
}

double NanosecondsEach(int count, const std::function<void()>& deed) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) deed();
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
        const Bytes packet = GoodPacket(channel->command, ReplyLength(channel->command));
        AppState.CommandBytes = packet;
        if (!channel->decode()) std::printf("%s doesn't decode\n", NameOf(*channel).c_str());
        std::vector<double> times;
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

void MeasureProcesses(Table& table) {
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    std::vector<double> start, emptyStart, memory, emptyMemory;
    for (int round = 0; round < rounds; ++round) {
        const ProcessCost ours = CostOf(PROGRAM);
        const ProcessCost empty = CostOf(EMPTY_WINDOW);
        start.push_back(ours.startSeconds);
        emptyStart.push_back(empty.startSeconds);
        memory.push_back(ours.residentBytes);
        emptyMemory.push_back(empty.residentBytes);
    }
    constexpr double milliseconds = 1e3;
    constexpr double mebibyte = 1 << 20;
    table.Add("start-up / empty Qt window", Figure(Median(start) * milliseconds, "ms"),
              Figure(Median(emptyStart) * milliseconds, "ms"), Median(start) / Median(emptyStart),
              AtMost(1.3));
    table.Add("resident memory / empty Qt window", Figure(Median(memory) / mebibyte, "MiB"),
              Figure(Median(emptyMemory) / mebibyte, "MiB"), Median(memory) / Median(emptyMemory),
              AtMost(1.3));
}

struct Section {
    const char* name;
    void (*measure)(Table& table);
};

constexpr Section sections[] = {
    {"handlers", MeasureHandlers},   {"unpaced", MeasureUnpaced},   {"paced", MeasurePaced},
    {"processor", MeasureProcessor}, {"decoders", MeasureDecoders}, {"rows", MeasureRows},
    {"processes", MeasureProcesses},
};

}  // namespace
}  // namespace orbkl4::bench

/// Measures the sections named on the command line, all where none is.
int main(int argc, char** argv) {
    using namespace orbkl4::bench;
    const QApplication application(argc, argv);
    const QStringList chosen = QApplication::arguments().mid(1);
    orbkl4::ApplyHouseLook();
    Table table;
    for (const auto& [name, measure] : sections) {
        if (chosen.isEmpty() || chosen.contains(QLatin1String(name))) measure(table);
    }
    return table.Print() ? EXIT_SUCCESS : EXIT_FAILURE;
}
