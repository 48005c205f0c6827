#include "asi/BeamDataCmds.h"

#include "core/StringUtils.h"
#include "core/ValidNumber.h"

namespace AsiInterface {

namespace {

// Columns, counted with the keyword as token 0.
const size_t COLOR_COLUMN = 3;
const size_t FIRST_COLUMN = 4;

}  // namespace

void BeamData::executeStage1(const std::vector<std::string>& tokens) {
  const size_t n = tokens.size();
  if (validateRangeTokens_(5, 8, n) != 0) return;
  if (parseTime_(tokens[2], true, point_.time) != 0) return;
  BeamEntity* beam = getBeam_(tokens[1], id_);
  if (beam == nullptr) return;
  if (beam->name().empty()) beam->setName("Beam " + std::to_string(id_));

  // The type follows from the columns; only "target" is read ignoring case.
  const bool target = orvCore::caseCompare(tokens[FIRST_COLUMN], "target") == 0;
  const bool body = (n >= 6 && tokens[5] == "body") || (n == 8 && tokens[7] == "body");
  PIData::PIBeamHeader header;
  beam->header(header);
  header.beamType = target ? PIData::PI_BEAM_TARGET : body ? PIData::PI_BEAM_BODY : PIData::PI_BEAM_ABSOLUTE;
  beam->setHeader(header);

  color_ = parseColor_(tokens[COLOR_COLUMN]);
  // Columns that the line does not give stay unset.
  point_.azimuth = PIData::PI_UNSET_DOUBLE;
  point_.elevation = PIData::PI_UNSET_DOUBLE;
  point_.range = PIData::PI_UNSET_DOUBLE;

  if (n == 5) {
    if (target) {
      colorOnly_ = true;
      point_.azimuth = 0.0;
      point_.elevation = 0.0;
      point_.range = 0.0;
    }
    return;
  }
  if (n == 6) {
    if (tokens[5] != "body") return;
    if (!orvCore::isValidNumber(tokens[FIRST_COLUMN], point_.range, true)) {
      setMessage(PICommon::PI_NOTIFY_WARN, "Invalid length");
      return;
    }
    point_.azimuth = 0.0;
    point_.elevation = 0.0;
    return;
  }
  const bool degrees = provider_->isDegrees();
  if (radianConvert_(degrees, ANGLEFIX_0_2PI, tokens[4], point_.azimuth) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid azimuth");
    return;
  }
  if (radianConvert_(degrees, ANGLEFIX_PLUS_MINUS_PI, tokens[5], point_.elevation) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid elevation");
    return;
  }
  if (!orvCore::isValidNumber(tokens[6], point_.range, true)) setMessage(PICommon::PI_NOTIFY_WARN, "Invalid length");
}

void BeamDataRAE::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(6, tokens.size()) != 0) return;
  if (parseTime_(tokens[2], true, point_.time) != 0) return;
  BeamEntity* beam = getBeam_(tokens[1], id_);
  if (beam == nullptr) return;
  PIData::PIBeamHeader header;
  beam->header(header);
  if (header.beamType == PIData::PI_BEAM_TARGET) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Target Beam cannot have BeamDataRAE commands");
    return;
  }
  const bool degrees = provider_->isDegrees();
  if (radianConvert_(degrees, ANGLEFIX_0_2PI, tokens[3], point_.azimuth) != 0 ||
      radianConvert_(degrees, ANGLEFIX_PLUS_MINUS_PI, tokens[4], point_.elevation) != 0 ||
      !orvCore::isValidNumber(tokens[5], point_.range, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid BeamRAE coordinate");
    return;
  }
  if (point_.range < 0.0) setMessage(PICommon::PI_NOTIFY_WARN, "Beam range must be >= 0");
}

}  // namespace AsiInterface
