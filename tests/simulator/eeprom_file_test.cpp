#include "simulator/eeprom_file.h"

#include "simulator/temporary_folder.h"

#include <gtest/gtest.h>

#include <system_error>

namespace orbkl4sim {
namespace {

TEST(EepromFile, KeepsEveryWord) {
    const TemporaryFolder folder;
    Eeprom saved;
    for (std::uint16_t address = 0; address <= 254; address += 2) saved.SetWord(address, ~address);
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
    Eeprom memory;
    for (const char* line : {"44", "45 1", "256 1", "44 -1", "44 x", "44 1 2", "99999999999 1"}) {
        const auto file = folder.Write("bad", std::string("# head\n") + line + "\n");
        const std::string error = ErrorOf([&] { LoadEeprom(file, memory); });
        EXPECT_TRUE(error.starts_with(file.string() + ", line 2: ")) << line << error;
    }
    EXPECT_EQ(folder.Path().string() + ": can't be read",
              ErrorOf([&] { LoadEeprom(folder.Path(), memory); }));
}

TEST(EepromFile, AFailedSaveKeepsTheOldFile) {
    const TemporaryFolder folder;
    const auto file = folder.Write("eeprom", "44 129\n");
    std::filesystem::create_directory(folder / "eeprom.new");
    EXPECT_THROW(SaveEeprom(file, Eeprom()), std::system_error);
    EXPECT_EQ("44 129\n", ContentOf(file));
}

}  // namespace
}  // namespace orbkl4sim
