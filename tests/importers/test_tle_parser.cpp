// Reading three-line element files: what is kept, in which order, and what
// the user is told about a file that can't be read.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "importers/ParseTLE.h"
#include "importers/Propagator.h"
#include "importers/sgp4/AIAASgp4.h"

namespace {

using ::testing::HasSubstr;
using ::testing::internal::CaptureStderr;
using ::testing::internal::CaptureStdout;
using ::testing::internal::GetCapturedStderr;
using ::testing::internal::GetCapturedStdout;

const char* const kIss1 = "1 25544U 98067A   05207.31276620  .00009213  00000-0  73642-4 0  9958";
const char* const kIss2 = "2 25544  51.6451  60.5367 0003083 157.4370 169.9096 15.71943135381834";
const char* const kSts1 = "1 28775U 05026A   05208.61974727 -.00182074  22726-4 -38038-3 0   106";
const char* const kSts2 = "2 28775  51.6445  53.9870 0010497 238.5195 227.0457 15.97827428   169";

struct Parsed {
  int result;
  ParseTLE::TleMap sets;
  std::string errors;
  std::string help;
};

Parsed parse(const std::string& text) {
  Parsed p;
  std::istringstream in(text);
  CaptureStderr();
  CaptureStdout();
  p.result = ParseTLE::parseTLEStream(in, p.sets);
  p.help = GetCapturedStdout();
  p.errors = GetCapturedStderr();
  return p;
}

std::string lines(std::initializer_list<std::string> parts) {
  std::string text;
  for (const std::string& part : parts) text += part + "\n";
  return text;
}

TEST(TleParser, SetsComeOutByObjectNumberWithBlankLinesPassedOver) {
  const Parsed p = parse(lines({"STS 114", kSts1, kSts2, "", "   ", "ISS   (ZARYA)  ", kIss1, kIss2}));
  ASSERT_EQ(p.result, 0);
  ASSERT_EQ(p.sets.size(), 2u);
  EXPECT_EQ(p.sets.begin()->first, 25544);
  EXPECT_EQ(p.sets.begin()->second.name, "ISS (ZARYA)");  // tokens joined back
  EXPECT_EQ(p.sets.rbegin()->second.name, "STS 114");
  EXPECT_EQ(p.sets.rbegin()->second.line2, kSts2);
  EXPECT_TRUE(p.errors.empty());
}

TEST(TleParser, ASecondSetOfTheSameNumberIsLeftOutWithAWarning) {
  const Parsed p = parse(lines({"FIRST", kIss1, kIss2, "SECOND", kIss1, kIss2}));
  EXPECT_EQ(p.result, 0);
  ASSERT_EQ(p.sets.size(), 1u);
  EXPECT_EQ(p.sets.at(25544).name, "FIRST");
  EXPECT_THAT(p.errors, HasSubstr("Warning during processing TLE file, two entries with the same ID - the second "
                                  "will be ignored."));
}

TEST(TleParser, ASetWithoutItsNameLineIsNamedByItsNumber) {
  const Parsed p = parse(lines({kIss1, kIss2, "STS 114", kSts1, kSts2}));
  ASSERT_EQ(p.result, 0);
  EXPECT_EQ(p.sets.at(25544).name, "OIN 25544");
  EXPECT_EQ(p.sets.at(28775).name, "STS 114");
}

TEST(TleParser, FormatErrorsStopWithTheirMessageAndTheHelp) {
  const std::string shortLine = std::string(kIss1).substr(0, 68);
  struct Case {
    std::string text, message;
  } cases[] = {
      {lines({"ISS", shortLine, kIss2}),
       "Error processing TLE file, incorrect size (must == 69 chars) in first TLE line"},
      {lines({"ISS", kIss1, std::string(kIss2) + "9"}),
       "Error processing TLE file, incorrect size (must == 69 chars) in second TLE line"},
      {lines({"ISS"}), "Error processing first line of TLE"},
      {lines({"ISS", kIss1}), "Error processing second line of TLE"},
      {lines({"ISS", kIss2, kIss1}), "Error processing first line of TLE"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.message);
    const Parsed p = parse(c.text);
    EXPECT_NE(p.result, 0);
    EXPECT_THAT(p.errors, HasSubstr(c.message));
    EXPECT_THAT(p.help, HasSubstr("Example Format:  (NOTE: More than one satellite is allowed in the file)"));
    EXPECT_THAT(p.help, HasSubstr("Line 2: N NNNNN NNN.NNNN NNN.NNNN NNNNNNN NNN.NNNN NNN.NNNN NN.NNNNNNNNNNNNNN"));
    EXPECT_THAT(p.help, HasSubstr("2.10   69       Checksum (Modulo 10)"));
  }
  // The fixed lines of the help follow one another as they stand, with the
  // two catalogue lines between "downloaded from:" and the NORAD paragraph.
  const std::string help = ParseTLE::tleFormatHelp();
  EXPECT_THAT(help, HasSubstr("15.97827428   169\nCurrent Unclassified TLEs can be downloaded from:\n"));
  const size_t from = help.find("downloaded from:\n") + 17;
  const size_t norad = help.find("A NORAD two-line element set consists");
  ASSERT_NE(norad, std::string::npos);
  EXPECT_EQ(std::count(help.begin() + from, help.begin() + norad, '\n'), 2) << help.substr(from, norad - from);
  EXPECT_THAT(help, HasSubstr("No other characters are valid.\nThe TLE format accepted by ORVIDE is"));
  EXPECT_THAT(help, HasSubstr("See format below:\nLine 0: AAAAAAAAAAAAAAAAAAAAAAAA\nLine 1: "));
}

TEST(TleParser, AFileThatCantBeOpenedIsNamed) {
  TLE2ASI::TleSettings settings;
  settings.inputFile = "/nonexistent/sats.tle";
  ParseTLE::TleMap sets;
  CaptureStderr();
  CaptureStdout();
  EXPECT_NE(ParseTLE::parseTLEFile(settings, sets), 0);
  EXPECT_THAT(GetCapturedStderr(), HasSubstr("Cannot open input TLE file </nonexistent/sats.tle>"));
  EXPECT_EQ(GetCapturedStdout(), "");
}

TEST(TlePropagator, ColumnsAndTwoDigitYears) {
  PropagatorAIAA iss("ISS", kIss1, kIss2);
  EXPECT_EQ(iss.idNumber(), 25544);
  EXPECT_EQ(iss.launchYear(), 1998);
  EXPECT_EQ(iss.epochYear(), 2005);
  EXPECT_DOUBLE_EQ(iss.epochDay(), 207.31276620);
  EXPECT_DOUBLE_EQ(iss.epochTime(), 206.31276620 * 86400.0);
  EXPECT_DOUBLE_EQ(iss.estimatedError(2 * 86400.0), 2.0);

  std::string y57 = kIss1, y58 = kIss1;
  y57.replace(9, 2, "57").replace(18, 2, "57");
  y58.replace(9, 2, "58").replace(18, 2, "58");
  PropagatorAIAA a("A", y57, kIss2), b("B", y58, kIss2);
  EXPECT_EQ(a.launchYear(), 2057);
  EXPECT_EQ(a.epochYear(), 2057);
  EXPECT_EQ(b.launchYear(), 1958);
  EXPECT_EQ(b.epochYear(), 1958);
}

}  // namespace

namespace {

// An epoch field that is no day of a year (a damaged line, "nan") still
// gives a date whose parts are within their ranges.
TEST(TlePropagator, AnEpochDayBeyondAnyYearGivesADateNotAnOverflow) {
  for (double days : {176756157475.0, -3.0e12, std::nan("")}) {
    int mon = 0, day = 0, hr = -1, minute = -1;
    double sec = -1.0;
    AIAA::days2mdhms(2006, days, mon, day, hr, minute, sec);
    EXPECT_TRUE(mon >= 1 && mon <= 12) << days << ": " << mon;
    EXPECT_TRUE(hr >= 0 && hr < 24) << days << ": " << hr;
    EXPECT_TRUE(minute >= 0 && minute < 60) << days << ": " << minute;
    EXPECT_TRUE(sec >= 0.0 && sec < 60.0) << days << ": " << sec;
  }
  std::string damaged = kIss1;
  damaged.replace(20, 12, "176756157475");
  PropagatorAIAA satellite("X", damaged, kIss2);
  EXPECT_DOUBLE_EQ(satellite.epochDay(), 176756157475.0);
}

}  // namespace
