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

/// Nine elements by columns, in the order in which the sensor sends them: M11, M21, M31, M12 …
using Matrix3 = std::array<double, 9>;

/// Angles in degrees, applied in the order yaw about Z, pitch about Y, roll about X.
struct Euler {
    double roll = 0;
    double pitch = 0;
    double yaw = 0;
};

/// A rotation from body to earth coordinates (X north, Y east, Z down).
struct Quaternion {
    double w = 1;
    double x = 0;
    double y = 0;
    double z = 0;
};

Quaternion operator*(const Quaternion& a, const Quaternion& b);
Quaternion Conjugate(const Quaternion& q);

/// `q` scaled to length 1; the identity if its length is 0.
Quaternion Normalized(const Quaternion& q);

/// `vector` rotated by `q`.
Vector3 Rotate(const Quaternion& q, const Vector3& vector);

/// The rotation about `vector` by its length in radians.
Quaternion FromRotationVector(const Vector3& vector);

/// The shortest rotation vector of `q`, in radians.
Vector3 ToRotationVector(const Quaternion& q);

Quaternion FromEuler(const Euler& angles);

/// Roll and yaw from -180 to 180, pitch from -90 to 90 degrees.
Euler ToEuler(const Quaternion& q);

Matrix3 ToMatrix(const Quaternion& q);

/// The rotation of the matrix `m`, which may have rounding errors; the identity if it has none.
Quaternion FromMatrix(const Matrix3& m);

/// Spherical interpolation on the shorter way from `a` (`fraction` 0) to `b` (1).
Quaternion Slerp(const Quaternion& a, const Quaternion& b, double fraction);

}  // namespace orbkl4sim
