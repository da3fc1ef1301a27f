#include "memory/logic/catalogue.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace orbkl4 {
namespace {

/// Words at successive addresses. In the name `@` stands for X, Y and Z in turn, `%` for 1, 2 …,
/// `#` for the elements of a matrix, and `~` for the remark on the analog option, which is cut off
/// at 70 characters. The access is 'u'ser, 'a'dvanced or 'f'ixed.
struct Words {
    int first, last;
    int minimum, maximum;
    char access;
    std::string name;
};

constexpr int low = -32768;
constexpr int high = 32767;
constexpr int most = 65535;

const auto table = std::to_array<Words>({
    {0, 0, 0, 0, 'a', "Unused"},
    {2, 6, 0, most, 'a', "@ Accelerometer Offset"},
    {8, 12, 0, most, 'a', "@ Magnetometer Offset"},
    {14, 18, 0, most, 'a', "@ Accelerometer Gain"},
    {20, 24, 0, most, 'a', "@ Magnetometer Gain"},
    {26, 26, 1, most, 'u', "Capture Bias Samples"},
    {28, 30, 0, most, 'a', "Unused"},
    {32, 36, 0, most, 'a', "@ Gyroscope Gain"},
    {38, 42, 0, most, 'a', "@ Gyroscope Offset"},
    {44, 44, 21, 129, 'u', "Baud Rate (129=19200, 64=38400, 21=115200)"},
    {46, 46, 0, 1, 'u', "Comm Mode (1=RS-232, 0=RS-485)"},
    {48, 52, 0, 255, 'a', "@ Accelerometer Reference"},
    {54, 54, 0, 255, 'a', "Virtual Ground"},
    {56, 62, 0, 0, 'a', "Unused"},
    {64, 64, 1, 15, 'u', "Node Address"},
    {66, 82, low, high, 'a', "Magnetometer Orthogonality Matrix, M#"},
    {84, 100, low, high, 'a', "Gyroscope Orthogonality Matrix, M#"},
    {102, 118, low, high, 'a', "Accelerometer Orthogonality Matrix, M#"},
    {120, 120, 0, 1, 'u', "Gyro Bias Compensation Type (1=Normal)"},
    {122, 122, 0, 1, 'u', "Compensation Algorithm Switch (1=on, 0=off)"},
    {124, 124, 0, most, 'u', "Acceleration Error Gain"},
    {126, 126, 0, most, 'u', "Magnetic Field Error Gain"},
    {128, 128, 0, most, 'u', "Bias Tracking Gain"},
    {130, 130, 0, most, 'a', "Gyroscope Gain Scale"},
    {132, 132, 0, 255, 'u', "Continuous Mode (0=off)"},
    {134, 134, 0, 32767, 'f', "Serial Number"},
    {136, 152, low, high, 'u', "Tare Matrix, M#"},
    {154, 164, low, high, 'a', "Iron Calibration Matrix, M#"},
    {166, 166, low, high, 'a', "Iron Calibration Matrix, M12"},  // not M13
    {168, 168, low, high, 'a', "Iron Calibration Matrix, M23"},
    {170, 170, low, high, 'a', "Iron Calibration Matrix, M33"},
    {172, 176, low, high, 'a', "@ Iron Calibration Offset"},
    {178, 194, low, high, 'a', "Gyro Acceleration Sensitivity Matrix, M#"},
    {196, 196, 0, most, 'a', "Temperature Set Point"},
    {198, 198, 0, most, 'f', "Firmware Version"},
    {200, 200, 0, 1, 'a', "Header/Trailer (1=on, 0=off)"},
    {202, 202, 0, 255, 'u', "Analog Output Command Byte~"},
    {204, 210, 0, 4095, 'u', "Analog Output Test %~"},
    {212, 212, 0, most, 'u', "Analog Accel Scale Factor~"},
    {214, 214, 0, most, 'u', "Analog Mag Scale Factor~"},
    {216, 216, 0, most, 'u', "Analog Gyro Scale Factor~"},
    {218, 218, 0, most, 'u', "Analog Euler Scale Factor~"},
    {220, 220, 0, most, 'u', "Analog Quaternion Scale Factor~"},
    {222, 222, 0, most, 'u', "Analog MidScale Reference~"},
    {224, 224, 0, 0, 'a', "Unused"},
    {226, 226, 0, most, 'a', "Magnetometer Test Current"},
    {228, 228, 0, 1, 'a', "Temperature Compensation Enabled (1=on, 0=off)"},
    {230, 230, 0, most, 'a', "Accelerometer Gain Scale"},
    {232, 232, 0, most, 'a', "Magnetometer Gain Scale"},
    {234, 234, 0, most, 'a', "Serial Number Prefix (Model Identifier)"},
    {236, 236, 1, 10, 'a', "TempCompInts"},
    {238, 238, 1, 16, 'a', "Timer2Prescaler"},
    {240, 240, 1, 16, 'a', "Timer2Postscaler"},
    {242, 242, 1, 256, 'a', "Timer2Compare"},
    {244, 244, 0, 0, 'a', "Unused"},
    {246, 246, 1, 100, 'a', "TimerTicksInterval"},
    {248, 254, 0, 0, 'a', "Unused"},
});

std::string NameAt(const Words& words, int address) {
    const auto element = static_cast<std::size_t>(address - words.first) / 2;
    const std::string matrix = "112131122232132333";
    std::string name;
    for (const char sign : words.name) {
        switch (sign) {
            case '@': name += "XYZ"[element]; break;
            case '%': name += "1234"[element]; break;
            case '#': name += matrix.substr(2 * element, 2); break;
            case '~': name += " (Functional only when analog output option is ins"; break;
            default: name += sign;
        }
    }
    return name.substr(0, 70);
}

TEST(Catalogue, HasEachWordsNameLimitsAndAccess) {
    FillEEPROMNames();
    int expected = 0;
    for (const Words& words : table) {
        EXPECT_EQ(words.first, expected) << "a gap in the test's table";
        for (int address = words.first; address <= words.last; address += 2) {
            const auto index = static_cast<std::size_t>(address) / 2;
            const EepromWord& word = eepromCatalogue.at(index);
            EXPECT_EQ(word.address, address);
            EXPECT_EQ(EEPROMNames.at(index), NameAt(words, address)) << address;
            EXPECT_EQ(word.minimum, words.minimum) << address;
            EXPECT_EQ(word.maximum, words.maximum) << address;
            const bool user = words.access == 'u';
            EXPECT_EQ(IsEnabled(word.access, false), user) << address;
            EXPECT_EQ(IsEnabled(word.access, true), words.access != 'f') << address;
            EXPECT_EQ(RemarkOf(word.access), user ? "User may modify." : "User may not modify.");
        }
        expected = words.last + 2;
    }
    EXPECT_EQ(expected, 256);
}

}  // namespace
}  // namespace orbkl4
