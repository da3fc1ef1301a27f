#pragma once

#include <array>

namespace orbkl4sim {

struct Vector3 {
    double x = 0;
    double y = 0;
    double z = 0;
};

Vector3 operator+(const Vector3& a, const Vector3& b);
Vector3 operator-(const Vector3& a, const Vector3& b);
Vector3 operator*(const Vector3& vector, double factor);
double Length(const Vector3& vector);

/// Nine elements column by column, as the sensor sends them: M11, M21, M31, M12 …
using Matrix3 = std::array<double, 9>;

/// Degrees; the sensor is turned by yaw about Z, then pitch about Y, then roll about X.
struct Euler {
    double roll = 0;
    double pitch = 0;
    double yaw = 0;
};

/// A rotation that takes body coordinates to earth coordinates (X north, Y east, Z down).
struct Quaternion {
    double w = 1;
    double x = 0;
    double y = 0;
    double z = 0;
};

Quaternion operator*(const Quaternion& a, const Quaternion& b);
Quaternion Conjugate(const Quaternion& q);

/// `q` at length 1; no rotation where its length is 0.
Quaternion Normalized(const Quaternion& q);

/// `vector` turned by `q`.
Vector3 Rotate(const Quaternion& q, const Vector3& vector);

/// The rotation by the length of `vector`, in radians, about its direction.
Quaternion FromRotationVector(const Vector3& vector);

/// The shortest rotation vector, in radians, that gives `q`.
Vector3 ToRotationVector(const Quaternion& q);

Quaternion FromEuler(const Euler& angles);

/// Roll and yaw from -180 to 180, pitch from -90 to 90 degrees.
Euler ToEuler(const Quaternion& q);

Matrix3 ToMatrix(const Quaternion& q);

/// The rotation nearest to `m`; no rotation where `m` gives none.
Quaternion FromMatrix(const Matrix3& m);

/// The rotation at `share` (0 to 1) of the shorter way from `a` to `b`.
Quaternion Between(const Quaternion& a, const Quaternion& b, double share);

}  // namespace orbkl4sim
