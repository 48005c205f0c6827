#pragma once
// Vector, 3x3 matrix and quaternion helpers of the coordinate code.
//
// A matrix is an array of three rows (double m[3][3]); a quaternion is four
// doubles, scalar first (q[0] + q[1] i + q[2] j + q[3] k). Euler angles are
// a Vec3 of yaw, pitch and roll in radians, applied in that order (the
// aerospace 3-2-1 sequence), and a direction cosine matrix (DCM) built from
// them takes a vector from the reference frame into the body frame.
//
// Every function accepts its output being one of its inputs. Functions that
// take pointers do nothing with a null output, and treat a null input as
// described at the function.

#include "core/Vec3.h"

namespace orvCore {

// True if each component of a and b differs by no more than the tolerance.
bool v3AreEqual(const Vec3& a, const Vec3& b, double tolerance = 1.0e-6);

// Rotates the vector by `angle` radians about the X (resp. Y) axis, right-hand
// rule: v3RotX of (0, 1, 0) by pi/2 gives (0, 0, 1).
void v3RotX(const Vec3& in, double angle, Vec3& out);
void v3RotY(const Vec3& in, double angle, Vec3& out);

// The angle between two vectors in radians, 0 if either has zero length.
double v3Angle(const Vec3& a, const Vec3& b);

// c = a * b.
void d3MMmult(const double a[][3], const double b[][3], double c[][3]);
// c = a * transpose(b).
void d3MMTmult(const double a[][3], const double b[][3], double c[][3]);
// out = m * v.
void d3Mv3Mult(const double m[][3], const Vec3& v, Vec3& out);
// out = transpose(m) * v.
void d3MTv3Mult(const double m[][3], const Vec3& v, Vec3& out);

// Normalises q into out, for any magnitude a double holds; a zero, infinite
// (or null) quaternion gives zeros, and any component whose magnitude ends
// under the tolerance becomes exactly 0.
void dQNorm(const double q[4], double out[4], double tolerance = 1.0e-9);
// Hamilton product out = q1 * q2: the turn of q1 followed by the turn of q2
// (its DCM is DCM(q2) * DCM(q1)). Does nothing if any pointer is null.
void dQMult(const double q1[4], const double q2[4], double out[4]);

// DCM to yaw, pitch, roll. Yaw is wrapped to [0, 2 pi); at pitch +-pi/2 the
// yaw is 0 and the roll carries the whole turn about the vertical. A null
// matrix gives zeros.
void d3DCMtoEuler(const double m[][3], Vec3& euler);
// Yaw, pitch, roll to the DCM.
void d3EulertoDCM(const Vec3& euler, double m[][3]);
// Yaw, pitch, roll to the quaternion of the same rotation as d3EulertoDCM.
void d3EulertoQ(const Vec3& euler, double q[4]);
// Quaternion (assumed normalised) to yaw, pitch, roll, with the same rules as
// d3DCMtoEuler. A null quaternion gives zeros.
void d3QtoEuler(const double q[4], Vec3& euler);

}  // namespace orvCore
