#include "importers/ParseTLE.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <vector>

#include "core/Tokenizer.h"
#include "importers/ConversionLog.h"

namespace ParseTLE {

namespace {

constexpr size_t kElementLineSize = 69;

// The next line that holds more than white space; false at the end.
bool nextLine(std::istream& in, std::string& line) {
  while (orvCore::getStrippedLine(in, line)) {
    if (line.find_first_not_of(orvCore::STR_WHITE_SPACE_CHARS) != std::string::npos) return true;
  }
  return false;
}

// Reads one element line of a set; `which` is "first" or "second". A line
// of the wrong kind (not beginning with its line number) is refused with
// the message of a missing line: the set can't be read.
bool readElementLine(std::istream& in, const char* which, char number, std::string& line) {
  if (!nextLine(in, line)) {
    ConversionLog::issue(std::string("Error processing ") + which + " line of TLE");
    return false;
  }
  if (line.size() != kElementLineSize) {
    ConversionLog::issue(std::string("Error processing TLE file, incorrect size (must == 69 chars) in ") + which +
                         " TLE line");
    return false;
  }
  if (line[0] != number || line[1] != ' ') {
    ConversionLog::issue(std::string("Error processing ") + which + " line of TLE");
    return false;
  }
  return true;
}

int formatError() {
  correctTLEFormat();
  return -1;
}

}  // namespace

int parseTLEStream(std::istream& in, TleMap& sets) {
  std::string line;
  while (nextLine(in, line)) {
    TwoLineElement set;
    if (line.size() >= kElementLineSize) {
      // No name line: this is the first element line.
      set.line1 = line;
      if (line.size() != kElementLineSize) {
        ConversionLog::issue("Error processing TLE file, incorrect size (must == 69 chars) in first TLE line");
        return formatError();
      }
      if (line[0] != '1' || line[1] != ' ') {
        ConversionLog::issue("Error processing first line of TLE");
        return formatError();
      }
    } else {
      std::vector<std::string> tokens;
      orvCore::stringTokenizer(tokens, line);
      if (tokens.empty()) {
        ConversionLog::issue("Error processing satellite name");
        return formatError();
      }
      for (const std::string& token : tokens) set.name += (set.name.empty() ? "" : " ") + token;
      if (!readElementLine(in, "first", '1', set.line1)) return formatError();
    }
    if (!readElementLine(in, "second", '2', set.line2)) return formatError();

    std::vector<std::string> tokens;
    orvCore::stringTokenizer(tokens, set.line1);
    const long number = tokens.size() > 1 ? std::strtol(tokens[1].c_str(), nullptr, 10) : 0;
    if (set.name.empty()) set.name = "OIN " + std::to_string(number);
    if (sets.count(number)) {
      ConversionLog::issue(
          "Warning during processing TLE file, two entries with the same ID - the second will be ignored.");
      continue;
    }
    sets.emplace(number, set);
  }
  return 0;
}

int parseTLEFile(const TLE2ASI::TleSettings& settings, TleMap& sets) {
  std::ifstream in(settings.inputFile);
  if (!in) {
    ConversionLog::issue("Cannot open input TLE file <" + settings.inputFile + ">");
    return -1;
  }
  return parseTLEStream(in, sets);
}

// The fixed lines stand one after another as users know them; blank lines
// set off only the column table.
const std::string& tleFormatHelp() {
  static const std::string help =
      "Example Format:  (NOTE: More than one satellite is allowed in the file)\n"
      "ISS (ZARYA)\n"
      "1 25544U 98067A   05207.31276620  .00009213  00000-0  73642-4 0  9958\n"
      "2 25544  51.6451  60.5367 0003083 157.4370 169.9096 15.71943135381834\n"
      "STS 114\n"
      "1 28775U 05026A   05208.61974727 -.00182074  22726-4 -38038-3 0   106\n"
      "2 28775  51.6445  53.9870 0010497 238.5195 227.0457 15.97827428   169\n"
      "Current Unclassified TLEs can be downloaded from:\n"
      "  the public satellite catalogue of the U.S. Space Force (space-track.org, free account)\n"
      "  or the CelesTrak element set collections (celestrak.org)\n"
      "A NORAD two-line element set consists of two 69-character lines of data which\n"
      "can be used together with NORAD's SGP4/SDP4 orbital model to determine the\n"
      "position and velocity of the associated satellite. The only valid characters in\n"
      "a two-line element set are the numbers 0-9, the capital letters A-Z, the period,\n"
      "the space, and the plus and minus signs; No other characters are valid.\n"
      "The TLE format accepted by ORVIDE is a three-line element set that includes the\n"
      "object name in the first line.  See format below:\n"
      "Line 0: AAAAAAAAAAAAAAAAAAAAAAAA\n"
      "Line 1: N NNNNNC NNNNNAAA NNNNN.NNNNNNNN +.NNNNNNNN +NNNNN-N +NNNNN-N N NNNNN\n"
      "Line 2: N NNNNN NNN.NNNN NNN.NNNN NNNNNNN NNN.NNNN NNN.NNNN NN.NNNNNNNNNNNNNN\n"
      "\n"
      "Field  Columns  Description\n"
      "0.1    01-24    Common name for the object found in the Satellite Catalog\n"
      "1.1    01       Line Number of Element Data\n"
      "1.2    03-07    Object Identification Number\n"
      "1.3    08       Classification\n"
      "1.4    10-11    International Designator (Last two digits of launch year)\n"
      "1.5    12-14    International Designator (Launch number of the year)\n"
      "1.6    15-17    International Designator (Piece of the launch)\n"
      "1.7    19-20    Epoch Year (Last two digits of year)\n"
      "1.8    21-32    Epoch (Day of the year and fractional portion of the day)\n"
      "1.9    34-43    First Time Derivative of the Mean Motion\n"
      "1.10   45-52    Second Time Derivative of Mean Motion (decimal point assumed)\n"
      "1.11   54-61    BSTAR drag term (decimal point assumed)\n"
      "1.12   63       Ephemeris type\n"
      "1.13   65-68    Element number\n"
      "1.14   69       Checksum (Modulo 10) (Letters, blanks, periods, plus signs = 0; minus signs = 1)\n"
      "2.1    01       Line Number of Element Data\n"
      "2.2    03-07    Object Identification Number\n"
      "2.3    09-16    Orbit Inclination [Degrees]\n"
      "2.4    18-25    Right Ascension of the Ascending Node [Degrees]\n"
      "2.5    27-33    Eccentricity (decimal point assumed)\n"
      "2.6    35-42    Argument of Perigee [Degrees]\n"
      "2.7    44-51    Mean Anomaly [Degrees]\n"
      "2.8    53-63    Mean Motion [Revs per day]\n"
      "2.9    64-68    Revolution number at epoch [Revs]\n"
      "2.10   69       Checksum (Modulo 10)\n"
      "\n"
      "Detailed format specification can be found at the following URLs:\n"
      "  https://celestrak.org/columns/v04n03/\n"
      "  https://www.space-track.org/documentation#/tle\n";
  return help;
}

void correctTLEFormat() { std::cout << tleFormatHelp() << std::flush; }

}  // namespace ParseTLE
