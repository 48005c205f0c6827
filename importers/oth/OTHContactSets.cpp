#include "importers/oth/OTHContactSets.h"

#include <cmath>

#include "importers/oth/OthFields.h"

namespace OthLib {

OTHPositionReport::OTHPositionReport(const char* name) : OTHSet(name, 15) {}

int OTHPositionReport::getPosition(double* lla) const {
  return getPositionLLA(lla, field(LATITUDE), field(LONGITUDE), field(HEIGHT));
}

int OTHPositionReport::getCourse(double& radians) const { return OthLib::getCourse(field(COURSE), radians); }

int OTHPositionReport::getSpeed(double& metresPerSecond) const {
  return OthLib::getSpeed(field(SPEED), metresPerSecond);
}

int OTHPositionReport::getUncertaintyEllipse(double& majorMetres, double& minorMetres,
                                             double& bearingDegrees) const {
  const std::string major = field(MAJOR_AXIS);
  const std::string minor = field(MINOR_AXIS);
  if (major.empty() || minor.empty()) return 2;
  bool checked = false;
  const double majorValue = getAxisM(major, checked);
  if (majorValue < 0.0) return 3;
  const double minorValue = getAxisM(minor, checked);
  if (minorValue < 0.0) return 4;
  double bearing = 0.0;
  if (std::fabs(majorValue - minorValue) >= 0.0001) {
    bearing = getMajorAxisBearing(field(MAJOR_AXIS_BEARING));
    if (bearing < 0.0) return 5;
  }
  majorMetres = majorValue;
  minorMetres = minorValue;
  bearingDegrees = bearing;
  return 0;
}

void OTHPositionReport::setPosition(double latitude, double longitude, double altitude, bool withSeconds) {
  setField(LATITUDE, formatLatitude(latitude, withSeconds));
  setField(LONGITUDE, formatLongitude(longitude, withSeconds));
  setField(HEIGHT, formatHeight(altitude));
}

void OTHPositionReport::setCourse(double radians) { setField(COURSE, formatCourse(radians)); }

void OTHPositionReport::setUncertaintyEllipse(double majorMetres, double minorMetres, double bearingDegrees) {
  setField(MAJOR_AXIS_BEARING, formatBearing(bearingDegrees));
  setField(MAJOR_AXIS, formatAxis(majorMetres));
  setField(MINOR_AXIS, formatAxis(minorMetres));
}

OTHPosition::OTHPosition() : OTHPositionReport("POS") {}

int OTHPosition::getTime(double& seconds, int& year) const {
  return OthLib::getTime(field(DATE_TIME_GROUP), field(MONTH), seconds, year);
}

void OTHPosition::setTime(double seconds, int referenceYear) {
  std::string group, month;
  setDateTimeGroup(seconds, referenceYear, group, month);
  setField(DATE_TIME_GROUP, group);
  setField(MONTH, month);
}

void OTHPosition::setSpeed(double metresPerSecond) { setField(SPEED, formatSpeed(metresPerSecond, "K")); }

OTHExpandedPosition::OTHExpandedPosition() : OTHPositionReport("XPOS") {}

int OTHExpandedPosition::getTime(double& seconds, int& year) const {
  return getExpandedTime(field(DATE_TIME_GROUP), field(MONTH), seconds, year);
}

void OTHExpandedPosition::setTime(double seconds, int referenceYear) {
  std::string group, month;
  setExpandedDateTimeGroup(seconds, referenceYear, group, month);
  setField(DATE_TIME_GROUP, group);
  setField(MONTH, month);
}

void OTHExpandedPosition::setSpeed(double metresPerSecond) {
  setField(SPEED, formatSpeed(metresPerSecond, "KTS"));
}

OTHContact::OTHContact() : OTHSet("CTC", 19) {}

}  // namespace OthLib
