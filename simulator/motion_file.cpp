#include "simulator/motion.h"
#include "simulator/text.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace orbkl4sim {

namespace {

struct TimedAttitude {
    double seconds = 0;
    Quaternion attitude;
};

constexpr std::string_view kEulerHeader = "time,roll,pitch,yaw";
constexpr std::string_view kQuaternionHeader = "time,q0,q1,q2,q3";

/// The numbers of one row; nothing if a field isn't a number or a huge one.
std::optional<std::vector<double>> Numbers(std::string_view row) {
    std::vector<double> numbers;
    while (true) {
        const auto comma = row.find(',');
        const auto number = ToNumber(Trimmed(row.substr(0, comma)));
        if (!number || std::abs(*number) >= 1e9) return std::nullopt;
        numbers.push_back(*number);
        if (comma == std::string_view::npos) return numbers;
        row.remove_prefix(comma + 1);
    }
}

/// The sample of one row of four (time and angles) or five numbers (time and quaternion).
TimedAttitude ToTimedAttitude(const std::vector<double>& row) {
    if (row.size() == 4) return {row[0], FromEuler({row[1], row[2], row[3]})};
    return {row[0], Normalized({row[1], row[2], row[3], row[4]})};
}

/// The number of columns that the first line of a file announces.
std::size_t ColumnsOf(std::string_view header) {
    if (header == kEulerHeader) return 4;
    if (header == kQuaternionHeader) return 5;
    throw std::runtime_error("the header must be '" + std::string(kEulerHeader) + "' or '" +
                             std::string(kQuaternionHeader) + "'");
}

std::vector<TimedAttitude> ReadSamples(const std::filesystem::path& file) {
    std::vector<TimedAttitude> samples;
    std::size_t columns = 0;
    ForEachLine(file, [&](std::string_view row) {
        if (columns == 0) {
            columns = ColumnsOf(row);
            return;
        }
        const auto numbers = Numbers(row);
        if (!numbers || numbers->size() != columns) {
            throw std::runtime_error("not " + std::to_string(columns) + " numbers");
        }
        if (!samples.empty() && numbers->front() <= samples.back().seconds) {
            throw std::runtime_error("the time does not increase");
        }
        samples.push_back(ToTimedAttitude(*numbers));
    });
    if (samples.empty()) throw std::runtime_error(file.string() + ": contains no motion");
    return samples;
}

Pose PoseAt(const std::vector<TimedAttitude>& samples, Time time) {
    const double length = samples.back().seconds - samples.front().seconds;
    if (length == 0) return {samples.front().attitude, {}};
    const double seconds =
        samples.front().seconds + std::fmod(std::chrono::duration<double>(time).count(), length);
    const auto next = std::upper_bound(
        std::next(samples.begin()), std::prev(samples.end()), seconds,
        [](double wanted, const TimedAttitude& sample) { return wanted < sample.seconds; });
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
