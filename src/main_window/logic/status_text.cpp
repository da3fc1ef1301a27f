#include "main_window/logic/status_text.h"

#include "base/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace orbkl4 {

namespace {

constexpr std::string_view itemGap = " \u00B7 ";
constexpr std::string_view groupGap = "  |  ";
constexpr std::string_view figureSpace = "\u2007";  // as wide as a digit

/// `number` with one decimal, which isn't below 0.
std::string OneDecimal(double number) {
    std::array<char, 32> text;
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 1);
    return {text.data(), end};
}

/// A rate up to 999.9 in a width that stays.
std::string RateText(double rate) {
    constexpr std::size_t width = 5;
    std::string text = OneDecimal(rate);
    for (std::size_t size = text.size(); size < width; ++size) text.insert(0, figureSpace);
    return text;
}

std::string BytesText(std::uint64_t bytes) {
    constexpr double step = 1000;
    if (bytes < 1000) return std::to_string(bytes) + " B";
    auto number = static_cast<double>(bytes) / step;
    std::string_view units = "kMGT";
    constexpr double roundsToStep = 999.95;
    for (; number >= roundsToStep && units.size() > 1; number /= step) units.remove_prefix(1);
    return OneDecimal(number) + ' ' + units.front() + 'B';
}

bool IsInsideCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; }

/// The first byte of the character of `text` at `place`.
std::size_t CharacterAt(std::string_view text, std::size_t place) {
    while (place > 0 && place < text.size() && IsInsideCharacter(text[place])) --place;
    return place;
}

/// The name of the file at `path`; the middle of a long one is left out.
std::string FileName(std::string_view path) {
    constexpr std::size_t most = 24;
    constexpr std::size_t head = 14;
    constexpr std::size_t tail = 9;
    path.remove_prefix(path.find_last_of('/') + 1);
    if (path.size() <= most) return std::string(path);
    std::string name(path.substr(0, CharacterAt(path, head)));
    return name.append("\u2026").append(path.substr(CharacterAt(path, path.size() - tail)));
}

std::string SensorText(const AppStateRecord& app) {
    if (app.FirmwareText.empty()) return "Not connected: choose File, Connect";
    std::string text = "Sensor " + ScreenText(app.SerialNumber);
    text.append(itemGap).append("firmware ").append(app.FirmwareText);
    text.append(itemGap).append("port ").append(std::to_string(app.CommPort));
    const std::string_view settings = app.CommSettings;
    return text.append(itemGap).append(settings.substr(0, settings.find(','))).append(" baud");
}

std::string ChannelText(const RunTally& run, double samplesPerSecond) {
    std::string text = RateText(samplesPerSecond) + " samples/s";
    text.append(itemGap).append("bad replies ").append(std::to_string(run.BadReplies));
    return text.append(itemGap).append("restarts ").append(std::to_string(run.Restarts));
}

std::string DataFileText(std::string_view file, std::int64_t rows, const StatusFacts& facts) {
    constexpr std::uint64_t shortOfSpace = 100'000'000;
    std::string text = FileName(file);
    text.append(itemGap).append("rows ").append(std::to_string(rows));
    if (facts.fileBytes) text.append(itemGap).append(BytesText(*facts.fileBytes));
    if (facts.freeBytes && *facts.freeBytes < shortOfSpace) {
        text.append(itemGap).append("only ").append(BytesText(*facts.freeBytes)).append(" free");
    }
    return text;
}

std::string FailureText(const RunTally& run, bool namesFile) {
    std::string text = "Not written";
    if (namesFile) text.append(" to ").append(FileName(run.FailedFile));
    text.append(": ").append(run.FailureText);
    if (run.LostRows > 0) text.append(", rows lost ").append(std::to_string(run.LostRows));
    return text;
}

}  // namespace

StatusParts StatusText(const AppStateRecord& app, const SampleStateRecord& sample,
                       const StatusFacts& facts) {
    StatusParts parts{SensorText(app), {}};
    const auto add = [&parts](const std::string& group) {
        if (!parts.activity.empty()) parts.activity.append(groupGap);
        parts.activity.append(group);
    };
    if (sample.Running) add(ChannelText(sample, facts.samplesPerSecond));
    if (sample.SaveActive) add(DataFileText(app.DataFileName, sample.RowsOfDataFile, facts));
    const bool namesFile = !sample.SaveActive || sample.FailedFile != app.DataFileName;
    if (!sample.FailureText.empty()) add(FailureText(sample, namesFile));
    return parts;
}

}  // namespace orbkl4
