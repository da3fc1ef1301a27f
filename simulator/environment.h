#pragma once

#include "simulator/motion.h"

#include <cstdint>
#include <random>

namespace orbkl4sim {

/// The earth's magnetic field in gauss: north, east, down.
inline constexpr Vector3 kEarthField{0.18, 0, 0.52};
/// Gravity in g; a level sensor at rest reads 0, 0, 1.
inline constexpr Vector3 kGravity{0, 0, 1};
/// Constant field of the iron fixed to the sensor, in gauss, body axes.
inline constexpr Vector3 kHardIron{0.06, -0.04, 0.08};
/// What the gyros measure at rest, in rad/s.
inline constexpr Vector3 kGyroBias{0.02, -0.015, 0.01};

/// The physical quantities at one moment, in body axes, as the sensing elements measure them.
struct Reading {
    Vector3 field;          // gauss
    Vector3 acceleration;   // g
    Vector3 rate;           // rad/s
    Quaternion attitude;    // the true one
    Quaternion unfiltered;  // the attitude without gyro stabilization: it is noisy
};

/// The physical quantities around the sensor: its motion, earth field, gravity and noise.
class Environment {
  public:
    Environment(Motion motion, bool noisy, std::uint64_t seed);

    /// The quantities at `time`.
    Reading Read(Time time);

    /// Sets how the sensor moves from now on.
    void SetMotion(Motion motion) { motion_ = std::move(motion); }

  private:
    Vector3 Noise(double deviation);

    Motion motion_;
    bool noisy_;
    std::mt19937_64 random_;
};

}  // namespace orbkl4sim
