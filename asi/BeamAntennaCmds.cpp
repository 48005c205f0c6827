#include "asi/BeamAntennaCmds.h"

#include "core/StringUtils.h"
#include "core/ValidNumber.h"
#include "hostapi/PIORVIDE.h"

namespace AsiInterface {

namespace {

struct Word {
  const char* word;
  int32_t value;
};

// Compared ignoring case; "cruiseanttable" and "anttable" are older names.
const Word PATTERN_KINDS[] = {
    {"MONOPULSE", PIORVIDE::PI_ANTENNA_MONOPULSE},   {"BILINEAR", PIORVIDE::PI_ANTENNA_BILINEAR},
    {"cruiseanttable", PIORVIDE::PI_ANTENNA_CRUISE}, {"CRUISE", PIORVIDE::PI_ANTENNA_CRUISE},
    {"anttable", PIORVIDE::PI_ANTENNA_TABLE},        {"RELATIVE", PIORVIDE::PI_ANTENNA_RELATIVE},
    {"NSMA", PIORVIDE::PI_ANTENNA_NSMA},             {"EZNEC", PIORVIDE::PI_ANTENNA_EZNEC},
    {"XFDTD", PIORVIDE::PI_ANTENNA_XFDTD},           {"TABLE", PIORVIDE::PI_ANTENNA_TABLE},
};

const Word ALGORITHMS[] = {
    {"PEDESTAL", PIORVIDE::PI_ALGORITHM_PEDESTAL}, {"GAUSS", PIORVIDE::PI_ALGORITHM_GAUSS},
    {"CSCSQ", PIORVIDE::PI_ALGORITHM_CSCSQ},       {"SINXX", PIORVIDE::PI_ALGORITHM_SINXX},
    {"OMNI", PIORVIDE::PI_ALGORITHM_OMNI},
};

// Compared with the upper-cased word.
const Word POLARITIES[] = {
    {"HORIZONTAL", PIORVIDE::PI_POLARITY_HORIZONTAL}, {"VERTICAL", PIORVIDE::PI_POLARITY_VERTICAL},
    {"CIRCULAR", PIORVIDE::PI_POLARITY_CIRCULAR},     {"HORZVERT", PIORVIDE::PI_POLARITY_HORZVERT},
    {"VERTHORZ", PIORVIDE::PI_POLARITY_VERTHORZ},     {"LEFTCIRC", PIORVIDE::PI_POLARITY_LEFTCIRC},
    {"RIGHTCIRC", PIORVIDE::PI_POLARITY_RIGHTCIRC},   {"LINEAR", PIORVIDE::PI_POLARITY_LINEAR},
};

template <size_t N>
bool findIgnoringCase(const Word (&words)[N], const std::string& text, int32_t& value) {
  for (const Word& w : words) {
    if (orvCore::caseCompare(text, w.word) == 0) {
      value = w.value;
      return true;
    }
  }
  return false;
}

}  // namespace

void AntennaPattern::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  if (!findIgnoringCase(PATTERN_KINDS, tokens[2], kind_)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Unknown antenna pattern");
    return;
  }
  file_ = tokens[3];
}

void AntennaAlgorithm::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  if (!findIgnoringCase(ALGORITHMS, tokens[2], algorithm_))
    setMessage(PICommon::PI_NOTIFY_WARN, "Unknown antenna algorithm");
}

void AntennaPolarity::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  if (!findIgnoringCase(POLARITIES, tokens[2], polarity_)) polarity_ = PIORVIDE::PI_POLARITY_UNKNOWN;
}

void AntennaValue::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  if (!orvCore::isValidNumber(tokens[2], value_, true))
    setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting 1 floating point argument");
}

void AntennaValue::apply_(BeamEntity& beam) const {
  switch (field_) {
    case FREQUENCY:
      beam.setFrequency(value_);
      break;
    case GAIN:
      beam.setGain(value_);
      break;
    case PEAK_POWER:
      beam.setPeakPower(value_);
      break;
  }
}

}  // namespace AsiInterface
