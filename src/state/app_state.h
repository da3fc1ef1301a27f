#pragma once

#include "base/bytes.h"

#include <cstdint>
#include <string>

namespace orbkl4 {

/// What is known of the program and the sensor; every screen reads and writes it directly.
struct AppStateRecord {
    std::int16_t CommPort = 0;              ///< serial port number of every screen, 1 upward
    std::string CommSettings;               ///< line settings such as "38400,n,8,1"
    Bytes CommandBytes;                     ///< the request going out, then the reply come in
    std::string VersionText;                ///< program version, such as "2.0.4"
    bool AdvancedMode = false;              ///< the hidden entries have been shown
    std::string FirmwareText;               ///< firmware with its points, such as "3.1.01"
    double FirmwareNumber = 0;              ///< the same as the sensor sends it, such as 3101
    double SerialNumber = 0;                ///< the sensor's serial number
    double GyroGainScale = 0;               ///< EEPROM word 130; 65535 is unset
    double AccGainScale = 0;                ///< EEPROM word 230; 65535 is unset
    double MagGainScale = 0;                ///< EEPROM word 232; 65535 is unset
    std::int16_t CurrentEEPROMAddress = 0;  ///< where a running read or write loop stands
    double EEPROMValue = 0;                 ///< the word just read in a running loop
    double EEPROMWriteValue = 0;            ///< the word about to be written in a running loop
    std::string DataFileName;               ///< full path (UTF-8) of the data file being written
    std::int64_t CounterFrequency = 0;      ///< high-resolution counter ticks per second
};

/// The one record of the process.
inline AppStateRecord AppState;

}  // namespace orbkl4
