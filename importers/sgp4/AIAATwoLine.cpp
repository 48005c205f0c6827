#include <cmath>
#include <cstdio>

#include "importers/sgp4/AIAASgp4.h"

namespace AIAA {

void twoline2rv(char longstr1[130], char longstr2[130], char opsmode, int whichconst, double& startmfe,
                double& stopmfe, double& deltamin, ElsetRec& satrec) {
  satrec = ElsetRec();

  // Implied decimal points and zero fills, so that the fixed columns read
  // with sscanf.
  for (int j = 10; j <= 15; ++j)
    if (longstr1[j] == ' ') longstr1[j] = '_';
  if (longstr1[44] != ' ') longstr1[43] = longstr1[44];
  longstr1[44] = '.';
  if (longstr1[7] == ' ') longstr1[7] = 'U';
  if (longstr1[9] == ' ') longstr1[9] = '.';
  for (int j = 45; j <= 49; ++j)
    if (longstr1[j] == ' ') longstr1[j] = '0';
  if (longstr1[51] == ' ') longstr1[51] = '0';
  if (longstr1[53] != ' ') longstr1[52] = longstr1[53];
  longstr1[53] = '.';
  longstr2[25] = '.';
  for (int j = 26; j <= 32; ++j)
    if (longstr2[j] == ' ') longstr2[j] = '0';
  if (longstr1[62] == ' ') longstr1[62] = '0';
  if (longstr1[68] == ' ') longstr1[68] = '0';

  int cardnumb = 0, numb = 0, nexp = 0, ibexp = 0;
  std::sscanf(longstr1, "%2d %5ld %1c %10s %2d %12lf %11lf %7lf %2d %7lf %2d %2d %6ld ", &cardnumb,
              &satrec.satnum, &satrec.classification, satrec.intldesg, &satrec.epochyr, &satrec.epochdays,
              &satrec.ndot, &satrec.nddot, &nexp, &satrec.bstar, &ibexp, &numb, &satrec.elnum);

  // Mean motions below 10 revolutions a day leave column 53 blank and take
  // one character less.
  if (longstr2[52] == ' ')
    std::sscanf(longstr2, "%2d %5ld %9lf %9lf %8lf %9lf %9lf %10lf %6ld %lf %lf %lf \n", &cardnumb, &satrec.satnum,
                &satrec.inclo, &satrec.nodeo, &satrec.ecco, &satrec.argpo, &satrec.mo, &satrec.no_kozai,
                &satrec.revnum, &startmfe, &stopmfe, &deltamin);
  else
    std::sscanf(longstr2, "%2d %5ld %9lf %9lf %8lf %9lf %9lf %11lf %6ld %lf %lf %lf \n", &cardnumb, &satrec.satnum,
                &satrec.inclo, &satrec.nodeo, &satrec.ecco, &satrec.argpo, &satrec.mo, &satrec.no_kozai,
                &satrec.revnum, &startmfe, &stopmfe, &deltamin);

  satrec.no_kozai /= XPDOTP;  // rad/min
  satrec.nddot *= std::pow(10.0, nexp);
  satrec.bstar *= std::pow(10.0, ibexp);
  satrec.ndot /= XPDOTP * 1440.0;
  satrec.nddot /= XPDOTP * 1440.0 * 1440.0;

  satrec.inclo *= DEG2RAD;
  satrec.nodeo *= DEG2RAD;
  satrec.argpo *= DEG2RAD;
  satrec.mo *= DEG2RAD;

  // Two-digit years: 1957 to 2056.
  const int year = satrec.epochyr < 57 ? satrec.epochyr + 2000 : satrec.epochyr + 1900;
  int mon, day, hr, minute;
  double sec;
  days2mdhms(year, satrec.epochdays, mon, day, hr, minute, sec);
  jday(year, mon, day, hr, minute, sec, satrec.jdsatepoch, satrec.jdsatepochF);

  sgp4init(whichconst, opsmode, satrec.satnum, (satrec.jdsatepoch + satrec.jdsatepochF) - 2433281.5, satrec.bstar,
           satrec.ndot, satrec.nddot, satrec.ecco, satrec.argpo, satrec.inclo, satrec.mo, satrec.no_kozai,
           satrec.nodeo, satrec);
}

}  // namespace AIAA
