#pragma once

#include "simulator/motion.h"

#include <cstdint>
#include <random>

namespace orbkl4sim {

/// The earth's magnetic field in gauss: north, east, down.
inline constexpr Vector3 kEarthField{0.18, 0, 0.52};
/// Gravity in g; a level sensor at rest reads 0, 0, 1.
inline constexpr Vector3 kGravity{0, 0, 1};
/// What the iron that turns with the sensor adds to the field, in gauss.
inline constexpr Vector3 kHardIron{0.06, -0.04, 0.08};
/// What the gyros read when nothing turns, in rad/s.
inline constexpr Vector3 kGyroBias{0.02, -0.015, 0.01};

/// What the sensing elements give at one moment, body axes, before any correction.
struct Reading {
    Vector3 field;          // gauss
    Vector3 acceleration;   // g
    Vector3 rate;           // rad/s
    Quaternion attitude;    // the true one
    Quaternion unfiltered;  // the attitude without the gyros' help: it trembles
};

/// The place that the sensor is in: its motion, the fields round it, and noise.
class Surroundings {
  public:
    Surroundings(Motion motion, bool noisy, std::uint64_t seed);

    /// What the elements give at `time`.
    Reading Read(Time time);

    /// Moves the sensor by `motion` from now on.
    void SetMotion(Motion motion) { motion_ = std::move(motion); }

  private:
    Vector3 Noise(double deviation);

    Motion motion_;
    bool noisy_;
    std::mt19937_64 random_;
};

}  // namespace orbkl4sim
