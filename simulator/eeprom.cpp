#include "simulator/eeprom.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

namespace orbkl4sim {

namespace {

constexpr double kMatrixUnit = 8192;
constexpr Matrix3 kIdentity{1, 0, 0, 0, 1, 0, 0, 0, 1};

struct FactoryRun {
    int first;
    int last;
    std::uint16_t word;
};

// All other words are 0. A gain scale is 1000 times the full scale of a signed word: 2.5 gauss, 5 g
// and 8.727 rad/s (500 degrees/s).
constexpr std::array kFactory{
    FactoryRun{2, 12, 32768},   // accelerometer and magnetometer offsets
    FactoryRun{14, 24, 16384},  // accelerometer and magnetometer gains
    FactoryRun{26, 26, 10},     // capture bias samples: 66 ms at the default cycle
    FactoryRun{32, 36, 16384},  // gyroscope gains
    FactoryRun{38, 42, 32768},  // gyroscope offsets
    FactoryRun{44, 44, 64},     // 38400 baud
    FactoryRun{46, 46, 1},      // RS-232
    FactoryRun{48, 54, 128},    // accelerometer references, virtual ground
    FactoryRun{64, 64, 1},      // node address
    FactoryRun{120, 122, 1},    // normal gyro bias compensation, algorithm on
    FactoryRun{124, 124, 120},   FactoryRun{126, 126, 100},  FactoryRun{128, 128, 8},
    FactoryRun{130, 130, 8727},                              // gyroscope gain scale
    FactoryRun{134, 134, 1042},                              // serial number
    FactoryRun{196, 196, 9830},                              // temperature set point, 25 degrees
    FactoryRun{198, 198, 3101},                              // firmware
    FactoryRun{200, 200, 1},                                 // header and trailer on
    FactoryRun{204, 210, 2048},                              // analog test outputs
    FactoryRun{212, 220, 4096},                              // analog scale factors
    FactoryRun{222, 222, 32768}, FactoryRun{226, 226, 512},  // magnetometer test current
    FactoryRun{228, 228, 1},                                 // temperature compensation on
    FactoryRun{230, 230, 5000},  FactoryRun{232, 232, 2500}, FactoryRun{234, 234, 4},
    FactoryRun{236, 236, 4},     FactoryRun{238, 240, 16},   FactoryRun{242, 242, 256},
    FactoryRun{246, 246, 1},
};

// Orthogonality of magnetometer, gyroscope and accelerometer; tare; iron.
constexpr std::array kIdentityMatrices{66, 84, 102, address::kTareMatrix, address::kIronMatrix};

}  // namespace

Eeprom::Eeprom() {
    for (const FactoryRun& run : kFactory) {
        for (int wordAddress = run.first; wordAddress <= run.last; wordAddress += 2) {
            SetWord(wordAddress, run.word);
        }
    }
    for (const int wordAddress : kIdentityMatrices) SetMatrix(wordAddress, kIdentity);
}

bool Eeprom::Has(int wordAddress) {
    return wordAddress >= 0 && wordAddress <= 254 && wordAddress % 2 == 0;
}

std::size_t Eeprom::Index(int wordAddress) {
    if (!Has(wordAddress)) {
        throw std::out_of_range("no EEPROM word at " + std::to_string(wordAddress));
    }
    return static_cast<std::size_t>(wordAddress) / 2;
}

std::uint16_t Eeprom::Word(int wordAddress) const { return words_.at(Index(wordAddress)); }

void Eeprom::SetWord(int wordAddress, std::uint16_t word) {
    words_.at(Index(wordAddress)) = word;
    ++changes_;
}

void Eeprom::Write(int wordAddress, std::uint16_t word) {
    if (!stuck_.at(Index(wordAddress))) SetWord(wordAddress, word);
}

std::vector<int> Eeprom::Stuck() const {
    std::vector<int> addresses;
    for (int wordAddress = 0; wordAddress <= 254; wordAddress += 2) {
        if (stuck_.at(Index(wordAddress))) addresses.push_back(wordAddress);
    }
    return addresses;
}

Matrix3 Eeprom::Matrix(int wordAddress) const {
    Matrix3 matrix{};
    for (double& element : matrix) {
        element = ToSigned(Word(wordAddress)) / kMatrixUnit;
        wordAddress += 2;
    }
    return matrix;
}

void Eeprom::SetMatrix(int wordAddress, const Matrix3& matrix) {
    for (const double element : matrix) {
        Write(wordAddress, SignedWord(element * kMatrixUnit));
        wordAddress += 2;
    }
}

std::uint16_t SignedWord(double value) {
    const double limited = std::clamp(std::round(value), -32768.0, 32767.0);
    return static_cast<std::uint16_t>(static_cast<std::int16_t>(limited));
}

}  // namespace orbkl4sim
