#include "memory/logic/catalogue.h"

#include "memory/logic/matrix_options.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace orbkl4 {
namespace {

std::set<int> IndicesWith(EepromAccess access) {
    std::set<int> indices;
    for (const EepromWord& word : eepromCatalogue)
        if (word.access == access) indices.insert(word.address / 2);
    return indices;
}

TEST(Catalogue, SaysWhoMayChangeAWord) {
    EXPECT_EQ(
        IndicesWith(EepromAccess::User),
        (std::set<int>{13, 22, 23, 32, 60,  61,  62,  63,  64,  66,  68,  69,  70,  71,  72,
                       73, 74, 75, 76, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111}));
    EXPECT_EQ(IndicesWith(EepromAccess::Fixed), (std::set<int>{67, 99}));
    EXPECT_EQ(RemarkOf(EepromAccess::User), "User may modify.");
    EXPECT_EQ(RemarkOf(EepromAccess::Advanced), "User may not modify.");
    EXPECT_EQ(RemarkOf(EepromAccess::Fixed), "User may not modify.");
    EXPECT_TRUE(IsEnabled(EepromAccess::User, false));
    EXPECT_FALSE(IsEnabled(EepromAccess::Advanced, false));
    EXPECT_TRUE(IsEnabled(EepromAccess::Advanced, true));
    EXPECT_FALSE(IsEnabled(EepromAccess::Fixed, true));
}

TEST(Catalogue, HasTheLimitsThatStandOut) {
    struct Case {
        eeprom::Address address;
        int minimum, maximum;
    };
    for (const auto& [address, minimum, maximum] :
         std::vector<Case>{{0, 0, 0},           {2, 0, 65535},        {26, 1, 65535},
                           {28, 0, 65535},      {30, 0, 65535},       {44, 21, 129},
                           {46, 0, 1},          {48, 0, 255},         {54, 0, 255},
                           {56, 0, 0},          {62, 0, 0},           {64, 1, 15},
                           {66, -32768, 32767}, {118, -32768, 32767}, {120, 0, 1},
                           {122, 0, 1},         {124, 0, 65535},      {132, 0, 255},
                           {134, 0, 32767},     {136, -32768, 32767}, {194, -32768, 32767},
                           {196, 0, 65535},     {198, 0, 65535},      {200, 0, 1},
                           {202, 0, 255},       {204, 0, 4095},       {210, 0, 4095},
                           {212, 0, 65535},     {224, 0, 0},          {228, 0, 1},
                           {236, 1, 10},        {238, 1, 16},         {240, 1, 16},
                           {242, 1, 256},       {244, 0, 0},          {246, 1, 100},
                           {248, 0, 0},         {254, 0, 0}}) {
        const EepromWord& word = eepromCatalogue[IndexOf(address)];
        EXPECT_EQ(word.address, address);
        EXPECT_EQ(word.minimum, minimum) << address;
        EXPECT_EQ(word.maximum, maximum) << address;
    }
}

TEST(Catalogue, NamesStandWordForWord) {
    FillEEPROMNames();
    struct Case {
        std::size_t address;
        const char* name;
    };
    for (const auto& [address, name] : std::vector<Case>{
             {0, "Unused"},
             {2, "X Accelerometer Offset"},
             {44, "Baud Rate (129=19200, 64=38400, 21=115200)"},
             {118, "Accelerometer Orthogonality Matrix, M33"},
             {130, "Gyroscope Gain Scale"},
             {160, "Iron Calibration Matrix, M12"},
             {166, "Iron Calibration Matrix, M12"},
             {204, "Analog Output Test 1 (Functional only when analog output option is ins"},
             {220, "Analog Quaternion Scale Factor (Functional only when analog output opt"},
             {246, "TimerTicksInterval"},
             {254, "Unused"}})
        EXPECT_EQ(EEPROMNames[address / 2], name);
}

TEST(Catalogue, BandsDecideTheSign) {
    struct Case {
        eeprom::Address address;
        double word, number;
    };
    for (const auto& [address, word, number] : std::vector<Case>{{64, 65535, 65535},
                                                                 {66, 65535, -1},
                                                                 {66, 32767, 32767},
                                                                 {118, 32768, -32768},
                                                                 {120, 32768, 32768},
                                                                 {134, 65535, 65535},
                                                                 {136, 65535, -1},
                                                                 {194, 65535, -1},
                                                                 {196, 65535, 65535},
                                                                 {254, 65535, 65535}}) {
        EXPECT_EQ(NumberOfWord(address, word), number) << address;
        EXPECT_EQ(WordOfNumber(address, number), word) << address;
    }
}

TEST(MatrixOptions, BeginWhereTheCatalogueHasTheirFirstElement) {
    for (const MatrixOption& option : matrixOptions) {
        const std::string first(option.caption);
        EXPECT_EQ(eepromCatalogue[IndexOf(option.base)].name, first + ", M11");
        EXPECT_EQ(eepromCatalogue[IndexOf(option.base) + 8].name, first + ", M33");
    }
    EXPECT_EQ(matrixOptions[0].base, 102);
    EXPECT_EQ(matrixOptions[3].base, 178);
}

}  // namespace
}  // namespace orbkl4
