#include "bench/table.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace orbkl4::bench {

namespace {

bool Met(double judged, const Aim& aim) {
    switch (aim.kind) {
        case Aim::Kind::AtMost: return judged <= aim.limit;
        case Aim::Kind::AtLeast: return judged >= aim.limit;
        case Aim::Kind::None: break;
    }
    return true;
}

std::string AimText(double judged, const Aim& aim) {
    if (aim.kind == Aim::Kind::None) return "";
    const char* relation = aim.kind == Aim::Kind::AtMost ? "<= " : ">= ";
    return relation + Figure(aim.limit, "") + (Met(judged, aim) ? "met" : "MISSED");
}

}  // namespace

void Table::Add(const std::string& what, const std::string& ours, const std::string& reference,
                double judged, Aim aim) {
    lines_.push_back({what, ours, reference, judged, aim});
}

bool Table::Print() const {
    constexpr const char* form = "%-58s %14s %14s %9s  %s\n";
    std::printf(form, "", "ours", "reference", "judged", "aim");
    for (const Line& line : lines_) {
        std::printf(form, line.what.c_str(), line.ours.c_str(), line.reference.c_str(),
                    Figure(line.judged, "").c_str(), AimText(line.judged, line.aim).c_str());
    }
    return std::ranges::all_of(lines_, [](const Line& line) { return Met(line.judged, line.aim); });
}

std::string Figure(double value, const char* unit) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.3g %s", value, unit);
    return text.data();
}

double Median(std::vector<double> values) { return Percentile(std::move(values), 0.5); }

double Percentile(std::vector<double> values, double share) {
    const auto rank = static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size() - 1));
    std::ranges::nth_element(values, values.begin() + rank);
    return values[static_cast<std::size_t>(rank)];
}

}  // namespace orbkl4::bench
