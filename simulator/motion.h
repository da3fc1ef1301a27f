#pragma once

#include "simulator/bytes.h"
#include "simulator/geometry.h"

#include <filesystem>
#include <functional>
#include <string>

namespace orbkl4sim {

/// Attitude and angular rate at one moment.
struct Pose {
    Quaternion attitude;
    Vector3 rate;  // rad/s about the body axes
};

/// The sensor's pose as a function of time.
using Motion = std::function<Pose(Time)>;

/// A sensor at rest.
Motion Rest(const Euler& attitude = {5, -12, 40});

/// Endless rotation; every axis points along the earth's field, and against it, once in 6 s.
Motion Tumble();

/// The motion recorded in a CSV file, in an endless loop. The first line is `time,roll,pitch,yaw`
/// (seconds, degrees) or `time,q0,q1,q2,q3`; times must increase. Throws std::runtime_error with
/// file and line number if the file can't be used.
Motion ReadMotion(const std::filesystem::path& file);

/// The motion described by `text`: `rest`, `rest ROLL PITCH YAW` (degrees), `tumble` or
/// `file PATH`; throws std::runtime_error for anything else.
Motion ParseMotion(const std::string& text);

}  // namespace orbkl4sim
