#pragma once

#include "base/bytes.h"

#include <cstdint>
#include <string>

namespace orbkl4 {

/// The serial line that every screen uses.
struct LineChoice {
    std::int16_t CommPort = 0;  ///< serial port number, 1 upward
    std::string CommSettings;   ///< line settings such as "38400,n,8,1"
};

/// What the sensor says of itself.
struct SensorIdentity {
    std::string FirmwareText;   ///< firmware with its points, such as "3.1.01"
    double FirmwareNumber = 0;  ///< the same as the sensor sends it, such as 3101
    double SerialNumber = 0;
};

/// What turns the sensor's words into fields, accelerations and rates; 65535 is unset.
struct GainScales {
    double GyroGainScale = 0;  ///< EEPROM word 130
    double AccGainScale = 0;   ///< EEPROM word 230
    double MagGainScale = 0;   ///< EEPROM word 232
};

/// The position of a run over the EEPROM.
struct MapCursor {
    std::int16_t CurrentEEPROMAddress = 0;
    double EEPROMValue = 0;       ///< the word just read
    double EEPROMWriteValue = 0;  ///< the word about to be written
};

/// What is known of the program and the sensor; every screen reads and writes it directly.
struct AppStateRecord : LineChoice, SensorIdentity, GainScales, MapCursor {
    Bytes CommandBytes;                 ///< the request going out, then the reply
    std::string VersionText;            ///< program version, such as "2.0.4"
    bool AdvancedMode = false;          ///< the hidden entries have been shown
    std::string DataFileName;           ///< full path (UTF-8) of the data file being written
    std::int64_t CounterFrequency = 0;  ///< high-resolution counter ticks per second
};

/// The one record of the process.
inline AppStateRecord AppState;

}  // namespace orbkl4
