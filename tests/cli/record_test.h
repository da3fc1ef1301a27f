#pragma once

#include "cli/cli_test.h"

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace orbkl4::cli::test {

/// The words of a packet of vectors without its ticks.
inline const std::vector<unsigned> vectorWords{1000, 65036, 1, 2000, 64536, 1, 4000, 63536, 2};

/// `first` and then `second`.
template <typename Item>
std::vector<Item> operator+(std::vector<Item> first, const std::vector<Item>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// Recordings of vectors into a file.
class Record : public CliTest {
  protected:
    /// The program, recording vectors into a file.
    std::unique_ptr<CliProcess> Start(const Words& more = {}, const Environment& variables = {}) {
        return std::make_unique<CliProcess>(Words{"record", "vectors", "-o", File()} + more,
                                            Surroundings(variables));
    }

    Outcome RunToFile(const Words& more) { return Start(more)->AwaitEnd(); }

    std::vector<std::string> Lines(const std::string& name = "log") const {
        std::vector<std::string> lines;
        std::istringstream text(orbkl4sim::ContentOf(File(name)));
        for (std::string line; std::getline(text, line);) lines.push_back(line);
        return lines;
    }

    /// What lies beside the recording.
    QJsonObject Beside() const { return JsonOf(orbkl4sim::ContentOf(File("log.json"))); }

    /// Waits until the recording has `count` lines more.
    testing::AssertionResult Grows(std::size_t count = 20) const {
        const std::size_t before = Lines().size();
        return Comes([&] { return Lines().size() >= before + count; });
    }

    /// A sensor whose vectors have scales of 1/1000, 1/2000 and 1/4000 and whose ticks last 1 ms.
    orbkl4sim::Simulator& PlugScaled() {
        orbkl4sim::Simulator& sensor = Plug(1);
        for (const auto& [address, word] : std::map<int, std::uint16_t>{{232, 32768},
                                                                        {230, 16384},
                                                                        {130, 8192},
                                                                        {238, 10},
                                                                        {240, 10},
                                                                        {242, 100},
                                                                        {246, 1}})
            sensor.SetWord(address, word);
        return sensor;
    }
};

}  // namespace orbkl4::cli::test
