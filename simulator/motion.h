#pragma once

#include "simulator/bytes.h"
#include "simulator/geometry.h"

#include <filesystem>
#include <functional>
#include <string>

namespace orbkl4sim {

/// How the sensor lies and turns at one moment.
struct Pose {
    Quaternion attitude;
    Vector3 rate;  // rad/s about the body's axes
};

/// What takes the sensor through space: a time goes in, a pose comes out.
using Motion = std::function<Pose(Time)>;

/// Never moves.
Motion Rest(const Euler& attitude = {5, -12, 40});

/// Turns without end; every axis points along the earth's field, and against it, once in 6 s.
Motion Tumble();

/// The motion recorded in a CSV file, played again and again. The first line is
/// `time,roll,pitch,yaw` (seconds, degrees) or `time,q0,q1,q2,q3`; times ascend. Throws
/// std::runtime_error that names file and line where the file can't be used.
Motion ReadMotion(const std::filesystem::path& file);

/// The motion that `text` names: `rest`, `rest ROLL PITCH YAW`, `tumble` or `file PATH`; throws
/// std::runtime_error for anything else.
Motion ParseMotion(const std::string& text);

}  // namespace orbkl4sim
