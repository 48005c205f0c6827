#pragma once
// Vec3: three doubles. The same type carries a position (x, y, z or
// latitude, longitude, altitude), an orientation (yaw, pitch, roll), a
// velocity or an acceleration; the named accessors only say which reading
// the caller has in mind.

#include <cmath>
#include <cstddef>

namespace orvCore {

class Vec3 {
 public:
  Vec3() = default;
  Vec3(double x, double y, double z) : v_{x, y, z} {}
  // Takes the first three values of a plain array; null gives zeros.
  explicit Vec3(const double* values) {
    if (values) {
      v_[0] = values[0];
      v_[1] = values[1];
      v_[2] = values[2];
    }
  }

  double operator[](std::size_t i) const { return v_[i]; }
  double& operator[](std::size_t i) { return v_[i]; }
  const double* data() const { return v_; }
  double* data() { return v_; }

  double x() const { return v_[0]; }
  double y() const { return v_[1]; }
  double z() const { return v_[2]; }
  double lat() const { return v_[0]; }
  double lon() const { return v_[1]; }
  double alt() const { return v_[2]; }
  double yaw() const { return v_[0]; }
  double pitch() const { return v_[1]; }
  double roll() const { return v_[2]; }

  void set(double x, double y, double z) {
    v_[0] = x;
    v_[1] = y;
    v_[2] = z;
  }
  void setX(double x) { v_[0] = x; }
  void setY(double y) { v_[1] = y; }
  void setZ(double z) { v_[2] = z; }
  void setLat(double lat) { v_[0] = lat; }
  void setLon(double lon) { v_[1] = lon; }
  void setAlt(double alt) { v_[2] = alt; }
  void setYaw(double yaw) { v_[0] = yaw; }
  void setPitch(double pitch) { v_[1] = pitch; }
  void setRoll(double roll) { v_[2] = roll; }
  void zero() { set(0.0, 0.0, 0.0); }

  double dot(const Vec3& o) const { return v_[0] * o.v_[0] + v_[1] * o.v_[1] + v_[2] * o.v_[2]; }
  Vec3 cross(const Vec3& o) const {
    return Vec3(v_[1] * o.v_[2] - v_[2] * o.v_[1], v_[2] * o.v_[0] - v_[0] * o.v_[2],
                v_[0] * o.v_[1] - v_[1] * o.v_[0]);
  }
  double length() const { return std::sqrt(dot(*this)); }

  Vec3 operator+(const Vec3& o) const { return Vec3(v_[0] + o.v_[0], v_[1] + o.v_[1], v_[2] + o.v_[2]); }
  Vec3 operator-(const Vec3& o) const { return Vec3(v_[0] - o.v_[0], v_[1] - o.v_[1], v_[2] - o.v_[2]); }
  Vec3 operator-() const { return Vec3(-v_[0], -v_[1], -v_[2]); }
  Vec3 operator*(double s) const { return Vec3(v_[0] * s, v_[1] * s, v_[2] * s); }
  Vec3& operator+=(const Vec3& o) {
    v_[0] += o.v_[0];
    v_[1] += o.v_[1];
    v_[2] += o.v_[2];
    return *this;
  }
  Vec3& operator-=(const Vec3& o) {
    v_[0] -= o.v_[0];
    v_[1] -= o.v_[1];
    v_[2] -= o.v_[2];
    return *this;
  }
  Vec3& operator*=(double s) {
    v_[0] *= s;
    v_[1] *= s;
    v_[2] *= s;
    return *this;
  }

  // Exact comparison; v3AreEqual (core/VectorMath.h) compares with a tolerance.
  bool operator==(const Vec3& o) const { return v_[0] == o.v_[0] && v_[1] == o.v_[1] && v_[2] == o.v_[2]; }
  bool operator!=(const Vec3& o) const { return !(*this == o); }

 private:
  double v_[3] = {0.0, 0.0, 0.0};
};

inline Vec3 operator*(double s, const Vec3& v) { return v * s; }

}  // namespace orvCore
