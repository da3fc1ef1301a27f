#include "simulator/motion.h"

#include "simulator/arguments.h"
#include "simulator/environment.h"

#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string_view>

namespace orbkl4sim {

namespace {

constexpr double kRadians = std::numbers::pi / 180;

double Seconds(Time time) { return std::chrono::duration<double>(time).count(); }

/// In body coordinates, the earth's field moves on a closed curve through both ends of each axis,
/// since the rotation about X has half the rate of that about Y. A slow rotation about the field
/// itself lets gravity reach all directions too.
Quaternion TumbleAttitude(double seconds) {
    static const Quaternion fieldToZ =
        FromRotationVector({0, -std::atan2(kEarthField.x, kEarthField.z), 0});
    const auto angle = [seconds](double degreesPerSecond) {
        return degreesPerSecond * kRadians * seconds;
    };
    const Quaternion earthToBody = FromRotationVector({angle(60), 0, 0}) *
                                   FromRotationVector({0, angle(120), 0}) *
                                   FromRotationVector({0, 0, angle(25)}) * fieldToZ;
    return Conjugate(earthToBody);
}

}  // namespace

Motion Rest(const Euler& attitude) {
    return [pose = Pose{FromEuler(attitude), {}}](Time) { return pose; };
}

Motion Tumble() {
    return [](Time time) {
        constexpr double step = 1e-4;
        const double seconds = Seconds(time);
        const Quaternion turn =
            Conjugate(TumbleAttitude(seconds - step)) * TumbleAttitude(seconds + step);
        return Pose{TumbleAttitude(seconds), ToRotationVector(turn) * (1 / (2 * step))};
    };
}

Motion ParseMotion(const std::string& text) {
    Arguments arguments(text);
    const std::string_view kind = arguments.Word("the motion");
    if (kind == "file") return ReadMotion(arguments.Rest());
    if (kind == "rest" && !arguments.AtEnd()) {
        const double roll = arguments.Number({"ROLL", -360, 360});
        const double pitch = arguments.Number({"PITCH", -360, 360});
        return Rest({roll, pitch, arguments.LastNumber({"YAW", -360, 360})});
    }
    if (kind == "rest") return Rest();
    if (kind == "tumble") {
        arguments.ExpectEnd();
        return Tumble();
    }
    throw std::runtime_error("no motion: '" + text +
                             "' (rest, rest ROLL PITCH YAW, tumble or file PATH)");
}

}  // namespace orbkl4sim
