#include "document/AsiKeywordHandlers.h"

#include <algorithm>
#include <cmath>

#include "core/Angle.h"
#include "core/Color.h"
#include "core/Convert.h"
#include "core/CoordinateConverter.h"
#include "core/StringUtils.h"
#include "core/TimeParse.h"
#include "core/ValidNumber.h"
#include "core/VectorMath.h"
#include "datatable/DataTableUtils.h"
#include "document/ASIOutput.h"
#include "document/ConvenienceFuncsUD.h"

namespace {

constexpr double kDeg = M_PI / 180.0;

bool startsWith(const std::string& lower, const char* prefix) { return lower.rfind(prefix, 0) == 0; }

// Whether `word` is `lower` (lower case letters) in any case.
bool isWordNoCase(const std::string& word, const std::string& lower) {
  if (word.size() != lower.size()) return false;
  for (size_t i = 0; i < word.size(); ++i) {
    const char c = word[i];
    if ((c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c) != lower[i]) return false;
  }
  return true;
}

bool isOrderFree(const std::string& lower) {
  return lower == "version" || lower == "reflla" || lower == "reflat" || lower == "reflon" || lower == "refalt" ||
         lower == "coordsystem";
}

}  // namespace

void AsiKeywordHandlers::complain_(const std::string& text, unsigned long line) const {
  writeErrorStreamUD(text + std::to_string(line) + "\n");
}

bool AsiKeywordHandlers::number_(const std::string& text, double& out) const {
  return orvCore::isValidNumber(text, out, true);
}

bool AsiKeywordHandlers::flag_(const std::string& text, bool& on) const {
  // Any unsigned number; nonzero is on.
  unsigned long value = 0;
  if (!orvCore::isValidNumber(text, value, true)) return false;
  on = value != 0;
  return true;
}

bool AsiKeywordHandlers::id_(const std::string& text, uint64_t& out) const {
  unsigned long value = 0;
  if (!orvCore::isValidNumber(text, value, true)) return false;
  out = value;
  return true;
}

int AsiKeywordHandlers::time_(const std::string& text, double& out) const {
  double value = 0.0;
  if (orvCore::isValidNumber(text, value, true)) {
    out = value;
    return UD_NO_ERROR;
  }
  // Calendar forms; a TimeException reaches the dispatch and gives 53.
  out = UTILS::parseTimeString(text, scenario_.referenceYear());
  return UD_NO_ERROR;
}

bool AsiKeywordHandlers::angle_(const std::string& text, double& out) const {
  if (!number_(text, out)) return false;
  if (scenario_.degreeAngles()) out *= kDeg;
  return true;
}

bool AsiKeywordHandlers::degrees_(const std::string& text, double& out) {
  return orvCore::getAngleFromDegreeString(text, true, out) == 0;
}

uint32_t AsiKeywordHandlers::color_(const std::string& text) {
  // A name, "0x" hexadecimal or a number, in the 0xAABBGGRR order of ASI
  // text; the document keeps the host's 0xRRGGBBAA.
  return UTILS::colorReverseBytes(UTILS::colorGetColorInt(text, true));
}

int AsiKeywordHandlers::checkNewId_(const std::string& text, const std::string& noun, unsigned long line,
                                    uint64_t& id) {
  if (!id_(text, id) || id == 0) {
    complain_(noun + " ID must be > 0.  Line#: ", line);
    return UD_ILLEGAL_ID_ON_LOAD;
  }
  if (scenario_.findObject(id) != nullptr) {
    complain_(noun + " ID is not unique.  It has already been used.  Line#: ", line);
    return UD_DUP_ID_ON_LOAD;
  }
  return UD_NO_ERROR;
}

int AsiKeywordHandlers::checkHostId_(const std::string& text, const std::string& noun, unsigned long line,
                                      uint64_t& id) const {
  if (id_(text, id) && id != 0) return UD_NO_ERROR;
  complain_(noun + " host ID must be > 0.  Line#: ", line);
  return UD_ILLEGAL_ID_ON_LOAD;
}

int AsiKeywordHandlers::unknownHost_(const std::string& noun, unsigned long line) const {
  complain_("ID given does not correspond with a previously specified " + noun + ".  Line#: ", line);
  return UD_UNKNOWN_OBJECT_ID;
}

int AsiKeywordHandlers::parse(const Tokens& t, unsigned long line) {
  const std::string& keyword = t[0];
  // Nearly every line of a large file is PlatformData: once the header
  // rules are met it goes to its handler without the keyword chain.
  static const std::string platformData = "platformdata";
  if (versionSeen_ && refSet_ && coordSet_ && isWordNoCase(keyword, platformData))
    return asiPlatformOther_(platformData, t, line);
  const std::string lower = orvCore::lowerCase(keyword);
  if (!versionSeen_) {
    if (lower != "version") {
      writeErrorStreamUD("Encountered token " + keyword + " before required Keyword Version.  Line#: " +
                         std::to_string(line) + "\n");
      return UD_FATAL;
    }
    return asiVersion_(t, line);
  }
  if (!refSet_ && !isOrderFree(lower)) {
    writeErrorStreamUD("Encountered token " + keyword + " before required Keyword RefLLA.  Line#: " +
                       std::to_string(line) + "\n");
    return UD_FATAL;
  }
  if (!coordSet_ && !isOrderFree(lower)) {
    writeErrorStreamUD("Encountered token " + keyword + " before required Keyword CoordSystem.  Line#: " +
                       std::to_string(line) + "\n");
    return UD_FATAL;
  }
  if (lower == "reflla") return asiRefLLA_(t, line);
  if (lower == "reflat") return asiRefLat_(t, line);
  if (lower == "reflon") return asiRefLon_(t, line);
  if (lower == "refalt") return asiRefAlt_(t, line);
  if (lower == "coordsystem") return asiCoordSystem_(t, line);
  if (lower == "version") return asiVersion_(t, line);

  if (startsWith(lower, "platform")) {
    if (lower == "platformid") return asiPlatformID_(t, line);
    if (lower == "platformtype") return asiPlatformType_(t, line);
    if (lower == "platformfhn") return asiPlatformFHN_(t, line);
    if (lower == "platformrcs") return asiPlatformRCS_(t, line);
    return asiPlatformOther_(lower, t, line);
  }
  if (startsWith(lower, "beam") || startsWith(lower, "antenna") || lower == "vertbw" || lower == "horzbw" ||
      lower == "azimoffset" || lower == "elevoffset" || lower == "rolloffset" || lower == "bodyoffset" ||
      lower == "arepspattern") {
    if (lower == "beamid") return asiBeamID_(t, line);
    return asiBeamOther_(lower, t, line);
  }
  if (startsWith(lower, "customrendering")) {
    if (lower == "customrendering") return asiCustomRendering_(t, line);
    return asiCustomRenderingOther_(t, line);
  }
  if (startsWith(lower, "gate") || lower == "targetgatedata" || lower == "bodygatedata") {
    if (lower == "gateid") return asiGateID_(t, line);
    return asiGateOther_(lower, t, line);
  }
  if (startsWith(lower, "datatable")) return asiDataTable_(lower, t, line);
  if (startsWith(lower, "laser")) return asiLaser_(lower, t, line);
  if (startsWith(lower, "lob")) return asiLOB_(lower, t, line);
  if (lower == "genericdata" && scenario_.version() > 6) return asiGenericData_(t, line);
  if (startsWith(lower, "generic") || startsWith(lower, "event")) return asiGenericDataLegacy_(lower, t, line);
  if (startsWith(lower, "projector")) return asiProjector_(lower, t, line);
  if (lower == "categorydata") return asiCategoryData_(t, line);
  if (lower == "originalid") return asiOriginalID_(t, line);
  return asiScenario_(lower, t, line);
}

int AsiKeywordHandlers::asiVersion_(const Tokens& t, unsigned long) {
  if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
  unsigned long version = 0;
  if (!orvCore::isValidNumber(t[1], version, true) || scenario_.setVersion(static_cast<int>(version)) != 0)
    return UD_BAD_VERSION;
  versionSeen_ = true;
  return UD_NO_ERROR;
}

int AsiKeywordHandlers::asiRefLLA_(const Tokens& t, unsigned long) {
  if (t.size() != 4) return UD_BAD_TOKEN_COUNT;
  double lat = 0, lon = 0, alt = 0;
  if (!degrees_(t[1], lat) || !degrees_(t[2], lon) || !number_(t[3], alt)) return UD_BAD_SCEN_REFLLA;
  if (const int code = scenario_.setLatLonAlt(lat, lon, alt)) return code;
  refSet_ = true;
  return UD_NO_ERROR;
}

int AsiKeywordHandlers::setReferencePart_() {
  if (!refLat_ || !refLon_ || !refAlt_) return UD_NO_ERROR;
  // A part the document refuses is reported; the reference set before stays.
  const int code = scenario_.setLatLonAlt(ref_[0], ref_[1], ref_[2]);
  refSet_ = refSet_ || code == UD_NO_ERROR;
  return code;
}

int AsiKeywordHandlers::asiRefLat_(const Tokens& t, unsigned long) {
  if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
  if (!degrees_(t[1], ref_[0])) return UD_BAD_SCEN_REFLLA;
  refLat_ = true;
  return setReferencePart_();
}

int AsiKeywordHandlers::asiRefLon_(const Tokens& t, unsigned long) {
  if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
  if (!degrees_(t[1], ref_[1])) return UD_BAD_SCEN_REFLLA;
  refLon_ = true;
  return setReferencePart_();
}

int AsiKeywordHandlers::asiRefAlt_(const Tokens& t, unsigned long) {
  if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
  if (!number_(t[1], ref_[2])) return UD_BAD_SCEN_REFLLA;
  refAlt_ = true;
  return setReferencePart_();
}

int AsiKeywordHandlers::asiCoordSystem_(const Tokens& t, unsigned long) {
  if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
  const int system = checkCoordSystem(t[1]);
  if (system < 0) return UD_BAD_NUMBER;
  scenario_.setCoordSystem(static_cast<orvCore::CoordinateSystem>(system));
  coordSet_ = true;
  return UD_NO_ERROR;
}

int AsiKeywordHandlers::asiScenario_(const std::string& k, const Tokens& t, unsigned long line) {
  auto file = [&](EExternalFileType type) {
    if (t.size() < 2) return static_cast<int>(UD_BAD_TOKEN_COUNT);
    for (size_t i = 1; i < t.size(); ++i) scenario_.addExternalFile(type, t[i]);
    return static_cast<int>(UD_NO_ERROR);
  };
  if (k == "tangentplaneoffset") {
    double x = 0, y = 0, a = 0;
    if (t.size() != 4) return UD_BAD_TOKEN_COUNT;
    if (!number_(t[1], x) || !number_(t[2], y) || !degrees_(t[3], a)) return UD_BAD_SCEN_TANGENT_PLANE;
    return scenario_.setTangentPlaneOffsets(x, y, a);
  }
  if (k == "windangle") {
    double a = 0;
    if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
    return number_(t[1], a) ? scenario_.setWindAngle(a * kDeg) : UD_BAD_WIND_ANGLE;
  }
  if (k == "windspeed") {
    double s = 0;
    if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
    return number_(t[1], s) ? scenario_.setWindSpeed(s) : UD_BAD_WIND_SPEED;
  }
  if (k == "scenarioinfo") {
    if (t.size() < 2) return UD_BAD_TOKEN_COUNT;
    std::string text;
    for (size_t i = 1; i < t.size(); ++i) text += (i > 1 ? " " : "") + t[i];
    return scenario_.setDesc(text);
  }
  if (k == "magneticvariance") {
    if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
    const int known = CommandsUD::indexOf(CommandsUD::MAGNETIC_VARIANCES, t[1]);
    if (known >= 0 && known != UTILS::MV_USER)
      return scenario_.setMagneticVariance(static_cast<UTILS::EMagneticVariance>(known));
    double user = 0;
    return degrees_(t[1], user) ? scenario_.setMagneticVariance(UTILS::MV_USER, user) : UD_BAD_SCEN_MAGNETIC_VARIANCE;
  }
  if (k == "verticaldatum") {
    if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
    const int known = CommandsUD::indexOf(CommandsUD::VERTICAL_DATUMS, t[1]);
    if (known >= 0 && known != UTILS::VD_USER)
      return scenario_.setVerticalDatum(static_cast<UTILS::EVerticalDatum>(known));
    double user = 0;
    return number_(t[1], user) ? scenario_.setVerticalDatum(UTILS::VD_USER, user) : UD_BAD_SCEN_VERTICAL_DATUM;
  }
  if (k == "referenceyear") {
    unsigned int year = 0;
    if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
    // The calendar's range, as the command pipeline takes it; the year in
    // force stays on a refusal.
    if (!orvCore::isValidNumber(t[1], year, true) || year < 1970 || year > 2200) return UD_BAD_NUMBER;
    scenario_.setReferenceYear(static_cast<int>(year));
    return UD_NO_ERROR;
  }
  if (k == "classification") {
    if (t.size() != 2 && t.size() != 3) return UD_BAD_TOKEN_COUNT;
    const std::string label = checkClassification(t[1]);
    // The document keeps the classification colour as ASI text gives it; none is white.
    scenario_.setClassification(label.empty() ? t[1] : label,
                                t.size() == 3 ? UTILS::colorGetColorInt(t[2], true) : 0xFFFFFFFFu);
    return UD_NO_ERROR;
  }
  if (k == "dedmap" || k == "dtedmap") return file(EFT_DED_MAP);
  if (k == "gogfile") return file(EFT_GOG_FILE);
  if (k == "wvsmap") return file(EFT_WVS_MAP);
  if (k == "viewfile") return file(EFT_VIEW_FILE);
  // Up to version 13 "ImageFile" was the name of "ITConfigFile".
  if (k == "imagefile") return file(scenario_.version() <= 13 ? EFT_IT_CONFIG_FILE : EFT_IMAGE_FILE);
  if (k == "mediafile") return file(EFT_MEDIA_FILE);
  if (k == "file") return file(EFT_FILE);
  if (k == "itconfigfile") return file(EFT_IT_CONFIG_FILE);
  if (k == "rulefile") return file(EFT_RULE_FILE);
  if (k == "soundfile") {
    // File, start and end, both times real ones (no static marker), as the
    // command pipeline reads it; the document keeps the start.
    double start = 0, end = 0;
    if (t.size() != 4) return UD_BAD_TOKEN_COUNT;
    if (const int code = time_(t[2], start)) return code;
    if (const int code = time_(t[3], end)) return code;
    if (start < 0.0 || end < 0.0) return UD_BAD_TIME_VALUE;
    scenario_.addSoundFile(t[1], start);
    return UD_NO_ERROR;
  }
  if (k == "degreeangles") {
    if (t.size() != 2 || (t[1] != "0" && t[1] != "1")) return UD_BAD_NUMBER;
    scenario_.setDegreeAngles(t[1] == "1");
    return UD_NO_ERROR;
  }
  if (k == "referencetimeeci") {
    double seconds = 0;
    if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
    if (!number_(t[1], seconds)) return UD_BAD_ECI_TIME;
    // Out of the day: reported, and the frame holds 0, as the command
    // pipeline does.
    if (scenario_.setEciReferenceTime(seconds) == UD_NO_ERROR) return UD_NO_ERROR;
    scenario_.setEciReferenceTime(0.0);
    return UD_BAD_ECI_TIME;
  }
  if (k == "datakeylock") return UD_NO_ERROR;
  (void)line;
  return UD_UNKNOWN_KEYWORD;
}

int AsiKeywordHandlers::asiPlatformID_(const Tokens& t, unsigned long line) {
  if (t.size() != 2) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  if (const int code = checkNewId_(t[1], "Platform", line, id)) return code;
  auto header = std::make_unique<PlatformHeaderUD>(scenario_.dataFormat());
  header->uniqueID = id;
  header->referenceYear = scenario_.referenceYear();
  // The platform's frame starts as the scenario's frame stands now.
  header->referenceTimeECI = scenario_.eciReferenceTime();
  auto* platform = new PlatformUD(&scenario_, std::move(header));
  const int code = platform->AddToScenario(&scenario_);
  if (code != 0) delete platform;
  return code;
}

int AsiKeywordHandlers::asiPlatformType_(const Tokens& t, unsigned long) {
  uint64_t id = 0;
  if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
  if (!id_(t[1], id) || scenario_.findPlatform(id) == nullptr) return UD_UNKNOWN_OBJECT_ID;
  return scenario_.addCategoryData(id, -1.0, "Platform Type", GetPlatTypeCatValueUD(t[2]));
}

int AsiKeywordHandlers::asiPlatformFHN_(const Tokens& t, unsigned long) {
  uint64_t id = 0;
  if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
  if (!id_(t[1], id) || scenario_.findPlatform(id) == nullptr) return UD_UNKNOWN_OBJECT_ID;
  std::string name, value;
  GetFHNCategoryDataUD(t[2], name, value);
  return scenario_.addCategoryData(id, -1.0, name, value);
}

int AsiKeywordHandlers::asiPlatformRCS_(const Tokens& t, unsigned long) {
  uint64_t id = 0;
  if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
  PlatformUD* platform = id_(t[1], id) ? scenario_.findPlatform(id) : nullptr;
  if (platform == nullptr) return UD_UNKNOWN_OBJECT_ID;
  platform->setRadarCrossSection(t[2]);
  scenario_.radarCrossSections().addRadarCrossSection(id, t[2]);
  return UD_NO_ERROR;
}

int AsiKeywordHandlers::position_(orvCore::CoordinateSystem system, const Tokens& t, double p[3]) const {
  const std::string& lat = t[3];
  const std::string& lon = t[4];
  if (!number_(t[5], p[2])) return UD_BAD_PLAT_POSITION;
  if (system != orvCore::LLA || (!scenario_.degreeAngles() && scenario_.version() != 2))
    return number_(lat, p[0]) && number_(lon, p[1]) ? UD_NO_ERROR : UD_BAD_PLAT_POSITION;
  // Version 2 wrote radians or degrees without saying which: what radians
  // cannot hold is read as degrees.
  if (!scenario_.degreeAngles() && number_(lat, p[0]) && number_(lon, p[1]) && std::fabs(p[0]) <= 2 * M_PI &&
      std::fabs(p[1]) <= M_PI)
    return UD_NO_ERROR;
  if (!degrees_(lat, p[0]) || !degrees_(lon, p[1])) return UD_BAD_PLAT_POSITION;
  // Longitudes up to a full turn either way, as the command reader allows.
  if (scenario_.degreeAngles() && (std::fabs(p[0]) > M_PI / 2 || std::fabs(p[1]) > 2 * M_PI))
    return UD_BAD_PLAT_POSITION;
  return UD_NO_ERROR;
}

int AsiKeywordHandlers::asiPlatformData_(PlatformUD& platform, const Tokens& t) {
  // PlatformData id time x y z [orientation] [speed | velocity [acceleration]].
  // The orientation is yaw, pitch and roll, or four quaternion components
  // once "PlatformUsesQuaternion" named their order; the speed column follows.
  const size_t n = t.size();
  if (n < 6) return UD_BAD_TOKEN_COUNT;
  double time = 0;
  if (const int code = time_(t[2], time)) return code;
  const PlatformHeaderUD& h = *platform.Header();
  const orvCore::CoordinateSystem system = h.coordSystem;
  double p[3];
  if (const int code = position_(system, t, p)) return code;

  double ori[3] = {0, 0, 0};
  size_t speedColumn = 9;
  const auto quaternion = quaternions_.find(platform.UniqueID());
  if (n >= 10 && quaternion != quaternions_.end()) {
    speedColumn = 10;
    double abcd[4], q[4], unit[4];
    for (size_t i = 0; i < 4; ++i)
      if (!number_(t[6 + i], abcd[i])) return UD_BAD_PLAT_ANGLE;
    // The mode names which column holds the first component.
    for (size_t i = 0; i < 4; ++i) q[i] = abcd[(quaternion->second + i) & 3u];
    orvCore::dQNorm(q, unit, 1e-9);
    orvCore::Vec3 euler;
    orvCore::d3QtoEuler(unit, euler);
    ori[0] = euler.yaw();
    ori[1] = euler.pitch();
    ori[2] = euler.roll();
  } else {
    for (size_t i = 0; i < 3 && 6 + i < n; ++i)
      if (!angle_(t[6 + i], ori[i])) return UD_BAD_PLAT_ANGLE;
  }
  const bool hasOri = n > 6;

  double speed = -1.0, v[3] = {0, 0, 0}, a[3] = {0, 0, 0};
  const bool hasSpeed = n == speedColumn + 1;
  const bool hasVelocity = n == speedColumn + 3 || n == speedColumn + 6;
  const bool hasAcceleration = n == speedColumn + 6;
  if (n > speedColumn && !hasSpeed && !hasVelocity) return UD_BAD_TOKEN_COUNT;
  if (hasSpeed && !number_(t[speedColumn], speed)) return UD_BAD_PLAT_VELOCITY;
  for (size_t i = 0; hasVelocity && i < 3; ++i)
    if (!number_(t[speedColumn + i], v[i])) return UD_BAD_PLAT_VELOCITY;
  for (size_t i = 0; hasAcceleration && i < 3; ++i)
    if (!number_(t[speedColumn + 3 + i], a[i])) return UD_BAD_PLAT_ACCELERATION;

  // The document keeps geodetic states with east-north-up velocity: other
  // frames are converted with their orientation and velocity.
  double lla[3] = {p[0], p[1], p[2]};
  if (system != orvCore::LLA) {
    orvCore::CoordinateConverter converter = scenario_.converter();
    if (h.hasRefLLA) converter.setReferenceOrigin(h.refLLA[0], h.refLLA[1], h.refLLA[2]);
    if (h.hasOwnFrame()) converter.setTangentPlaneOffsets(h.tangentPlane[0], h.tangentPlane[1], h.tangentPlane[2]);
    // An ECI position turns with the earth from the frame's ECI reference time.
    const double eciTime = time < 0 ? 0.0 : time - h.referenceTimeECI;
    orvCore::Coordinate in(system, orvCore::Vec3(p[0], p[1], p[2]), orvCore::Vec3(ori[0], ori[1], ori[2]),
                           orvCore::Vec3(v[0], v[1], v[2]), orvCore::Vec3(a[0], a[1], a[2]), eciTime);
    orvCore::Coordinate out;
    if (converter.convert(in, out, orvCore::LLA) != 0) return UD_BAD_PLAT_POSITION;
    for (int i = 0; i < 3; ++i) {
      lla[i] = out.position()[i];
      if (hasOri) ori[i] = out.orientation()[i];
      v[i] = out.velocity()[i];
      a[i] = out.acceleration()[i];
    }
  }
  udFixOrientationAngles(ori[0], ori[1], ori[2]);
  if (hasSpeed) return platform.AddState(time, lla, ori, speed);
  return platform.AddState(time, lla, hasOri ? ori : nullptr, hasVelocity ? v : nullptr,
                           hasAcceleration ? a : nullptr);
}

PlatformUD* AsiKeywordHandlers::platform_(uint64_t id) {
  const auto known = platforms_.find(id);
  if (known != platforms_.end()) return known->second;
  PlatformUD* platform = scenario_.findPlatform(id);
  if (platform != nullptr) platforms_.emplace(id, platform);
  return platform;
}

int AsiKeywordHandlers::asiPlatformOther_(const std::string& k, const Tokens& t, unsigned long) {
  if (t.size() < 2) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  PlatformUD* platform = id_(t[1], id) ? platform_(id) : nullptr;
  if (platform == nullptr) return UD_UNKNOWN_OBJECT_ID;
  PlatformHeaderUD& h = *platform->Header();
  auto need = [&t](size_t count) { return t.size() == count; };
  if (k == "platformdata") return asiPlatformData_(*platform, t);
  if (k == "platformname") {
    if (t.size() < 3) return UD_BAD_TOKEN_COUNT;
    // The words joined by blanks, trimmed, without double quotes; "None" if nothing is left.
    std::string name;
    for (size_t i = 2; i < t.size(); ++i) name += t[i] + " ";
    const size_t first = name.find_first_not_of(" \n\r\t");
    name = first == std::string::npos ? "" : name.substr(first, name.find_last_not_of(" \n\r\t") - first + 1);
    name.erase(std::remove(name.begin(), name.end(), '"'), name.end());
    platform->SetDesc(name.empty() ? "None" : name);
    return UD_NO_ERROR;
  }
  if (k == "platformicon") {
    if (!need(3)) return UD_BAD_TOKEN_COUNT;
    platform->SetIconName(t[2]);
    return UD_NO_ERROR;
  }
  if (k == "platformattachedgog") {
    if (!need(3)) return UD_BAD_TOKEN_COUNT;
    h.gogFiles.push_back(t[2]);
    return UD_NO_ERROR;
  }
  if (k == "platforminterpolate" || k == "platforminterpolateori") {
    if (!need(3)) return UD_BAD_TOKEN_COUNT;
    bool on = false;
    if (!flag_(t[2], on)) return UD_BAD_NUMBER;
    platform->setInterpolate(on);
    return UD_NO_ERROR;
  }
  if (k == "platformoffset" || k == "platformorioffset") {
    double v[3];
    if (!need(5)) return UD_BAD_TOKEN_COUNT;
    for (int i = 0; i < 3; ++i)
      if (!number_(t[2 + i], v[i]) || udIsBadValue(v[i])) return UD_BAD_PLAT_OFFSET;
    if (k == "platformoffset") {
      for (int i = 0; i < 3; ++i) h.positionOffset[i] = v[i];
    } else {
      h.SetCourseOffset(static_cast<float>(v[0] * kDeg));
      h.SetPitchOffset(static_cast<float>(v[1] * kDeg));
      h.SetRollOffset(static_cast<float>(v[2] * kDeg));
    }
    return UD_NO_ERROR;
  }
  if (k == "platformreflla") {
    double lat = 0, lon = 0, alt = 0;
    if (!need(5)) return UD_BAD_TOKEN_COUNT;
    if (!degrees_(t[2], lat) || !degrees_(t[3], lon) || !number_(t[4], alt)) return UD_BAD_PLAT_REFLLA;
    h.SetReferenceLLA(lat, lon, alt);
    h.ownFrame = true;
    return UD_NO_ERROR;
  }
  if (k == "platformcoordsystem") {
    if (!need(3)) return UD_BAD_TOKEN_COUNT;
    const int system = checkCoordSystem(t[2]);
    if (system < 0) return UD_BAD_NUMBER;
    h.coordSystem = static_cast<orvCore::CoordinateSystem>(system);
    h.ownFrame = true;
    return UD_NO_ERROR;
  }
  if (k == "platformtangentplaneoffset") {
    double x = 0, y = 0, a = 0;
    if (!need(5)) return UD_BAD_TOKEN_COUNT;
    if (!number_(t[2], x) || !number_(t[3], y) || !degrees_(t[4], a)) return UD_BAD_PLAT_TANGENT_PLANE;
    h.SetTangentPlaneOffsets(x, y, a);
    h.ownFrame = true;
    return UD_NO_ERROR;
  }
  if (k == "platformreferencetimeeci") {
    double seconds = 0;
    if (!need(3)) return UD_BAD_TOKEN_COUNT;
    if (!number_(t[2], seconds)) return UD_BAD_ECI_TIME;
    const bool inDay = seconds >= 0 && seconds <= 86400;
    h.SetReferenceTimeECI(inDay ? seconds : 0.0);
    return inDay ? UD_NO_ERROR : UD_BAD_ECI_TIME;
  }
  if (k == "platformverticaldatum") {
    if (!need(3)) return UD_BAD_TOKEN_COUNT;
    const int known = CommandsUD::indexOf(CommandsUD::VERTICAL_DATUMS, t[2]);
    double user = 0;
    if (known >= 0 && known != UTILS::VD_USER) h.SetVerticalDatum(static_cast<UTILS::EVerticalDatum>(known));
    else if (number_(t[2], user)) h.SetVerticalDatum(UTILS::VD_USER, user);
    else return UD_BAD_PLAT_VERTICAL_DATUM;
    return UD_NO_ERROR;
  }
  if (k == "platformmagneticvariance") {
    if (!need(3)) return UD_BAD_TOKEN_COUNT;
    const int known = CommandsUD::indexOf(CommandsUD::MAGNETIC_VARIANCES, t[2]);
    double user = 0;
    if (known >= 0 && known != UTILS::MV_USER) h.SetMagneticVariance(static_cast<UTILS::EMagneticVariance>(known));
    else if (degrees_(t[2], user)) h.SetMagneticVariance(UTILS::MV_USER, user);
    else return UD_BAD_PLAT_MAGNETIC_VARIANCE;
    return UD_NO_ERROR;
  }
  if (k == "platformusesquaternion") {
    unsigned int type = 0;
    if (!need(3)) return UD_BAD_TOKEN_COUNT;
    if (!orvCore::isValidNumber(t[2], type, true) || type > 3) return UD_BAD_NUMBER;
    quaternions_[id] = type;
    return UD_NO_ERROR;
  }
  return UD_UNKNOWN_KEYWORD;
}

int AsiKeywordHandlers::asiBeamID_(const Tokens& t, unsigned long line) {
  if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
  uint64_t hostId = 0, id = 0;
  if (const int code = checkHostId_(t[1], "Platform", line, hostId)) return code;
  if (const int code = checkNewId_(t[2], "Beam", line, id)) return code;
  PlatformUD* host = scenario_.findPlatform(hostId);
  if (host == nullptr) return unknownHost_("platform", line);
  auto header = std::make_unique<BeamHeaderUD>();
  header->uniqueID = id;
  auto* beam = new BeamUD(&scenario_, host, std::move(header));
  const int code = beam->AddToScenario(&scenario_);
  if (code != 0) delete beam;
  return code;
}

int AsiKeywordHandlers::asiBeamOther_(const std::string& k, const Tokens& t, unsigned long) {
  if (t.size() < 2) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  BeamUD* beam = id_(t[1], id) ? scenario_.findBeam(id) : nullptr;
  if (beam == nullptr) return UD_UNKNOWN_OBJECT_ID;
  BeamHeaderUD& h = *beam->Header();
  double v = 0;
  auto degreesArg = [&](double& out) { return t.size() == 3 && number_(t[2], v) ? (out = v * kDeg, true) : false; };
  if (k == "vertbw" || k == "horzbw") {
    double& width = k == "vertbw" ? h.vbw : h.hbw;
    if (!degreesArg(width)) return UD_BAD_BEAM_WIDTH;
    if (std::fabs(v) >= 1e-6) return UD_NO_ERROR;
    // A width of nothing: one degree high, all around wide.
    width = (k == "vertbw" ? 1.0 : 360.0) * kDeg;
    return UD_BAD_BEAM_WIDTH;
  }
  if (k == "azimoffset") return degreesArg(h.azimOffset) ? UD_NO_ERROR : UD_BAD_BEAM_OFFSET;
  if (k == "elevoffset") return degreesArg(h.elevOffset) ? UD_NO_ERROR : UD_BAD_BEAM_OFFSET;
  if (k == "rolloffset") return degreesArg(h.rollOffset) ? UD_NO_ERROR : UD_BAD_BEAM_OFFSET;
  if (k == "bodyoffset") {
    if (t.size() != 5) return UD_BAD_TOKEN_COUNT;
    for (int i = 0; i < 3; ++i)
      if (!number_(t[2 + i], h.bodyOffset[i])) return UD_BAD_BEAM_OFFSET;
    return UD_NO_ERROR;
  }
  if (k == "beammissileoffset") {
    h.missileOffset = true;
    return UD_NO_ERROR;
  }
  if (k == "beaminterpolate" || k == "beaminterpolatepos") {
    if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
    bool on = false;
    if (!flag_(t[2], on)) return UD_BAD_NUMBER;
    beam->setInterpolate(on);
    return UD_NO_ERROR;
  }
  if (k == "beamtype") {
    if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
    const int type = CommandsUD::indexOf(CommandsUD::BEAM_TYPES, t[2]);
    if (type < 0) return UD_BAD_BEAM_TYPE;
    beam->SetBeamType(type);
    return UD_NO_ERROR;
  }
  if (k == "beamdesc") {
    if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
    beam->SetDesc(t[2]);
    return UD_NO_ERROR;
  }
  if (k == "antennapattern") {
    if (t.size() < 3 || t.size() > 4) return UD_BAD_TOKEN_COUNT;
    h.SetAntInfo(t[2], t.size() == 4 ? t[3] : "");
    if (t.size() == 4) scenario_.addAntennaPattern(t[3]);
    return UD_NO_ERROR;
  }
  if (k == "antennaalgorithm") {
    if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
    if (CommandsUD::indexOf(CommandsUD::ANTENNA_ALGORITHMS, t[2]) < 0) return UD_BAD_ANTENNA_ALGORITHM;
    h.SetAntAlgo(t[2]);
    return UD_NO_ERROR;
  }
  if (k == "antennagain" || k == "antennapeakpower" || k == "antennafrequency") {
    if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
    if (!number_(t[2], v)) return UD_BAD_NUMBER;
    if (k == "antennagain") h.SetAntGain(v);
    else if (k == "antennapeakpower") h.SetAntPower(v);
    else h.SetAntFreq(v);
    return UD_NO_ERROR;
  }
  if (k == "antennapolarity") {
    if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
    const int polarity = CommandsUD::indexOf(CommandsUD::POLARITIES, t[2]);
    h.SetAntPolarity(polarity < 0 ? 0 : polarity);
    return UD_NO_ERROR;
  }
  if (k == "arepspattern") {
    for (size_t i = 2; i < t.size(); ++i) h.SetAREPSFile(t[i]);
    return UD_NO_ERROR;
  }
  if (k == "beamlengthcmd") return UD_NO_ERROR;
  if (t.size() < 4) return UD_BAD_TOKEN_COUNT;
  double time = 0;
  if (const int code = time_(t[2], time)) return code;
  if (k == "beamonoffcmd") {
    bool on = false;
    if (!flag_(t[3], on)) return UD_BAD_NUMBER;
    beam->AddOnOffCmd(time, on);
    return UD_NO_ERROR;
  }
  if (k == "beamcolorcmd") {
    beam->AddColorCmd(time, color_(t[3]));
    return UD_NO_ERROR;
  }
  // "BeamTargetCmd" reads as "BeamTargetIDCmd": its target is a number too.
  if (k == "beamtargetidcmd" || k == "beamtargetcmd") {
    uint64_t target = 0;
    if (!id_(t[3], target)) return UD_BAD_NUMBER;
    beam->AddTargetCmd(time, target);
    return UD_NO_ERROR;
  }
  if (k == "beamdatarae") {
    double az = 0, el = 0, range = 0;
    if (t.size() != 6) return UD_BAD_BEAM_DATA_COUNT;
    if (!angle_(t[3], az)) return UD_BAD_BEAM_AZIMUTH;
    if (!angle_(t[4], el)) return UD_BAD_BEAM_ELEVATION;
    if (!number_(t[5], range)) return UD_BAD_BEAM_RANGE;
    return beam->AddState(time, range, orvCore::angFix(az, orvCore::AE_ZERO_TWOPI), el);
  }
  if (k == "beamdata") {
    // BeamData id time colour [length body | az el length [body]], or
    // "target" after the colour: the line also sets the beam's type.
    const size_t n = t.size();
    if (n < 5 || n > 8) return UD_BAD_BEAM_DATA_COUNT;
    const auto word = [&t, n](size_t i, const char* text) { return i < n && orvCore::caseCompare(t[i], text) == 0; };
    const bool body = (n >= 6 && word(5, "body")) || (n == 8 && word(7, "body"));
    beam->SetBeamType(word(4, "target") ? BEAM_TARGET : body ? BEAM_BODY : BEAM_ABSOLUTE);
    beam->AddColorCmd(time, color_(t[3]));
    double az = 0, el = 0, range = 0;
    if (n == 6 && body) {
      if (!number_(t[4], range)) return UD_BAD_BEAM_RANGE;
      return beam->AddState(time, range, 0.0, 0.0);
    }
    if (n < 7) return UD_NO_ERROR;
    if (!angle_(t[4], az)) return UD_BAD_BEAM_AZIMUTH;
    if (!angle_(t[5], el)) return UD_BAD_BEAM_ELEVATION;
    if (!number_(t[6], range)) return UD_BAD_BEAM_RANGE;
    return beam->AddState(time, range, orvCore::angFix(az, orvCore::AE_ZERO_TWOPI), el);
  }
  if (k == "beamdatabody" || k == "beamdatatarget") return UD_DEPRECATED;
  return UD_UNKNOWN_KEYWORD;
}

int AsiKeywordHandlers::asiGateID_(const Tokens& t, unsigned long line) {
  if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
  uint64_t hostId = 0, id = 0;
  if (const int code = checkHostId_(t[1], "Beam", line, hostId)) return code;
  if (const int code = checkNewId_(t[2], "Gate", line, id)) return code;
  BeamUD* host = scenario_.findBeam(hostId);
  if (host == nullptr) return unknownHost_("beam", line);
  auto header = std::make_unique<GateHeaderUD>();
  header->uniqueID = id;
  auto* gate = new GateUD(&scenario_, host, std::move(header));
  const int code = gate->AddToScenario(&scenario_);
  if (code != 0) delete gate;
  return code;
}

int AsiKeywordHandlers::asiGateOther_(const std::string& k, const Tokens& t, unsigned long) {
  if (t.size() < 3) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  GateUD* gate = id_(t[1], id) ? scenario_.findGate(id) : nullptr;
  if (gate == nullptr) return UD_UNKNOWN_OBJECT_ID;
  GateHeaderUD& h = *gate->Header();
  double v = 0;
  if (k == "gatetype") {
    const int type = CommandsUD::indexOf(CommandsUD::GATE_TYPES, t[2]);
    if (type < 0) return UD_BAD_GATE_TYPE;
    h.gateType = type;
    return UD_NO_ERROR;
  }
  if (k == "gatedesc") {
    gate->SetDesc(t[2]);
    return UD_NO_ERROR;
  }
  if (k == "gateinterpolate" || k == "gateinterpolatepos") {
    bool on = false;
    if (!flag_(t[2], on)) return UD_BAD_NUMBER;
    gate->setInterpolate(on);
    return UD_NO_ERROR;
  }
  if (k == "gateazimoffset" || k == "gateelevoffset" || k == "gaterolloffset") {
    if (!number_(t[2], v)) return UD_BAD_GATE_OFFSET;
    (k == "gateazimoffset" ? h.azimOffset : k == "gateelevoffset" ? h.elevOffset : h.rollOffset) = v * kDeg;
    return UD_NO_ERROR;
  }
  if (t.size() < 4) return UD_BAD_TOKEN_COUNT;
  double time = 0;
  if (const int code = time_(t[2], time)) return code;
  if (k == "gateonoffcmd") {
    bool on = false;
    if (!flag_(t[3], on)) return UD_BAD_NUMBER;
    gate->AddOnOffCmd(time, on);
    return UD_NO_ERROR;
  }
  if (k == "gatecolorcmd") {
    gate->AddColorCmd(time, color_(t[3]));
    return UD_NO_ERROR;
  }
  // GateDataRAE: az el width height min max [centroid]; the older forms
  // carry a colour first.
  size_t first = 3;
  if (k == "gatedata" || k == "bodygatedata") first = 4;
  else if (k != "gatedatarae") return k == "targetgatedata" ? UD_DEPRECATED : UD_UNKNOWN_KEYWORD;
  if (t.size() != first + 6 && t.size() != first + 7) return UD_BAD_TOKEN_COUNT;
  double values[7] = {0, 0, 0, 0, 0, 0, 0};
  for (size_t i = 0; i + first < t.size(); ++i) {
    const bool isAngle = i < 4;
    if (!(isAngle ? angle_(t[first + i], values[i]) : number_(t[first + i], values[i])))
      return static_cast<int>(UD_BAD_GATE_AZIMUTH + i);
  }
  if (t.size() == first + 6) values[6] = (values[4] + values[5]) / 2.0;
  return gate->AddState(GateStateUD(time, values[0], values[1], values[2], values[3], values[4], values[5], values[6]));
}

int AsiKeywordHandlers::asiCustomRendering_(const Tokens& t, unsigned long line) {
  if (t.size() != 5) return UD_BAD_TOKEN_COUNT;
  // Host 0: an object of the scenario, on no platform.
  uint64_t hostId = 0;
  if (!id_(t[1], hostId)) return checkHostId_(t[1], "Platform", line, hostId);
  uint64_t id = 0;
  if (const int code = checkNewId_(t[2], "Custom Rendering", line, id)) return code;
  PlatformUD* host = hostId == 0 ? nullptr : scenario_.findPlatform(hostId);
  if (hostId != 0 && host == nullptr) return unknownHost_("platform", line);
  auto header = std::make_unique<CustomRenderingHeaderUD>();
  header->uniqueID = id;
  header->desc = t[3];
  header->SetRenderer(t[4]);
  auto* object = new CustomRenderingUD(&scenario_, host, std::move(header));
  const int code = object->AddToScenario(&scenario_);
  if (code != 0) delete object;
  return code;
}

int AsiKeywordHandlers::asiCustomRenderingOther_(const Tokens& t, unsigned long) {
  if (t.size() != 4) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  CustomRenderingUD* object = id_(t[1], id) ? scenario_.findCustomRendering(id) : nullptr;
  if (object == nullptr) return UD_UNKNOWN_OBJECT_ID;
  double time = 0;
  if (const int code = time_(t[2], time)) return code;
  object->AddColorCmd(time, color_(t[3]));
  return UD_NO_ERROR;
}

int AsiKeywordHandlers::asiDataTable_(const std::string& k, const Tokens& t, unsigned long) {
  if (k == "datatable") {
    if (t.size() < 6 || t.size() % 2 != 0) return UD_BAD_TOKEN_COUNT;
    uint64_t owner = 0, tableId = 0;
    if (!id_(t[1], owner) || !id_(t[2], tableId)) return UD_BAD_NUMBER;
    if (owner != 0 && scenario_.findObject(owner) == nullptr &&
        scenario_.GetProjectorManager().findProjector(owner) == nullptr)
      return UD_UNKNOWN_OBJECT_ID;
    if (tables_.count(tableId) != 0) return UD_DATATABLE_ERROR;
    DataTable* table = scenario_.AddDataTable(owner, t[3]);
    if (table == nullptr) return UD_DATATABLE_ERROR;
    for (size_t i = 4; i + 1 < t.size(); i += 2) {
      UTILS::VariableType_t type = UTILS::getVariableType(t[i + 1]);
      if (type == UTILS::VT_UNKNOWN) type = UTILS::VT_STRING;
      int64_t column = 0;
      if (table->addColumn(t[i], type, column) != 0) return UD_DATATABLE_ERROR;
    }
    tables_[tableId] = table;
    return UD_NO_ERROR;
  }
  if (t.size() < 2) return UD_BAD_TOKEN_COUNT;
  uint64_t tableId = 0;
  auto it = id_(t[1], tableId) ? tables_.find(tableId) : tables_.end();
  if (it == tables_.end()) return UD_DATATABLE_ERROR;
  DataTable& table = *it->second;
  const std::vector<int64_t> ids = table.getColumnIds();
  if (k == "datatableunits") {
    if (t.size() - 2 != ids.size()) return UD_DATATABLE_ERROR;
    for (size_t i = 0; i < ids.size(); ++i) table.setColumnUnitType(ids[i], UTILS::unitsGetTypeFromString(t[2 + i]));
    return UD_NO_ERROR;
  }
  if (k != "datatablerow") return UD_UNKNOWN_KEYWORD;
  if (t.size() < 3 || t.size() - 3 != ids.size()) return UD_DATATABLE_ERROR;
  double time = 0;
  if (const int code = time_(t[2], time)) return code;
  DataTableRowT row(time);
  int result = UD_NO_ERROR;
  for (size_t i = 0; i < ids.size(); ++i) {
    const std::string& text = t[3 + i];
    if (text == "NULL") continue;
    const UTILS::VariableType_t type = table.getColumnStorageType(ids[i]);
    DataTableCell* cell = nullptr;
    if (type == UTILS::VT_STRING) {
      cell = new DataTableCellTyped<std::string>(DataTableUtils::removeEscapeSlashes(text));
    } else {
      double value = 0;
      if (number_(text, value) || orvCore::caseCompare(text, "nan") == 0) {
        if (orvCore::caseCompare(text, "nan") == 0) value = std::nan("");
        cell = new DataTableCellTyped<double>(value);
      } else if (orvCore::caseCompare(text, "infinity") == 0 || orvCore::caseCompare(text, "inf") == 0) {
        cell = new DataTableCellTyped<double>(HUGE_VAL);
      } else if (orvCore::caseCompare(text, "-infinity") == 0 || orvCore::caseCompare(text, "-inf") == 0) {
        cell = new DataTableCellTyped<double>(-HUGE_VAL);
      } else {
        result = UD_BAD_NUMBER;
        continue;
      }
    }
    row.addCell(ids[i], cell);
  }
  if (table.addRow(row) != 0) return UD_DATATABLE_ERROR;
  return result;
}

int AsiKeywordHandlers::asiLaser_(const std::string& k, const Tokens& t, unsigned long line) {
  if (k == "laser") {
    if (t.size() != 4) return UD_BAD_TOKEN_COUNT;
    uint64_t hostId = 0, id = 0;
    if (const int code = checkHostId_(t[1], "Platform", line, hostId)) return code;
    if (const int code = checkNewId_(t[2], "Laser", line, id)) return code;
    if (scenario_.findPlatform(hostId) == nullptr) return unknownHost_("platform", line);
    return scenario_.addLaser(hostId, id, t[3]);
  }
  if (t.size() < 3) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  LaserUD* object = id_(t[1], id) ? scenario_.findLaser(id) : nullptr;
  if (object == nullptr) return UD_UNKNOWN_OBJECT_ID;
  Laser& laser = *object->laser();
  if (k == "lasercoordsystem") {
    const int system = checkCoordSystem(t[2]);
    if (system < 0) return UD_LASER_ERROR;
    laser.setCoordSystem(static_cast<orvCore::CoordinateSystem>(system));
    return UD_NO_ERROR;
  }
  if (k == "laserreflla") {
    double lat = 0, lon = 0, alt = 0;
    if (t.size() != 5 || !degrees_(t[2], lat) || !degrees_(t[3], lon) || !number_(t[4], alt)) return UD_LASER_ERROR;
    laser.setReferenceLLA(lat, lon, alt);
    return UD_NO_ERROR;
  }
  if (k == "laserazelbody") {
    bool on = false;
    if (!flag_(t[2], on)) return UD_LASER_ERROR;
    laser.setAzElBodyFlag(on);
    return UD_NO_ERROR;
  }
  if (t.size() < 4) return UD_BAD_TOKEN_COUNT;
  double time = 0, a = 0, b = 0, c = 0;
  if (const int code = time_(t[2], time)) return code;
  bool on = false;
  if (k == "laseron" && flag_(t[3], on)) laser.addOnOffDataPoint(time, on);
  else if (k == "lasercolor") laser.addColorDataPoint(time, color_(t[3]));
  // A width in pixels: anything that no 32-bit integer holds is refused.
  else if (k == "laserwidth" && number_(t[3], a) && std::fabs(a) < 2147483647.0)
    laser.addWidthDataPoint(time, static_cast<int32_t>(a));
  else if (k == "lasermaxrange" && number_(t[3], a)) laser.addMaxRangeDataPoint(time, a);
  else if (k == "laserori" && t.size() == 6 && angle_(t[3], a) && angle_(t[4], b) && angle_(t[5], c))
    laser.addOriDataPoint(time, a, b, c);
  else if (k == "laserxyzoffset" && t.size() == 6 && number_(t[3], a) && number_(t[4], b) && number_(t[5], c))
    laser.addPositionOffsetDataPoint(time, a, b, c);
  else return UD_LASER_ERROR;
  return UD_NO_ERROR;
}

int AsiKeywordHandlers::asiLOB_(const std::string& k, const Tokens& t, unsigned long line) {
  if (k == "lobid") {
    if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
    uint64_t hostId = 0, id = 0;
    if (const int code = checkHostId_(t[1], "Platform", line, hostId)) return code;
    if (const int code = checkNewId_(t[2], "LOB", line, id)) return code;
    PlatformUD* host = scenario_.findPlatform(hostId);
    if (host == nullptr) return unknownHost_("platform", line);
    auto header = std::make_unique<LOBGroupHeaderUD>();
    header->uniqueID = id;
    auto* group = new LOBGroupUD(&scenario_, host, std::move(header));
    const int code = group->addToScenario(&scenario_);
    if (code != 0) delete group;
    return code;
  }
  if (t.size() < 3) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  LOBGroupUD* group = id_(t[1], id) ? scenario_.findLOBGroup(id) : nullptr;
  if (group == nullptr) return UD_UNKNOWN_OBJECT_ID;
  if (k == "lobtype") {
    const int type = CommandsUD::indexOf(CommandsUD::LOB_GROUP_TYPES, t[2]);
    group->Header()->type = static_cast<UTILS::LOBGroupType_t>(type < 0 ? 0 : type);
    return UD_NO_ERROR;
  }
  if (k == "lobdesc") {
    group->SetDesc(t[2]);
    return UD_NO_ERROR;
  }
  double time = 0;
  if (const int code = time_(t[2], time)) return code;
  if (k == "lobdata") {
    double az = 0, el = 0, range = 0;
    if (t.size() != 6) return UD_BAD_TOKEN_COUNT;
    if (!angle_(t[3], az)) return UD_BAD_LOB_AZIMUTH;
    if (!angle_(t[4], el)) return UD_BAD_LOB_ELEVATION;
    if (!number_(t[5], range)) return UD_BAD_LOB_RANGE;
    return group->addState(time, range, orvCore::angFix(az, orvCore::AE_ZERO_TWOPI), el);
  }
  if (k == "lobdrawstyle") {
    if (t.size() != 8) return UD_BAD_TOKEN_COUNT;
    LOBDrawStyleUD style;
    style.color1 = color_(t[3]);
    style.color2 = color_(t[4]);
    // Stipples are hexadecimal bit patterns ("0xF0F0" or "F0F0"), read as
    // the command pipeline reads them; only the width is checked.
    unsigned int w = 0;
    if (!orvCore::isValidNumber(t[7], w, true)) return UD_BAD_LOB_PIXEL_WIDTH;
    style.stipple1 = UTILS::stringConvertHexToUInt(t[5]);
    style.stipple2 = UTILS::stringConvertHexToUInt(t[6]);
    style.width = w;
    return group->addDrawStyle(time, style);
  }
  return UD_UNKNOWN_KEYWORD;
}

int AsiKeywordHandlers::asiProjector_(const std::string& k, const Tokens& t, unsigned long line) {
  if (k == "projector") {
    if (t.size() != 4) return UD_BAD_TOKEN_COUNT;
    uint64_t hostId = 0, id = 0;
    if (const int code = checkHostId_(t[1], "Platform", line, hostId)) return code;
    if (const int code = checkNewId_(t[2], "Projector", line, id)) return code;
    if (scenario_.GetProjectorManager().findProjector(id) != nullptr) {
      complain_("Projector ID is not unique.  It has already been used.  Line#: ", line);
      return UD_DUP_ID_ON_LOAD;
    }
    if (scenario_.findObject(hostId) == nullptr) return unknownHost_("platform", line);
    return scenario_.AddProjector(id, hostId, t[3]) ? UD_NO_ERROR : UD_PROJECTOR_ERROR;
  }
  if (t.size() < 3) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  Projector* projector = id_(t[1], id) ? scenario_.GetProjectorManager().findProjector(id) : nullptr;
  if (projector == nullptr) return UD_PROJECTOR_ERROR;
  if (k == "projectorrasterfile") projector->setRasterFileName(t[2]);
  else if (k == "projectorinterpolatefov") {
    bool on = false;
    if (!flag_(t[2], on)) return UD_PROJECTOR_ERROR;
    projector->setInterpolateFov(on);
  }
  else {
    double time = 0, value = 0;
    if (t.size() != 4) return UD_BAD_TOKEN_COUNT;
    if (const int code = time_(t[2], time)) return code;
    bool on = false;
    if (k == "projectoron" && flag_(t[3], on)) projector->addOnOffDataPoint(time, on);
    else if (k == "projectorfov" && angle_(t[3], value)) projector->addFovDataPoint(time, value);
    else return UD_PROJECTOR_ERROR;
  }
  return UD_NO_ERROR;
}

int AsiKeywordHandlers::asiCategoryData_(const Tokens& t, unsigned long) {
  if (t.size() != 5) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  double time = 0;
  if (!id_(t[1], id)) return UD_UNKNOWN_OBJECT_ID;
  if (const int code = time_(t[2], time)) return code;
  return scenario_.addCategoryData(id, time, t[3], t[4]);
}

int AsiKeywordHandlers::asiGenericData_(const Tokens& t, unsigned long) {
  if (t.size() != 5 && t.size() != 6) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  double time = 0, expire = -1;
  if (!id_(t[1], id)) return UD_BAD_GENERIC_VALUES;
  if (const int code = time_(t[4], time)) return code;
  if (t.size() == 6 && !number_(t[5], expire)) return UD_BAD_GENERIC_VALUES;
  // Animated lines of the older forms: the bare "AnimatedLine" tag, and from
  // version 8 an "entity=" key where "entityid=" is meant.
  const std::string tag = orvCore::lowerCase(t[2]);
  if (startsWith(tag, "animatedline")) return UD_DEPRECATED_USE;
  if (scenario_.version() > 7 && startsWith(tag, "orvide_animatedline") &&
      t[3].find("entity=") != std::string::npos)
    return UD_DEPRECATED_ENTITY;
  return scenario_.addGenericData(id, t[2], t[3], time, expire);
}

int AsiKeywordHandlers::asiGenericDataLegacy_(const std::string& k, const Tokens& t, unsigned long) {
  // Events and the generic data of files up to version 6 name their object
  // by a number of their own that a "...RefID" line ties to an entity.
  if (k == "eventobjid" || k == "genericobjid") return UD_NO_ERROR;
  const bool event = startsWith(k, "event");
  std::map<uint64_t, uint64_t>& refs = event ? eventRefs_ : genericRefs_;
  if (k == "eventobjrefid" || k == "genericobjrefid") {
    uint64_t id = 0, hostId = 0;
    if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
    if (!id_(t[1], id) || !id_(t[2], hostId)) return UD_BAD_NUMBER;
    if (!refs.emplace(id, hostId).second) return UD_DUP_ID_ON_LOAD;
    return UD_NO_ERROR;
  }
  if (k != "eventdata" && k != "genericdata") return UD_UNKNOWN_KEYWORD;
  // EventData id value time [end]; GenericData id tag value time [expire].
  const size_t first = event ? 4 : 5;
  if (t.size() != first && t.size() != first + 1) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0;
  auto ref = id_(t[1], id) ? refs.find(id) : refs.end();
  if (ref == refs.end()) return UD_UNKNOWN_OBJECT_ID;
  double time = 0, extra = -1;
  if (const int code = time_(t[first - 1], time)) return code;
  if (t.size() == first + 1) {
    if (event) {
      if (const int code = time_(t[first], extra)) return code;
      extra -= time;
    } else if (!number_(t[first], extra)) {
      return UD_BAD_GENERIC_VALUES;
    }
  }
  // An expiry outside (0, 99999998) seconds is none.
  const double expire = extra > 0 && extra < 99999998 ? extra : -1;
  return event ? scenario_.addGenericData(ref->second, "EVENT", t[2], time, expire)
               : scenario_.addGenericData(ref->second, t[2], t[3], time, expire);
}

int AsiKeywordHandlers::asiOriginalID_(const Tokens& t, unsigned long) {
  if (t.size() != 3) return UD_BAD_TOKEN_COUNT;
  uint64_t id = 0, original = 0;
  if (!id_(t[1], id) || !id_(t[2], original)) return UD_BAD_NUMBER;
  if (ObjectUD* object = scenario_.findObject(id)) {
    object->SetOriginalID(original);
    return UD_NO_ERROR;
  }
  if (Projector* projector = scenario_.GetProjectorManager().findProjector(id)) {
    projector->setOriginalId(original);
    return UD_NO_ERROR;
  }
  return UD_UNKNOWN_OBJECT_ID;
}
