#include "simulator/geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orbkl4sim {

namespace {
constexpr double kDegrees = 180 / std::numbers::pi;
}

Vector3 operator+(const Vector3& a, const Vector3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }

Vector3 operator-(const Vector3& a, const Vector3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }

Vector3 operator*(const Vector3& vector, double factor) {
    return {vector.x * factor, vector.y * factor, vector.z * factor};
}

double Length(const Vector3& vector) { return std::hypot(vector.x, vector.y, vector.z); }

Quaternion operator*(const Quaternion& a, const Quaternion& b) {
    return {a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z,
            a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
            a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w};
}

Quaternion Conjugate(const Quaternion& q) { return {q.w, -q.x, -q.y, -q.z}; }

Quaternion Normalized(const Quaternion& q) {
    const double length = std::sqrt(q.w * q.w + q.x * q.x + q.y * q.y + q.z * q.z);
    if (length == 0) return {};
    return {q.w / length, q.x / length, q.y / length, q.z / length};
}

Vector3 Rotate(const Quaternion& q, const Vector3& vector) {
    const Quaternion rotated = q * Quaternion{0, vector.x, vector.y, vector.z} * Conjugate(q);
    return {rotated.x, rotated.y, rotated.z};
}

Quaternion FromRotationVector(const Vector3& vector) {
    const double angle = Length(vector);
    if (angle == 0) return {};
    const Vector3 axis = vector * (std::sin(angle / 2) / angle);
    return {std::cos(angle / 2), axis.x, axis.y, axis.z};
}

Vector3 ToRotationVector(const Quaternion& q) {
    const Vector3 axis = Vector3{q.x, q.y, q.z} * (q.w < 0 ? -1 : 1);
    const double sine = Length(axis);
    if (sine == 0) return {};
    return axis * (2 * std::atan2(sine, std::abs(q.w)) / sine);
}

Quaternion FromEuler(const Euler& angles) {
    return FromRotationVector({0, 0, angles.yaw / kDegrees}) *
           FromRotationVector({0, angles.pitch / kDegrees, 0}) *
           FromRotationVector({angles.roll / kDegrees, 0, 0});
}

Euler ToEuler(const Quaternion& q) {
    const Matrix3 m = ToMatrix(q);
    return {std::atan2(m[5], m[8]) * kDegrees, std::asin(std::clamp(-m[2], -1.0, 1.0)) * kDegrees,
            std::atan2(m[1], m[0]) * kDegrees};
}

Matrix3 ToMatrix(const Quaternion& q) {
    const Vector3 x = Rotate(q, {1, 0, 0});
    const Vector3 y = Rotate(q, {0, 1, 0});
    const Vector3 z = Rotate(q, {0, 0, 1});
    return {x.x, x.y, x.z, y.x, y.y, y.z, z.x, z.y, z.z};
}

Quaternion FromMatrix(const Matrix3& m) {
    // Dividing by the largest of the four pivots keeps the result accurate.
    const std::array<double, 4> pivots{1 + m[0] + m[4] + m[8], 1 + m[0] - m[4] - m[8],
                                       1 - m[0] + m[4] - m[8], 1 - m[0] - m[4] + m[8]};
    switch (std::max_element(pivots.begin(), pivots.end()) - pivots.begin()) {
        case 0: return Normalized({pivots[0], m[5] - m[7], m[6] - m[2], m[1] - m[3]});
        case 1: return Normalized({m[5] - m[7], pivots[1], m[1] + m[3], m[6] + m[2]});
        case 2: return Normalized({m[6] - m[2], m[1] + m[3], pivots[2], m[5] + m[7]});
        default: return Normalized({m[1] - m[3], m[6] + m[2], m[5] + m[7], pivots[3]});
    }
}

Quaternion Slerp(const Quaternion& a, const Quaternion& b, double fraction) {
    return a * FromRotationVector(ToRotationVector(Conjugate(a) * b) * fraction);
}

}  // namespace orbkl4sim
