#include "core/VectorMath.h"

#include <algorithm>
#include <cmath>

#include "core/Angle.h"

namespace orvCore {

namespace {

// Below this the DCM is taken to be at pitch +-pi/2 (gimbal lock).
constexpr double GIMBAL_TOLERANCE = 1.0e-6;

void copyMatrix(const double from[][3], double to[][3]) {
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) to[i][j] = from[i][j];
}

}  // namespace

bool v3AreEqual(const Vec3& a, const Vec3& b, double tolerance) {
  return std::fabs(a[0] - b[0]) <= tolerance && std::fabs(a[1] - b[1]) <= tolerance &&
         std::fabs(a[2] - b[2]) <= tolerance;
}

void v3RotX(const Vec3& in, double angle, Vec3& out) {
  const double s = std::sin(angle);
  const double c = std::cos(angle);
  out.set(in[0], c * in[1] - s * in[2], s * in[1] + c * in[2]);
}

void v3RotY(const Vec3& in, double angle, Vec3& out) {
  const double s = std::sin(angle);
  const double c = std::cos(angle);
  out.set(c * in[0] + s * in[2], in[1], -s * in[0] + c * in[2]);
}

double v3Angle(const Vec3& a, const Vec3& b) {
  const double product = a.length() * b.length();
  if (product == 0.0) return 0.0;
  return inverseCosine(a.dot(b) / product);
}

void d3MMmult(const double a[][3], const double b[][3], double c[][3]) {
  if (!a || !b || !c) return;
  double r[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) r[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
  copyMatrix(r, c);
}

void d3MMTmult(const double a[][3], const double b[][3], double c[][3]) {
  if (!a || !b || !c) return;
  double r[3][3];
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) r[i][j] = a[i][0] * b[j][0] + a[i][1] * b[j][1] + a[i][2] * b[j][2];
  copyMatrix(r, c);
}

void d3Mv3Mult(const double m[][3], const Vec3& v, Vec3& out) {
  if (!m) {
    out.zero();
    return;
  }
  const double x = v[0], y = v[1], z = v[2];
  out.set(m[0][0] * x + m[0][1] * y + m[0][2] * z, m[1][0] * x + m[1][1] * y + m[1][2] * z,
          m[2][0] * x + m[2][1] * y + m[2][2] * z);
}

void d3MTv3Mult(const double m[][3], const Vec3& v, Vec3& out) {
  if (!m) {
    out.zero();
    return;
  }
  const double x = v[0], y = v[1], z = v[2];
  out.set(m[0][0] * x + m[1][0] * y + m[2][0] * z, m[0][1] * x + m[1][1] * y + m[2][1] * z,
          m[0][2] * x + m[1][2] * y + m[2][2] * z);
}

void dQNorm(const double q[4], double out[4], double tolerance) {
  if (!out) return;
  if (!q) {
    out[0] = out[1] = out[2] = out[3] = 0.0;
    return;
  }
  // Scaled by the largest magnitude first, so that the squares neither
  // overflow (components near 1e200) nor vanish (near 1e-170).
  double largest = 0.0;
  for (int i = 0; i < 4; ++i) largest = std::max(largest, std::fabs(q[i]));
  if (largest == 0.0 || !std::isfinite(largest)) {
    out[0] = out[1] = out[2] = out[3] = 0.0;
    return;
  }
  double scaled[4];
  for (int i = 0; i < 4; ++i) scaled[i] = q[i] / largest;
  const double mag = std::sqrt(scaled[0] * scaled[0] + scaled[1] * scaled[1] + scaled[2] * scaled[2] +
                               scaled[3] * scaled[3]);
  for (int i = 0; i < 4; ++i) {
    const double v = scaled[i] / mag;
    out[i] = std::fabs(v) < tolerance ? 0.0 : v;
  }
}

void dQMult(const double q1[4], const double q2[4], double out[4]) {
  if (!q1 || !q2 || !out) return;
  const double a0 = q1[0], a1 = q1[1], a2 = q1[2], a3 = q1[3];
  const double b0 = q2[0], b1 = q2[1], b2 = q2[2], b3 = q2[3];
  out[0] = a0 * b0 - a1 * b1 - a2 * b2 - a3 * b3;
  out[1] = a0 * b1 + a1 * b0 + a2 * b3 - a3 * b2;
  out[2] = a0 * b2 - a1 * b3 + a2 * b0 + a3 * b1;
  out[3] = a0 * b3 + a1 * b2 - a2 * b1 + a3 * b0;
}

void d3DCMtoEuler(const double m[][3], Vec3& euler) {
  if (!m) {
    euler.zero();
    return;
  }
  const double s = m[0][2];
  if (std::fabs(s - 1.0) < GIMBAL_TOLERANCE) {
    // Nose straight down: yaw and roll turn about the same axis, roll takes it.
    euler.set(0.0, -M_PI_2, std::atan2(-m[1][0], -m[2][0]));
  } else if (std::fabs(s + 1.0) < GIMBAL_TOLERANCE) {
    euler.set(0.0, M_PI_2, std::atan2(m[1][0], m[2][0]));
  } else {
    euler.set(angFix(std::atan2(m[0][1], m[0][0]), AE_ZERO_TWOPI), inverseSine(-s), std::atan2(m[1][2], m[2][2]));
  }
}

void d3EulertoDCM(const Vec3& euler, double m[][3]) {
  if (!m) return;
  const double sy = std::sin(euler[0]), cy = std::cos(euler[0]);
  const double sp = std::sin(euler[1]), cp = std::cos(euler[1]);
  const double sr = std::sin(euler[2]), cr = std::cos(euler[2]);
  m[0][0] = cp * cy;
  m[0][1] = cp * sy;
  m[0][2] = -sp;
  m[1][0] = sr * sp * cy - cr * sy;
  m[1][1] = sr * sp * sy + cr * cy;
  m[1][2] = sr * cp;
  m[2][0] = cr * sp * cy + sr * sy;
  m[2][1] = cr * sp * sy - sr * cy;
  m[2][2] = cr * cp;
}

void d3EulertoQ(const Vec3& euler, double q[4]) {
  if (!q) return;
  const double sy = std::sin(0.5 * euler[0]), cy = std::cos(0.5 * euler[0]);
  const double sp = std::sin(0.5 * euler[1]), cp = std::cos(0.5 * euler[1]);
  const double sr = std::sin(0.5 * euler[2]), cr = std::cos(0.5 * euler[2]);
  q[0] = cr * cp * cy + sr * sp * sy;
  q[1] = sr * cp * cy - cr * sp * sy;
  q[2] = cr * sp * cy + sr * cp * sy;
  q[3] = cr * cp * sy - sr * sp * cy;
}

void d3QtoEuler(const double q[4], Vec3& euler) {
  if (!q) {
    euler.zero();
    return;
  }
  const double q0 = q[0], q1 = q[1], q2 = q[2], q3 = q[3];
  // The DCM terms that the angles need (same layout as d3EulertoDCM).
  const double m00 = q0 * q0 + q1 * q1 - q2 * q2 - q3 * q3;
  const double m01 = 2.0 * (q1 * q2 + q0 * q3);
  const double m02 = 2.0 * (q1 * q3 - q0 * q2);
  if (std::fabs(m00) < GIMBAL_TOLERANCE && std::fabs(m01) < GIMBAL_TOLERANCE) {
    // Pitch at +-pi/2: yaw is folded into the roll.
    const double m11 = q0 * q0 - q1 * q1 + q2 * q2 - q3 * q3;
    const double m21 = 2.0 * (q2 * q3 - q0 * q1);
    euler.set(0.0, inverseSine(-m02), std::atan2(-m21, m11));
    return;
  }
  const double m12 = 2.0 * (q2 * q3 + q0 * q1);
  const double m22 = q0 * q0 - q1 * q1 - q2 * q2 + q3 * q3;
  euler.set(angFix(std::atan2(m01, m00), AE_ZERO_TWOPI), inverseSine(-m02), std::atan2(m12, m22));
}

}  // namespace orvCore
