#pragma once

#include "cli/cli_test.h"

#include <QJsonArray>

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>

namespace orbkl4::cli::test {

constexpr int fixedWord = 134;  ///< the serial number

/// Whether `address` is one of 60 that may hold any word.
constexpr bool IsFree(int address) {
    return (address >= 2 && address <= 6) || (address >= 66 && address <= 118) ||
           (address >= 136 && address <= 194);
}

/// A sensor on port 1, and the commands of its memory.
class Memory : public CliTest {
  protected:
    Memory() : sensor_(Plug(1)) {}

    Outcome Memo(Words words, const Environment& more = {}) const {
        words.insert(words.begin(), {"memory", "--port=1", "--baud=38400"});
        return Run(words, more);
    }

    /// Saves the memory with 60 words changed, and returns the file's path.
    std::string ChangedFile() const {
        const std::string path = File("changed.json");
        EXPECT_EQ(0, Memo({"save", path}).exit);
        QJsonObject document = JsonOf(orbkl4sim::ContentOf(path));
        QJsonArray words = document["words"].toArray();
        for (int address = 0; address < 256; address += 2) {
            if (!IsFree(address)) continue;
            QJsonObject word = words[address / 2].toObject();
            word["word"] = word["word"].toInt() ^ 0x0155;
            words[address / 2] = word;
        }
        document["words"] = words;
        folder_.Write("changed.json", TextOf(document));
        return path;
    }

    std::vector<std::filesystem::path> Backups() const {
        std::vector<std::filesystem::path> paths;
        std::error_code none;
        for (const auto& entry :
             std::filesystem::directory_iterator(folder_.Path() / "data/orb-kl4/backups", none))
            paths.push_back(entry.path());
        std::ranges::sort(paths);
        return paths;
    }

    std::size_t WriteRequests() const {
        const auto requests = sensor_.Requests();
        return static_cast<std::size_t>(std::ranges::count_if(
            requests, [](const auto& request) { return request.bytes[0] == 0x29; }));
    }

    /// Starts a command that writes, does `interfere` once `count` words have been written, and
    /// waits for its end.
    Outcome RunAnd(std::size_t count, Words words,
                   const std::function<void(CliProcess&)>& interfere) {
        sensor_.ClearRecord();
        words.insert(words.begin(), "memory");
        words.insert(words.end(), {"--yes", "--json", "--port=1"});
        CliProcess process(words, Surroundings());
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (WriteRequests() < count && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        interfere(process);
        return process.AwaitEnd();
    }

    orbkl4sim::Simulator& sensor_;
};

}  // namespace orbkl4::cli::test
