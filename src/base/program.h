#pragma once

#include <string>

namespace orbkl4 {

/// The program's title, as the frame and the error log show it.
inline constexpr const char* programTitle = "ORB-KL4 Data Acquisition and Display Software";

/// The program's own version.
struct ProgramVersion {
    int major = 2;
    int minor = 0;
    int revision = 4;
};

/// The version's parts as decimal texts, joined with points: "2.0.4".
inline std::string VersionText(const ProgramVersion& version = {}) {
    return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
           std::to_string(version.revision);
}

}  // namespace orbkl4
