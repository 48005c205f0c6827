#pragma once
// A contact "CTC/" and its position reports "POS/" and "XPOS/".

#include <string>
#include <vector>

#include "importers/oth/OTHSet.h"

namespace OthLib {

// What POS and XPOS share: fifteen fields, of which the time, the position,
// the uncertainty ellipse, course, speed and height are read.
class OTHPositionReport : public OTHSet {
 public:
  enum Field : size_t {
    DATE_TIME_GROUP = 0,
    MONTH = 1,
    LATITUDE = 2,
    LONGITUDE = 3,
    MAJOR_AXIS_BEARING = 5,
    MAJOR_AXIS = 6,
    MINOR_AXIS = 7,
    COURSE = 8,
    SPEED = 9,
    HEIGHT = 10
  };

  // Latitude, longitude (radians) and altitude (metres); the results of getPositionLLA.
  int getPosition(double* lla) const;
  // Seconds since the start of `year`, which the report gives or which is the current year.
  virtual int getTime(double& seconds, int& year) const = 0;
  int getCourse(double& radians) const;
  int getSpeed(double& metresPerSecond) const;
  // Axes in metres, bearing of the major axis in degrees. 2: an axis field
  // is empty; 3: the major axis fails; 4: the minor axis fails; 5: the axes
  // differ and the bearing is missing or invalid. Equal axes (a circle)
  // have bearing 0.
  int getUncertaintyEllipse(double& majorMetres, double& minorMetres, double& bearingDegrees) const;

  virtual void setTime(double seconds, int referenceYear) = 0;
  void setPosition(double latitude, double longitude, double altitude, bool withSeconds = false);
  void setCourse(double radians);
  virtual void setSpeed(double metresPerSecond) = 0;
  void setUncertaintyEllipse(double majorMetres, double minorMetres, double bearingDegrees);

 protected:
  explicit OTHPositionReport(const char* name);
};

class OTHPosition : public OTHPositionReport {
 public:
  OTHPosition();
  // "DDHHMMZc" and "MMM", in the current year.
  int getTime(double& seconds, int& year) const override;
  void setTime(double seconds, int referenceYear) override;
  // "%0.1fK".
  void setSpeed(double metresPerSecond) override;
};

class OTHExpandedPosition : public OTHPositionReport {
 public:
  OTHExpandedPosition();
  // "DDHHMMSS.fZ" and "MMM" or "MMMYYYY": this report carries its own year.
  int getTime(double& seconds, int& year) const override;
  void setTime(double seconds, int referenceYear) override;
  // "%0.1fKTS".
  void setSpeed(double metresPerSecond) override;
};

// A contact (a track) with its reports.
class OTHContact : public OTHSet {
 public:
  // Of the nineteen fields these are read; the others are kept as text.
  enum Field : size_t { TRACK_NUMBER = 0, TRACK_NAME = 1, CLASS = 2, TYPE = 3, SCONUM = 7, FORCE_CODE = 10,
                        TRACK_TYPE = 12 };
  OTHContact();

  std::string getName() const { return field(TRACK_NAME); }
  std::string getType() const { return field(TYPE); }
  std::string getSconum() const { return field(SCONUM); }
  std::string getForceCode() const { return field(FORCE_CODE); }
  std::string getTrackType() const { return field(TRACK_TYPE); }

  std::vector<OTHPosition>& positions() { return positions_; }
  const std::vector<OTHPosition>& positions() const { return positions_; }
  std::vector<OTHExpandedPosition>& expandedPositions() { return expandedPositions_; }
  const std::vector<OTHExpandedPosition>& expandedPositions() const { return expandedPositions_; }

 private:
  std::vector<OTHPosition> positions_;
  std::vector<OTHExpandedPosition> expandedPositions_;
};

}  // namespace OthLib
