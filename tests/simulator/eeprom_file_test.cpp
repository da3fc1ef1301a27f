#include "simulator/eeprom_file.h"

#include "simulator/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orbkl4sim {
namespace {

void Fill(Eeprom& memory, std::uint16_t word) {
    for (int address = 0; address <= 254; address += 2) memory.SetWord(address, word);
}

TEST(EepromFile, KeepsEveryWord) {
    const TemporaryFolder folder;
    Eeprom saved;
    for (int address = 0; address <= 254; address += 2) {
        saved.SetWord(address, static_cast<std::uint16_t>(65535 - address));
    }
    SaveEeprom(folder / "eeprom", saved);
    EXPECT_EQ(0U, ContentOf(folder / "eeprom").find("# ORB-KL4 EEPROM: address word\n0 65535\n"));
    Eeprom loaded;
    LoadEeprom(folder / "eeprom", loaded);
    for (int address = 0; address <= 254; address += 2) {
        EXPECT_EQ(65535 - address, loaded.Word(address));
    }
}

TEST(EepromFile, WordsNotListedKeepTheirValue) {
    const TemporaryFolder folder;
    Eeprom memory;
    LoadEeprom(folder / "missing", memory);
    LoadEeprom(folder.Write("some", "# mine\n\n44 129 # slow\n"), memory);
    EXPECT_EQ(129, memory.Word(44));
    EXPECT_EQ(3101, memory.Word(198));
}

TEST(EepromFile, ReportsABadLine) {
    const TemporaryFolder folder;
    for (const char* line : {"44", "45 1", "256 1", "-2 1", "44 65536", "44 -1", "44 x", "44 1 2",
                             "99999999999 1", "44 1.5"}) {
        const auto file = folder.Write("bad", std::string("# head\n") + line + "\n");
        Eeprom memory;
        std::string error;
        try {
            LoadEeprom(file, memory);
        } catch (const std::runtime_error& caught) {
            error = caught.what();
        }
        EXPECT_TRUE(error.starts_with(file.string() + ", line 2: ")) << line;
    }
}

TEST(EepromFile, AFailedSaveKeepsTheOldFile) {
    const TemporaryFolder folder;
    const auto file = folder.Write("eeprom", "44 129\n");
    std::filesystem::create_directory(folder / "eeprom.new");
    EXPECT_THROW(SaveEeprom(file, Eeprom()), std::system_error);
    EXPECT_EQ("44 129\n", ContentOf(file));
}

TEST(EepromFile, AKillLeavesACompleteFile) {
    const TemporaryFolder folder;
    const auto file = folder / "eeprom";
    SaveEeprom(file, Eeprom());
    for (int kill = 0; kill < 40; ++kill) {
        const pid_t child = fork();
        if (child == 0) {
            Eeprom memory;
            for (std::uint16_t word = 1;; ++word) {
                Fill(memory, word);
                SaveEeprom(file, memory);
            }
        }
        // Not a wait for a condition: each kill has to hit a different moment.
        std::this_thread::sleep_for(std::chrono::microseconds(1000 + 337 * kill));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        Eeprom memory;
        Fill(memory, 0);
        LoadEeprom(file, memory);
        if (memory.Word(198) == 3101) continue;  // killed before the first save
        for (int address = 0; address <= 254; address += 2) {
            ASSERT_EQ(memory.Word(0), memory.Word(address)) << "incomplete at " << address;
        }
        ASSERT_NE(0, memory.Word(0)) << "incomplete";
    }
}

}  // namespace
}  // namespace orbkl4sim
