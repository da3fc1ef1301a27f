#include "memory/logic/catalogue.h"

#include <gtest/gtest.h>

namespace orbkl4 {
namespace {

TEST(Catalogue, HasTheLimitsThatStandOut) {
    struct Case {
        eeprom::Address address;
        int minimum, maximum;
    };
    const Case cases[] = {
        {0, 0, 0},     {2, 0, 65535},   {26, 1, 65535},  {28, 0, 65535},  {30, 0, 65535},
        {44, 21, 129}, {46, 0, 1},      {48, 0, 255},    {54, 0, 255},    {56, 0, 0},
        {62, 0, 0},    {64, 1, 15},     {120, 0, 1},     {122, 0, 1},     {124, 0, 65535},
        {132, 0, 255}, {134, 0, 32767}, {196, 0, 65535}, {198, 0, 65535}, {200, 0, 1},
        {202, 0, 255}, {204, 0, 4095},  {210, 0, 4095},  {212, 0, 65535}, {224, 0, 0},
        {228, 0, 1},   {236, 1, 10},    {238, 1, 16},    {240, 1, 16},    {242, 1, 256},
        {244, 0, 0},   {246, 1, 100},   {248, 0, 0},     {254, 0, 0}};
    for (const auto& [address, minimum, maximum] : cases) {
        const EepromWord& word = eepromCatalogue[IndexOf(address)];
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
    const Case cases[] = {
        {0, "Unused"},
        {118, "Accelerometer Orthogonality Matrix, M33"},
        {160, "Iron Calibration Matrix, M12"},
        {166, "Iron Calibration Matrix, M12"},
        {178, "Gyro Acceleration Sensitivity Matrix, M11"},
        {204, "Analog Output Test 1 (Functional only when analog output option is ins"},
        {220, "Analog Quaternion Scale Factor (Functional only when analog output opt"},
        {246, "TimerTicksInterval"},
    };
    for (const auto& [address, name] : cases) EXPECT_EQ(EEPROMNames[address / 2], name);
}

}  // namespace
}  // namespace orbkl4
