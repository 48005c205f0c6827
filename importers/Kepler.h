#pragma once
// Kepler: a ballistic state carried along a two-body orbit about a rotating
// earth, in feet and seconds. The state is held in the inertial frame of
// UTILS::ecf2eci; positions come out as latitude, longitude and altitude.

namespace KEPLER2ASI {

class Kepler {
 public:
  static constexpr double MU = 1.40764438125e16;            // ft^3/s^2
  static constexpr double SQRT_MU = 118644189.96520647;
  static constexpr double TWO_SQRT_MU = 237288379.93041295;
  static constexpr double E2 = 0.006694377124708455;
  static constexpr double ONE_MINUS_E2 = 0.9933056228752916;
  static constexpr double ONE_MINUS_E2_SQUARED = 0.9866560604356709;
  static constexpr double EVENT_K1 = 437882673072703.75;    // equatorial radius squared, ft^2
  static constexpr double EVENT_K2 = 41851292.6;            // twice the equatorial radius, ft
  static constexpr double FEET_TO_METRES = 0.30479999;

  // Earth-fixed state (X, Y, Z, VX, VY, VZ; ft, ft/s) at `time`; the
  // reference latitude (degrees) sets the altitude-event constants.
  void SetStateVec(double time, const double* state, double latitudeReference);
  // Propagates the state to `time`; with `flag` set the orbit's event times
  // are worked out too. Non-zero on success.
  int TwoBody(double time, int flag);
  // The constants of the geocentric radius of a height at a geodetic
  // latitude (degrees): r^2 = k1 + k2 h + h^2.
  void EvtConst(double latitude);
  // Seconds from the state's time to an event of the current orbit: with
  // mode 4 the crossing of the event height (the nearer of the two, a
  // period later if it has passed), otherwise the apogee. `radiusResult`
  // receives the event's geocentric radius (ft).
  double TrajectoryTime(double* radiusResult, int mode);
  // Real roots of x^3 + a x^2 + b x + c = 0, the count answered.
  static int Cubic(double a, double b, double c, double roots[3]);
  // The propagated state as geodetic position and local velocity.
  void ConvertToLLA(double time);

  void setEventHeight(double feet) { eventHeight_ = feet; }

  int error = 0;
  double semiLatusRectum = 0.0, eccentricity = 0.0, meanMotion = 0.0, semiMajorAxis = 0.0;
  double eventK1 = EVENT_K1, eventK2 = EVENT_K2;
  double epochTime = 0.0;
  double stateEci[6] = {0, 0, 0, 0, 0, 0};    // at epochTime
  double currentEci[6] = {0, 0, 0, 0, 0, 0};  // after TwoBody
  double apogeeTime = 0.0, eventTime = 0.0;   // from epochTime, after TwoBody with its flag

  // Outputs of ConvertToLLA: radians, metres, metres per second.
  double latitude = 0.0, longitude = 0.0, altitude = 0.0, yaw = 0.0, pitch = 0.0;
  double velEast = 0.0, velNorth = 0.0, velUp = 0.0;

 private:
  // Elements of the state at epochTime.
  bool elements_();
  double eventHeight_ = 0.0;
  bool conicWarned_ = false;
};

}  // namespace KEPLER2ASI
