#include "memory/logic/catalogue.h"

#include <algorithm>

namespace orbkl4 {

namespace {

using enum EepromAccess;

// The name at 166 ends in M12 like that at 160, and long names are cut off: both on purpose.
constexpr auto words = std::to_array<EepromWord>({
    {0, "Unused", 0, 0, Advanced},
    {2, "X Accelerometer Offset", 0, 65535, Advanced},
    {4, "Y Accelerometer Offset", 0, 65535, Advanced},
    {6, "Z Accelerometer Offset", 0, 65535, Advanced},
    {8, "X Magnetometer Offset", 0, 65535, Advanced},
    {10, "Y Magnetometer Offset", 0, 65535, Advanced},
    {12, "Z Magnetometer Offset", 0, 65535, Advanced},
    {14, "X Accelerometer Gain", 0, 65535, Advanced},
    {16, "Y Accelerometer Gain", 0, 65535, Advanced},
    {18, "Z Accelerometer Gain", 0, 65535, Advanced},
    {20, "X Magnetometer Gain", 0, 65535, Advanced},
    {22, "Y Magnetometer Gain", 0, 65535, Advanced},
    {24, "Z Magnetometer Gain", 0, 65535, Advanced},
    {26, "Capture Bias Samples", 1, 65535, User},
    {28, "Unused", 0, 65535, Advanced},
    {30, "Unused", 0, 65535, Advanced},
    {32, "X Gyroscope Gain", 0, 65535, Advanced},
    {34, "Y Gyroscope Gain", 0, 65535, Advanced},
    {36, "Z Gyroscope Gain", 0, 65535, Advanced},
    {38, "X Gyroscope Offset", 0, 65535, Advanced},
    {40, "Y Gyroscope Offset", 0, 65535, Advanced},
    {42, "Z Gyroscope Offset", 0, 65535, Advanced},
    {44, "Baud Rate (129=19200, 64=38400, 21=115200)", 21, 129, User},
    {46, "Comm Mode (1=RS-232, 0=RS-485)", 0, 1, User},
    {48, "X Accelerometer Reference", 0, 255, Advanced},
    {50, "Y Accelerometer Reference", 0, 255, Advanced},
    {52, "Z Accelerometer Reference", 0, 255, Advanced},
    {54, "Virtual Ground", 0, 255, Advanced},
    {56, "Unused", 0, 0, Advanced},
    {58, "Unused", 0, 0, Advanced},
    {60, "Unused", 0, 0, Advanced},
    {62, "Unused", 0, 0, Advanced},
    {64, "Node Address", 1, 15, User},
    {66, "Magnetometer Orthogonality Matrix, M11", -32768, 32767, Advanced},
    {68, "Magnetometer Orthogonality Matrix, M21", -32768, 32767, Advanced},
    {70, "Magnetometer Orthogonality Matrix, M31", -32768, 32767, Advanced},
    {72, "Magnetometer Orthogonality Matrix, M12", -32768, 32767, Advanced},
    {74, "Magnetometer Orthogonality Matrix, M22", -32768, 32767, Advanced},
    {76, "Magnetometer Orthogonality Matrix, M32", -32768, 32767, Advanced},
    {78, "Magnetometer Orthogonality Matrix, M13", -32768, 32767, Advanced},
    {80, "Magnetometer Orthogonality Matrix, M23", -32768, 32767, Advanced},
    {82, "Magnetometer Orthogonality Matrix, M33", -32768, 32767, Advanced},
    {84, "Gyroscope Orthogonality Matrix, M11", -32768, 32767, Advanced},
    {86, "Gyroscope Orthogonality Matrix, M21", -32768, 32767, Advanced},
    {88, "Gyroscope Orthogonality Matrix, M31", -32768, 32767, Advanced},
    {90, "Gyroscope Orthogonality Matrix, M12", -32768, 32767, Advanced},
    {92, "Gyroscope Orthogonality Matrix, M22", -32768, 32767, Advanced},
    {94, "Gyroscope Orthogonality Matrix, M32", -32768, 32767, Advanced},
    {96, "Gyroscope Orthogonality Matrix, M13", -32768, 32767, Advanced},
    {98, "Gyroscope Orthogonality Matrix, M23", -32768, 32767, Advanced},
    {100, "Gyroscope Orthogonality Matrix, M33", -32768, 32767, Advanced},
    {102, "Accelerometer Orthogonality Matrix, M11", -32768, 32767, Advanced},
    {104, "Accelerometer Orthogonality Matrix, M21", -32768, 32767, Advanced},
    {106, "Accelerometer Orthogonality Matrix, M31", -32768, 32767, Advanced},
    {108, "Accelerometer Orthogonality Matrix, M12", -32768, 32767, Advanced},
    {110, "Accelerometer Orthogonality Matrix, M22", -32768, 32767, Advanced},
    {112, "Accelerometer Orthogonality Matrix, M32", -32768, 32767, Advanced},
    {114, "Accelerometer Orthogonality Matrix, M13", -32768, 32767, Advanced},
    {116, "Accelerometer Orthogonality Matrix, M23", -32768, 32767, Advanced},
    {118, "Accelerometer Orthogonality Matrix, M33", -32768, 32767, Advanced},
    {120, "Gyro Bias Compensation Type (1=Normal)", 0, 1, User},
    {122, "Compensation Algorithm Switch (1=on, 0=off)", 0, 1, User},
    {124, "Acceleration Error Gain", 0, 65535, User},
    {126, "Magnetic Field Error Gain", 0, 65535, User},
    {128, "Bias Tracking Gain", 0, 65535, User},
    {130, "Gyroscope Gain Scale", 0, 65535, Advanced},
    {132, "Continuous Mode (0=off)", 0, 255, User},
    {134, "Serial Number", 0, 32767, Fixed},
    {136, "Tare Matrix, M11", -32768, 32767, User},
    {138, "Tare Matrix, M21", -32768, 32767, User},
    {140, "Tare Matrix, M31", -32768, 32767, User},
    {142, "Tare Matrix, M12", -32768, 32767, User},
    {144, "Tare Matrix, M22", -32768, 32767, User},
    {146, "Tare Matrix, M32", -32768, 32767, User},
    {148, "Tare Matrix, M13", -32768, 32767, User},
    {150, "Tare Matrix, M23", -32768, 32767, User},
    {152, "Tare Matrix, M33", -32768, 32767, User},
    {154, "Iron Calibration Matrix, M11", -32768, 32767, Advanced},
    {156, "Iron Calibration Matrix, M21", -32768, 32767, Advanced},
    {158, "Iron Calibration Matrix, M31", -32768, 32767, Advanced},
    {160, "Iron Calibration Matrix, M12", -32768, 32767, Advanced},
    {162, "Iron Calibration Matrix, M22", -32768, 32767, Advanced},
    {164, "Iron Calibration Matrix, M32", -32768, 32767, Advanced},
    {166, "Iron Calibration Matrix, M12", -32768, 32767, Advanced},
    {168, "Iron Calibration Matrix, M23", -32768, 32767, Advanced},
    {170, "Iron Calibration Matrix, M33", -32768, 32767, Advanced},
    {172, "X Iron Calibration Offset", -32768, 32767, Advanced},
    {174, "Y Iron Calibration Offset", -32768, 32767, Advanced},
    {176, "Z Iron Calibration Offset", -32768, 32767, Advanced},
    {178, "Gyro Acceleration Sensitivity Matrix, M11", -32768, 32767, Advanced},
    {180, "Gyro Acceleration Sensitivity Matrix, M21", -32768, 32767, Advanced},
    {182, "Gyro Acceleration Sensitivity Matrix, M31", -32768, 32767, Advanced},
    {184, "Gyro Acceleration Sensitivity Matrix, M12", -32768, 32767, Advanced},
    {186, "Gyro Acceleration Sensitivity Matrix, M22", -32768, 32767, Advanced},
    {188, "Gyro Acceleration Sensitivity Matrix, M32", -32768, 32767, Advanced},
    {190, "Gyro Acceleration Sensitivity Matrix, M13", -32768, 32767, Advanced},
    {192, "Gyro Acceleration Sensitivity Matrix, M23", -32768, 32767, Advanced},
    {194, "Gyro Acceleration Sensitivity Matrix, M33", -32768, 32767, Advanced},
    {196, "Temperature Set Point", 0, 65535, Advanced},
    {198, "Firmware Version", 0, 65535, Fixed},
    {200, "Header/Trailer (1=on, 0=off)", 0, 1, Advanced},
    {202, "Analog Output Command Byte (Functional only when analog output option ", 0, 255, User},
    {204, "Analog Output Test 1 (Functional only when analog output option is ins", 0, 4095, User},
    {206, "Analog Output Test 2 (Functional only when analog output option is ins", 0, 4095, User},
    {208, "Analog Output Test 3 (Functional only when analog output option is ins", 0, 4095, User},
    {210, "Analog Output Test 4 (Functional only when analog output option is ins", 0, 4095, User},
    {212, "Analog Accel Scale Factor (Functional only when analog output option i", 0, 65535, User},
    {214, "Analog Mag Scale Factor (Functional only when analog output option is ", 0, 65535, User},
    {216, "Analog Gyro Scale Factor (Functional only when analog output option is", 0, 65535, User},
    {218, "Analog Euler Scale Factor (Functional only when analog output option i", 0, 65535, User},
    {220, "Analog Quaternion Scale Factor (Functional only when analog output opt", 0, 65535, User},
    {222, "Analog MidScale Reference (Functional only when analog output option i", 0, 65535, User},
    {224, "Unused", 0, 0, Advanced},
    {226, "Magnetometer Test Current", 0, 65535, Advanced},
    {228, "Temperature Compensation Enabled (1=on, 0=off)", 0, 1, Advanced},
    {230, "Accelerometer Gain Scale", 0, 65535, Advanced},
    {232, "Magnetometer Gain Scale", 0, 65535, Advanced},
    {234, "Serial Number Prefix (Model Identifier)", 0, 65535, Advanced},
    {236, "TempCompInts", 1, 10, Advanced},
    {238, "Timer2Prescaler", 1, 16, Advanced},
    {240, "Timer2Postscaler", 1, 16, Advanced},
    {242, "Timer2Compare", 1, 256, Advanced},
    {244, "Unused", 0, 0, Advanced},
    {246, "TimerTicksInterval", 1, 100, Advanced},
    {248, "Unused", 0, 0, Advanced},
    {250, "Unused", 0, 0, Advanced},
    {252, "Unused", 0, 0, Advanced},
    {254, "Unused", 0, 0, Advanced},
});

constexpr auto CountOf(EepromAccess access) {
    return std::ranges::count(words, access, &EepromWord::access);
}

static_assert(CountOf(User) == 30 && CountOf(Fixed) == 2 && CountOf(Advanced) == 96);
static_assert(
    [] {
        for (std::size_t index = 0; index < words.size(); ++index) {
            const EepromWord& word = words.at(index);
            const bool fullSigned = word.minimum == -32768 && word.maximum == 32767;
            const bool withinWord = word.minimum >= 0 && word.maximum <= 65535;
            if (word.address != static_cast<int>(2 * index) || word.minimum > word.maximum ||
                word.name.empty() || !(IsSignedAddress(word.address) ? fullSigned : withinWord))
                return false;
        }
        return true;
    }(),
    "addresses are even and gapless, limits fit the type of their band");

}  // namespace

constexpr std::array<EepromWord, eepromWordCount> eepromCatalogue = words;

std::string_view RemarkOf(EepromAccess access) {
    return access == User ? "User may modify." : "User may not modify.";
}

void FillEEPROMNames() {
    for (std::size_t index = 0; index < words.size(); ++index)
        EEPROMNames.at(index) = words.at(index).name;
}

}  // namespace orbkl4
