#include "importers/KeplerFile.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>
#include <strings.h>

#include <cmath>
#include <cstdio>
#include <istream>
#include <limits>
#include <memory>

#include "core/CoordinateConverter.h"
#include "core/Tokenizer.h"
#include "core/ValidNumber.h"
#include "importers/ConversionLog.h"
#include "importers/Kepler.h"

namespace KEPLER2ASI {

namespace {

constexpr double METRES_TO_FEET = 3.28084;
constexpr double MAX_POINTS = 1.0e8;

// A compiled pattern, matched repeatedly over a line.
class Pattern {
 public:
  explicit Pattern(const char* text) {
    int error = 0;
    PCRE2_SIZE offset = 0;
    code_ = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(text), PCRE2_ZERO_TERMINATED, 0, &error, &offset, nullptr);
    if (code_) match_ = pcre2_match_data_create_from_pattern(code_, nullptr);
  }
  ~Pattern() {
    pcre2_match_data_free(match_);
    pcre2_code_free(code_);
  }
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;

  // Start and end of the first match at or after `from`; false if none.
  bool find(const std::string& text, size_t from, size_t& begin, size_t& end) const {
    if (!code_ || !match_ || from > text.size()) return false;
    if (pcre2_match(code_, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), from, 0, match_, nullptr) < 0)
      return false;
    const PCRE2_SIZE* ov = pcre2_get_ovector_pointer(match_);
    begin = ov[0];
    end = ov[1];
    return true;
  }

 private:
  pcre2_code* code_ = nullptr;
  pcre2_match_data* match_ = nullptr;
};

// Everything from "#" or "//" on is a comment.
std::string cutComment(const std::string& line) {
  static const Pattern comment("(#)|(//)");
  size_t begin, end;
  return comment.find(line, 0, begin, end) ? line.substr(0, begin) : line;
}

// Tokens are blank-separated words or double-quoted texts; false when one
// is empty once its quotes are off.
bool splitTokens(const std::string& line, std::vector<std::string>& tokens) {
  static const Pattern token("(((\")+)[^\"]*\\2)|([^\\s]+)");
  tokens.clear();
  size_t from = 0, begin, end;
  while (token.find(line, from, begin, end) && end > begin) {
    tokens.push_back(orvCore::removeQuotes(line.substr(begin, end - begin)));
    if (tokens.back().empty() || tokens.back().find('"') == 0) return false;
    from = end;
  }
  return true;
}

bool keyword(const std::string& token, const char* word, size_t letters) {
  return token.size() >= letters && strncasecmp(token.c_str(), word, letters) == 0;
}

class Reader {
 public:
  explicit Reader(KeplerInput& input) : in_(input) {}

  int line(const std::vector<std::string>& t, int number) {
    line_ = number;
    tokens_ = &t;
    const std::string& k = t[0];
    if (strcasecmp(k.c_str(), "stateveclla") == 0) return stateLla_();
    if (keyword(k, "statevec", 8)) return stateEcef_();
    if (keyword(k, "ind", 3)) {
      double mode;
      if (!value_(1, mode)) return -1;
      if (mode != std::floor(mode) || mode < 1 || mode > 4) return fail_("Invalid propagation mode detected.  Line#: ");
      in_.mode = static_cast<int>(mode);
      return 0;
    }
    if (keyword(k, "tzer", 4)) {
      tzeroLine_ = number;
      return value_(1, in_.tzero) ? 0 : -1;
    }
    if (keyword(k, "tend", 4)) {
      tendLine_ = number;
      if (!value_(1, in_.tend)) return -1;
      return in_.tend > 0.0 ? 0 : fail_("Invalid end time detected, value <= 0.  Line#: ");
    }
    if (keyword(k, "dt", 2)) {
      dtLine_ = number;
      return value_(1, in_.dt) ? 0 : -1;
    }
    if (keyword(k, "hgd", 3)) {
      double feet;
      if (!value_(1, feet)) return -1;
      in_.eventHeight = feet * Kepler::FEET_TO_METRES;
      return 0;
    }
    if (keyword(k, "otfile", 6)) {
      if (t.size() < 2) return fail_("Missing value detected.  Line#: ");
      in_.outputFile = t[1];
      return 0;
    }
    if (keyword(k, "latref", 6)) return value_(1, in_.latRef) ? 0 : -1;
    if (keyword(k, "lonref", 6)) return value_(1, in_.lonRef) ? 0 : -1;
    // An unknown keyword loses nothing the run needs: it is told and passed over.
    ConversionLog::issue("Unknown keyword " + k + " ignored.  Line#: " + std::to_string(number));
    return 0;
  }

  // The checks that need the whole file; `last` is its last line.
  int finish(int last) {
    line_ = last;
    if (in_.mode < 1 || in_.mode > 4) return fail_("Invalid propagation mode detected.  Line#: ");
    if (tendLine_) line_ = tendLine_;
    if (!(in_.tend > 0.0)) return fail_("Invalid end time detected, value <= 0.  Line#: ");
    line_ = tzeroLine_ ? tzeroLine_ : last;
    if (in_.tzero < 0.0 || in_.tzero >= in_.tend)
      return fail_("Invalid tzero time detected, value < 0 or >= tend.  Line#: ");
    // A step of zero or less would never reach tend.
    line_ = dtLine_ ? dtLine_ : last;
    if (!(in_.dt > 0.0)) return fail_("Invalid time step detected, value <= 0.  Line#: ");
    line_ = last;
    if (!in_.haveState) return fail_("No state vector (statevec or stateveclla) detected.  Line#: ");
    return 0;
  }

  int fail_(const std::string& text) {
    ConversionLog::issue(text + std::to_string(line_));
    return -1;
  }

 private:
  bool value_(size_t index, double& out) {
    if (index >= tokens_->size()) {
      fail_("Missing value detected.  Line#: ");
      return false;
    }
    if (!orvCore::isValidNumber((*tokens_)[index], out, true) || !std::isfinite(out)) {
      fail_("Invalid value " + (*tokens_)[index] + " detected.  Line#: ");
      return false;
    }
    return true;
  }

  bool values7_(double v[7]) {
    for (size_t i = 0; i < 7; ++i)
      if (!value_(i + 1, v[i])) return false;
    return true;
  }

  int stateEcef_() {
    double v[7];
    if (!values7_(v)) return -1;
    in_.stateTime = v[0];
    for (int i = 0; i < 6; ++i) in_.state[i] = v[i + 1];
    in_.haveState = true;
    return 0;
  }

  // Latitude and longitude in degrees, altitude in metres and the east,
  // north, up velocity in metres per second, turned into the Earth-fixed
  // vector in feet.
  int stateLla_() {
    double v[7];
    if (!values7_(v)) return -1;
    orvCore::CoordinateConverter converter;
    converter.setReferenceOrigin(0.0, 0.0, 0.0);
    orvCore::Coordinate lla(orvCore::LLA, orvCore::Vec3(v[1] * M_PI / 180.0, v[2] * M_PI / 180.0, v[3]),
                            orvCore::Vec3(), orvCore::Vec3(v[4], v[5], v[6]));
    orvCore::Coordinate ecef;
    if (converter.convert(lla, ecef, orvCore::ECEF) != 0) return fail_("Invalid value detected.  Line#: ");
    in_.stateTime = v[0];
    for (int i = 0; i < 3; ++i) {
      in_.state[i] = ecef.position()[i] * METRES_TO_FEET;
      in_.state[i + 3] = ecef.velocity()[i] * METRES_TO_FEET;
    }
    in_.haveState = true;
    return 0;
  }

  KeplerInput& in_;
  const std::vector<std::string>* tokens_ = nullptr;
  int line_ = 0;
  int tzeroLine_ = 0, tendLine_ = 0, dtLine_ = 0;
};

}  // namespace

int readKeplerFile(std::istream& in, KeplerInput& input) {
  Reader reader(input);
  std::string text;
  std::vector<std::string> tokens;
  int number = 0;
  while (orvCore::getStrippedLine(in, text)) {
    ++number;
    if (!splitTokens(cutComment(text), tokens)) {
      ConversionLog::issue("Illegal empty string or empty quote detected.  Line#: " + std::to_string(number));
      return -1;
    }
    if (tokens.empty()) continue;
    if (reader.line(tokens, number) != 0) return -1;
  }
  return reader.finish(number);
}

int computeTrajectory(const KeplerInput& input, double timeOffset, std::vector<KeplerPoint>& points) {
  Kepler kepler;
  kepler.setEventHeight(input.eventHeight / Kepler::FEET_TO_METRES);
  kepler.SetStateVec(input.stateTime, input.state, input.latRef);
  const double count = std::floor((input.tend - input.tzero) / input.dt + 0.5);
  // A hundred million lines of text would fill the disk long before the
  // load could show them: such a run is refused rather than started.
  if (count >= MAX_POINTS) {
    char text[160];
    std::snprintf(text, sizeof text, "Too many points requested: (tend - tzero) / dt gives %.6g, more than %.6g",
                  count, MAX_POINTS);
    ConversionLog::issue(text);
    return -1;
  }
  const long n = count > 0.0 ? static_cast<long>(count) : 0;

  bool beforeFirst = true;
  double previousAltitude = -std::numeric_limits<double>::infinity();
  for (long i = 0; i < n; ++i) {
    const double t = i * input.dt;
    const double runTime = input.tzero + t;
    if (!kepler.TwoBody(runTime, 1)) {
      ConversionLog::issue("Failure to compute Time for time = " + std::to_string(t));
      return -1;
    }
    kepler.ConvertToLLA(runTime);
    const double h = kepler.altitude;
    const bool descending = previousAltitude > h;
    previousAltitude = h;
    if (descending && h < 0.0) break;
    bool skip = false;
    switch (input.mode) {
      case 2:
        skip = descending && beforeFirst && h > input.eventHeight;
        break;
      case 3:
        skip = beforeFirst && h < input.eventHeight;
        break;
      case 4:
        skip = descending && beforeFirst;
        break;
      default:
        break;
    }
    if (skip) continue;
    beforeFirst = false;
    points.push_back({timeOffset + runTime, kepler.latitude, kepler.longitude, h, kepler.yaw, kepler.pitch,
                      kepler.velEast, kepler.velNorth, kepler.velUp});
  }
  return 0;
}

}  // namespace KEPLER2ASI
