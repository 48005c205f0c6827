#include "asi/GateDataCmds.h"

#include "core/ValidNumber.h"

namespace AsiInterface {

bool GateDataBase::parseDirection_(const std::vector<std::string>& tokens, size_t first, const char* azimuthText,
                                   const char* elevationText) {
  const bool degrees = provider_->isDegrees();
  if (radianConvert_(degrees, ANGLEFIX_0_2PI, tokens[first], point_.azimuth) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, azimuthText);
    return false;
  }
  if (radianConvert_(degrees, ANGLEFIX_PLUS_MINUS_PI, tokens[first + 1], point_.elevation) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, elevationText);
    return false;
  }
  return true;
}

bool GateDataBase::parseSpan_(const std::string& text, double& value, const char* invalidText) {
  if (!orvCore::isValidNumber(text, value, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, invalidText);
    return false;
  }
  if (value <= 0.0) {
    value = -1.0;
    return true;
  }
  if (radianConvert_(provider_->isDegrees(), ANGLEFIX_0_2PI_INCLUSIVE, text, value) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, invalidText);
    return false;
  }
  return true;
}

bool GateDataBase::parseExtent_(const std::vector<std::string>& tokens, size_t first, const ColumnTexts& texts) {
  if (!parseSpan_(tokens[first], point_.width, "Invalid width")) return false;
  if (!parseSpan_(tokens[first + 1], point_.height, "Invalid height")) return false;
  if (!orvCore::isValidNumber(tokens[first + 2], point_.minRange, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, texts.minimum);
    return false;
  }
  if (!orvCore::isValidNumber(tokens[first + 3], point_.maxRange, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, texts.maximum);
    return false;
  }
  const size_t centroidColumn = first + 4;
  if (tokens.size() > centroidColumn) {
    if (!orvCore::isValidNumber(tokens[centroidColumn], point_.centroid, true)) {
      setMessage(PICommon::PI_NOTIFY_WARN, texts.centroid);
      return false;
    }
  } else {
    point_.centroid = point_.minRange - 1.0;
  }
  // Outside the gate, and so also when absent: the middle of the gate.
  if (point_.centroid < point_.minRange || point_.centroid > point_.maxRange)
    point_.centroid = point_.minRange + (point_.maxRange - point_.minRange) / 2.0;
  return true;
}

void GateData::executeStage1(const std::vector<std::string>& tokens) {
  if (validateRangeTokens_(10, 11, tokens.size()) != 0) return;
  if (parseTime_(tokens[2], true, point_.time) != 0) return;
  color_ = parseColor_(tokens[3]);
  GateEntity* gate = getGate_(tokens[1], id_);
  if (gate == nullptr) return;
  gate->setType(PIData::PI_GATE_RANGE);
  point_.azimuth = 0.0;
  point_.elevation = 0.0;
  if (!parseDirection_(tokens, 4, "Invalid azimuth", "Invalid elevation")) return;
  parseExtent_(tokens, 6, {"Invalid minimum range", "Invalid maximum range", "Invalid centroid"});
}

void TargetGateData::executeStage1(const std::vector<std::string>& tokens) {
  if (validateRangeTokens_(8, 9, tokens.size()) != 0) return;
  if (parseTime_(tokens[2], true, point_.time) != 0) return;
  color_ = parseColor_(tokens[3]);
  GateEntity* gate = getGate_(tokens[1], id_);
  if (gate == nullptr) return;
  gate->setType(PIData::PI_GATE_TARGET);
  point_.azimuth = 0.0;
  point_.elevation = 0.0;
  point_.centroid = -1.0;
  parseExtent_(tokens, 4, {"Invalid minimum range", "Invalid maximum range", "Invalid centroid"});
}

void GateDataRAE::executeStage1(const std::vector<std::string>& tokens) {
  if (tokens.size() != 9 && tokens.size() != 10) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting 8 to 9 arguments");
    return;
  }
  if (parseTime_(tokens[2], true, point_.time) != 0) return;
  if (getGate_(tokens[1], id_) == nullptr) return;
  if (!parseDirection_(tokens, 3, "Invalid coordinate", "Invalid coordinate")) return;
  parseExtent_(tokens, 5, {"Invalid coordinate", "Invalid coordinate", "Invalid coordinate"});
}

}  // namespace AsiInterface
