#pragma once
// Propagator: one satellite of a three-line element set, asked for its
// geodetic state at a time from its epoch. PropagatorAIAA does so with the
// SGP4 model of the public AIAA code and the WGS-84 constants.

#include <map>
#include <string>

#include "importers/sgp4/AIAASgp4.h"

class Propagator {
 public:
  Propagator(const std::string& name, const std::string& line1, const std::string& line2);
  virtual ~Propagator();

  // Latitude, longitude (radians), altitude (m); yaw, pitch, roll (radians);
  // east, north, up velocity (m/s) at `secondsFromEpoch`. Answers 0, or the
  // model's error code after reporting it; the outputs are then unchanged.
  virtual int propagate(double secondsFromEpoch, double* lla, double* orientation, double* velocity) = 0;
  // Greenwich sidereal angle at the epoch, radians.
  virtual double epochGmst() const = 0;

  const std::string& name() const { return name_; }
  const std::string& line1() const { return line1_; }
  const std::string& line2() const { return line2_; }

  // First line, columns 3 to 7.
  int idNumber() const;
  // Columns 10 to 11 and 19 to 20 as full years: below 58 in the 2000s.
  int launchYear() const;
  int epochYear() const;
  // Columns 21 to 32: day of the year, 1.0 at the start of 1 January.
  double epochDay() const;
  // Seconds of the epoch year at the epoch.
  double epochTime() const;
  // One kilometre of error for each day away from the epoch.
  double estimatedError(double secondsFromEpoch) const;

  static int fullYear(int twoDigitYear) { return twoDigitYear < 58 ? twoDigitYear + 2000 : twoDigitYear + 1900; }

 protected:
  // Columns counted from 1, inclusive. Bad bounds give 0 and a message.
  double getDouble_(int first, int last, const std::string& line) const;
  int getInt_(int first, int last, const std::string& line) const;
  // Earth-fixed position (m) and velocity (m/s) to the outputs of propagate.
  static void toGeodetic_(const double ecefPos[3], const double ecefVel[3], double* lla, double* orientation,
                          double* velocity);

 private:
  std::string name_;
  std::string line1_;
  std::string line2_;
};

class PropagatorAIAA : public Propagator {
 public:
  // The gravity model is an option of AIAA::getgravconst; the product uses WGS-84.
  PropagatorAIAA(const std::string& name, const std::string& line1, const std::string& line2,
                 int gravity = AIAA::wgs84);
  ~PropagatorAIAA() override;

  int propagate(double secondsFromEpoch, double* lla, double* orientation, double* velocity) override;
  double epochGmst() const override;

  // Julian date of the epoch (whole and fraction) as the model reads it.
  double epochJulianDate() const { return rec_.jdsatepoch + rec_.jdsatepochF; }
  // The text of a model error code; "" for one not in the table.
  static std::string errorText(int code);

 private:
  static const std::map<int, std::string>& errorTexts_();
  // The lines are read once; each call propagates this record.
  AIAA::ElsetRec rec_;
};
