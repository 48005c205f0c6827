#include <algorithm>
#include <cmath>

#include "importers/sgp4/AIAASgp4.h"

namespace AIAA {

double gstime(double jdut1) {
  const double tut1 = (jdut1 - 2451545.0) / 36525.0;
  double temp = -6.2e-6 * tut1 * tut1 * tut1 + 0.093104 * tut1 * tut1 +
                (876600.0 * 3600 + 8640184.812866) * tut1 + 67310.54841;  // seconds
  // 360 degrees per 86400 seconds: 1/240 of a degree per second.
  temp = std::fmod(temp * DEG2RAD / 240.0, TWOPI);
  if (temp < 0.0) temp += TWOPI;
  return temp;
}

void jday(int year, int mon, int day, int hr, int minute, double sec, double& jd, double& jdFrac) {
  jd = 367.0 * year - std::floor((7 * (year + std::floor((mon + 9) / 12.0))) * 0.25) +
       std::floor(275 * mon / 9.0) + day + 1721013.5;
  jdFrac = (sec + minute * 60.0 + hr * 3600.0) / 86400.0;
  if (std::fabs(jdFrac) > 1.0) {
    const double dtt = std::floor(jdFrac);
    jd += dtt;
    jdFrac -= dtt;
  }
}

void days2mdhms(int year, double days, int& mon, int& day, int& hr, int& minute, double& sec) {
  // The epoch field of a damaged line can hold any number, "nan" included:
  // it is held to a span that every cast below can take. Such an epoch is
  // nonsense either way, but must not overflow an int.
  const double kDayBound = 1.0e6;
  days = std::isnan(days) ? 0.0 : std::min(std::max(days, -kDayBound), kDayBound);
  int lmonth[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const int dayofyr = static_cast<int>(std::floor(days));
  if (year % 4 == 0) lmonth[2] = 29;

  int i = 1;
  int inttemp = 0;
  while (dayofyr > inttemp + lmonth[i] && i < 12) {
    inttemp += lmonth[i];
    ++i;
  }
  mon = i;
  day = dayofyr - inttemp;

  double temp = (days - dayofyr) * 24.0;
  hr = static_cast<int>(std::floor(temp));
  temp = (temp - hr) * 60.0;
  minute = static_cast<int>(std::floor(temp));
  sec = (temp - minute) * 60.0;
}

void invjday(double jd, double jdfrac, int& year, int& mon, int& day, int& hr, int& minute, double& sec) {
  if (std::fabs(jdfrac) >= 1.0) {
    jd += std::floor(jdfrac);
    jdfrac -= std::floor(jdfrac);
  }
  // A fraction of a day inside jd moves to jdfrac.
  const double dt = jd - std::floor(jd) - 0.5;
  if (std::fabs(dt) > 0.00000001) {
    jd -= dt;
    jdfrac += dt;
  }

  const double temp = jd - 2415019.5;
  const double tu = temp / 365.25;
  year = 1900 + static_cast<int>(std::floor(tu));
  int leapyrs = static_cast<int>(std::floor((year - 1901) * 0.25));
  double days = std::floor(temp - ((year - 1900) * 365.0 + leapyrs));

  // The very start of a year belongs to the year before.
  if (days + jdfrac < 1.0) {
    year -= 1;
    leapyrs = static_cast<int>(std::floor((year - 1901) * 0.25));
    days = std::floor(temp - ((year - 1900) * 365.0 + leapyrs));
  }
  days2mdhms(year, days + jdfrac, mon, day, hr, minute, sec);
}

}  // namespace AIAA
