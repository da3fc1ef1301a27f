#include "simulator/motion.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace orbkl4sim {

namespace {

struct Sample {
    double seconds = 0;
    Quaternion attitude;
};

constexpr std::string_view kEulerHeader = "time,roll,pitch,yaw";
constexpr std::string_view kQuaternionHeader = "time,q0,q1,q2,q3";

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/// The numbers of one row; nothing if a field isn't a finite number.
std::optional<std::vector<double>> Numbers(std::string_view row) {
    std::vector<double> numbers;
    while (true) {
        const auto comma = row.find(',');
        const std::string_view field = Trimmed(row.substr(0, comma));
        double number = 0;
        const auto [end, error] =
            std::from_chars(field.data(), field.data() + field.size(), number);
        if (error != std::errc() || end != field.data() + field.size() ||
            !(number > -1e9 && number < 1e9)) {
            return std::nullopt;
        }
        numbers.push_back(number);
        if (comma == std::string_view::npos) return numbers;
        row.remove_prefix(comma + 1);
    }
}

/// The sample of one row of four (time and angles) or five numbers (time and quaternion).
Sample ToSample(const std::vector<double>& row) {
    if (row.size() == 4) return {row[0], FromEuler({row[1], row[2], row[3]})};
    return {row[0], Normalized({row[1], row[2], row[3], row[4]})};
}

std::vector<Sample> ReadSamples(const std::filesystem::path& file) {
    std::ifstream stream(file);
    if (!stream) throw std::runtime_error(file.string() + ": can't be read");
    std::vector<Sample> samples;
    std::size_t columns = 0;
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number) {
        const std::string_view row = Trimmed(line);
        const auto complain = [&](const std::string& what) {
            throw std::runtime_error(file.string() + ", line " + std::to_string(number) + ": " +
                                     what);
        };
        if (row.empty() || row.front() == '#') continue;
        if (columns == 0) {
            if (row == kEulerHeader) columns = 4;
            if (row == kQuaternionHeader) columns = 5;
            if (columns == 0) {
                complain("the header must be '" + std::string(kEulerHeader) + "' or '" +
                         std::string(kQuaternionHeader) + "'");
            }
            continue;
        }
        const auto numbers = Numbers(row);
        if (!numbers || numbers->size() != columns) {
            complain("not " + std::to_string(columns) + " numbers");
        }
        if (!samples.empty() && numbers->front() <= samples.back().seconds) {
            complain("the time does not increase");
        }
        samples.push_back(ToSample(*numbers));
    }
    if (samples.empty()) throw std::runtime_error(file.string() + ": contains no motion");
    return samples;
}

Pose PoseAt(const std::vector<Sample>& samples, Time time) {
    const double length = samples.back().seconds - samples.front().seconds;
    if (length == 0) return {samples.front().attitude, {}};
    const double seconds =
        samples.front().seconds + std::fmod(std::chrono::duration<double>(time).count(), length);
    const auto next = std::upper_bound(
        std::next(samples.begin()), std::prev(samples.end()), seconds,
        [](double wanted, const Sample& sample) { return wanted < sample.seconds; });
    const auto last = std::prev(next);
    const double span = next->seconds - last->seconds;
    const Vector3 turn = ToRotationVector(Conjugate(last->attitude) * next->attitude);
    return {Slerp(last->attitude, next->attitude, (seconds - last->seconds) / span),
            turn * (1 / span)};
}

}  // namespace

Motion ReadMotion(const std::filesystem::path& file) {
    return [samples = ReadSamples(file)](Time time) { return PoseAt(samples, time); };
}

}  // namespace orbkl4sim
