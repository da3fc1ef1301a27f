#include "simulator/environment.h"

#include <numbers>
#include <utility>

namespace orbkl4sim {

namespace {

// Standard deviations.
constexpr double kFieldNoise = 0.0005;                             // gauss
constexpr double kAccelerationNoise = 0.002;                       // g
constexpr double kRateNoise = 0.002;                               // rad/s
constexpr double kAttitudeNoise = 0.005 * std::numbers::pi / 180;  // rad

}  // namespace

Environment::Environment(Motion motion, bool noisy, std::uint64_t seed)
    : motion_(std::move(motion)), noisy_(noisy), random_(seed) {}

Reading Environment::Read(Time time) {
    const Pose pose = motion_(time);
    const Quaternion earthToBody = Conjugate(pose.attitude);
    return {Rotate(earthToBody, kEarthField) + kHardIron + Noise(kFieldNoise),
            Rotate(earthToBody, kGravity) + Noise(kAccelerationNoise),
            pose.rate + kGyroBias + Noise(kRateNoise), pose.attitude,
            pose.attitude * FromRotationVector(Noise(kAttitudeNoise))};
}

Vector3 Environment::Noise(double deviation) {
    if (!noisy_) return {};
    std::normal_distribution<double> noise(0, deviation);
    const double x = noise(random_);
    const double y = noise(random_);
    return {x, y, noise(random_)};
}

}  // namespace orbkl4sim
