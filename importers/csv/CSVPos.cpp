#include "importers/csv/CSVPos.h"

#include <cstdio>
#include <iostream>

#include "core/Coordinate.h"
#include "core/StringUtils.h"
#include "core/TimeException.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"
#include "document/PlatformUD.h"
#include "document/ScenarioUD.h"
#include "importers/csv/CSVFields.h"
#include "importers/csv/CSVFile.h"
#include "importers/csv/ScoreMsgId.h"

using namespace CSVFields;

namespace {

constexpr double kStaticTime = -1.0;
constexpr int kIffFriendly = 1, kIffHostile = 2, kIffNeutral = 3, kIffUnknown = 4;

struct VehicleRule {
  const char* names[2];
  const char* icon;
  int type;
};

// First hit wins; a name is compared whole, case ignored.
const VehicleRule kVehiclesBeforeMissile[] = {
    {{"MK30", "MK39"}, "Mk30V_N.png", 12},
    {{"MK46"}, "Mk46V_N.png", 12},
    {{"MK48", "torp"}, "Mk48V_N.png", 12},
};
const VehicleRule kVehiclesAfterMissile[] = {
    {{"Sub"}, "SubV_N.png", 2},         {{"Ship"}, "ShipV_N.png", 1},
    {{"SURF"}, "UnkSurf_N.png", 1},     {{"SH60"}, "SH60V_N.png", 5},
    {{"SH2", "SH3"}, "SH3V_N.png", 5},  {{"MSL"}, "MissileV_N.png", 6},
    {{"Helo"}, "SH60V_N.png", 5},       {{"S3"}, "S3V_N.png", 3},
    {{"P3"}, "P3V_N.png", 3},           {{"F14"}, "F14V_N.png", 3},
    {{"F18"}, "F18V_N.png", 3},         {{"A6"}, "A6V_N.png", 3},
    {{"E2C"}, "E2CV_N.png", 3},         {{"AIR", "Plane"}, "IFFplane.png", 3},
    {{"Land Site"}, "LandSiteV_N.png", 9}, {{"Marker", "Diamond"}, "plus.png", 9},
    {{"SONO"}, "SonoV.png", 8},
};

template <size_t N>
const VehicleRule* findRule(const VehicleRule (&rules)[N], const std::string& vehicle) {
  for (const VehicleRule& rule : rules)
    for (const char* name : rule.names)
      if (name != nullptr && orvCore::caseCompare(vehicle, name) == 0) return &rule;
  return nullptr;
}

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
}

// The icon coloured by affinity: "_N.png" becomes "_H.png", "_U.png" or "_F.png".
std::string iconForAffinity(std::string icon, int iff) {
  switch (iff) {
    case kIffHostile: replaceAll(icon, "_N.png", "_H.png"); break;
    case kIffUnknown: replaceAll(icon, "_N.png", "_U.png"); break;
    case kIffFriendly: replaceAll(icon, "_N.png", "_F.png"); break;
    default: break;
  }
  return icon;
}

}  // namespace

std::string GetAffinityString(int iff) {
  switch (iff) {
    case kIffFriendly: return "Friendly";
    case kIffHostile: return "Hostile";
    case kIffNeutral: return "Neutral";
    default: return "Unknown";
  }
}

std::string CSVPos::GetVehicleType(const std::string& vehicle, int* platformType) {
  const VehicleRule* rule = findRule(kVehiclesBeforeMissile, vehicle);
  if (rule == nullptr && (vehicle.find("BQM") != std::string::npos || vehicle.find("Missile") != std::string::npos)) {
    if (platformType) *platformType = 6;
    return "MissileV_N.png";
  }
  if (rule == nullptr) rule = findRule(kVehiclesAfterMissile, vehicle);
  if (platformType) *platformType = rule ? rule->type : 9;
  return rule ? rule->icon : "plus.png";
}

std::string CSVPos::convertCSVName2OrvideName(const std::string& name) { return name == "RER" ? "IFF" : name; }

PlatformUD* CSVPos::findPlatform(const UniqueID& key) const {
  auto it = tracks_.find(key);
  return it == tracks_.end() ? nullptr : it->second->second;
}

void CSVPos::report_(const std::string& record, const std::string& text) const {
  writeErrorStreamUD("Line " + std::to_string(file_->lineNumber()) + " " + record + ": " + text + "\n");
}

bool CSVPos::lineTime_(const std::vector<std::string>& tokens, const char* record, double& time) const {
  try {
    time = recordTime(tokens);
    return true;
  } catch (const orvCore::TimeException& e) {
    report_(record, e.what());
    return false;
  }
}

void CSVPos::addTypeAndAffinity_(PlatformUD* platform, int type, int iff) {
  scenario_->addCategoryData(platform->UniqueID(), kStaticTime, "Platform Type", getPlatType(type));
  scenario_->addCategoryData(platform->UniqueID(), kStaticTime, "Affinity", GetAffinityString(iff));
}

void CSVPos::setOriginalId_(PlatformUD* platform, const UniqueID& key) {
  platform->SetOriginalID(
      SCORE::toOriginalID(SCORE::convertScoreTrackingSource(key.source), static_cast<uint32_t>(key.id)));
}

CSVPos::Entry* CSVPos::makePlatform_(const UniqueID& key, const std::string& icon, const std::string& callsign,
                                     int type, int iff) {
  auto header = std::make_unique<PlatformHeaderUD>(scenario_->dataFormat());
  header->uniqueID = file_->NewAsiId();
  header->iconName = iconForAffinity(icon, iff);
  header->callSign = callsign;
  header->coordSystem = orvCore::LLA;
  if (file_->converter().hasReferenceOrigin()) {
    const orvCore::Vec3 origin = file_->converter().referenceOrigin();
    header->SetReferenceLLA(origin[0], origin[1], origin[2]);
  }
  auto platform = std::make_unique<PlatformUD>(scenario_, std::move(header));
  platform->SetMotion(std::make_unique<LinearPlatMotionUD>());
  PlatformUD* raw = platform.get();
  if (raw->AddToScenario(scenario_) != UD_NO_ERROR) return nullptr;
  platform.release();  // the scenario owns it now
  addTypeAndAffinity_(raw, type, iff);

  auto entry = std::make_unique<Entry>();
  entry->first.asiId = raw->UniqueID();
  entry->second = raw;
  Entry* result = entry.get();
  tracks_[key] = std::move(entry);
  return result;
}

void CSVPos::AddLEG(const std::vector<std::string>& tokens, ScenarioUD* scenario, int dataFormat) {
  if (scenario != nullptr) scenario_ = scenario;
  UniqueID key;
  std::string callsign, vehicle, description;
  int iff = kIffNeutral;
  if (dataFormat == CSVFile::FORMAT_SCORE) {
    if (tokens.size() < 15) return;
    key = UniqueID(tokens[7], toInt(tokens[8]), 0);
    callsign = tokens[9];
    vehicle = tokens[10];
    iff = toInt(tokens[12]);
    description = tokens[7];
    for (size_t i = 8; i <= 14; ++i) description += " " + tokens[i];
  } else if (dataFormat == CSVFile::FORMAT_PMRF) {
    // A PMRF legend names its source in field 5; a shorter line has no track.
    if (tokens.size() < 6) return;
    key = UniqueID(tokens[5], toInt(tokens[1]), 0);
    callsign = tokens[2];
    vehicle = tokens[3];
  }

  auto found = tracks_.find(key);
  Entry* entry = found == tracks_.end() ? nullptr : found->second.get();
  int type = 0;
  const std::string icon = GetVehicleType(vehicle, &type);
  if (entry != nullptr) {
    std::cout << "Already seen this LEG, src= " << key.source << ", tid= " << key.id << ", updating ...\n";
    addTypeAndAffinity_(entry->second, type, iff);
    if (dataFormat != CSVFile::FORMAT_SCORE) return;
  } else {
    entry = makePlatform_(key, icon, callsign, type, iff);
    if (entry == nullptr) return;
    const uint64_t id = entry->second->UniqueID();
    if (dataFormat == CSVFile::FORMAT_SCORE) {
      scenario_->addCategoryData(id, kStaticTime, "Source", convertCSVName2OrvideName(key.source));
      scenario_->addCategoryData(id, kStaticTime, "Data Format", "SCORE CSV");
    } else {
      scenario_->addCategoryData(id, kStaticTime, "Data Format",
                                 dataFormat == CSVFile::FORMAT_PMRF ? "PMRF CSV" : "UNKNOWN CSV");
      return;
    }
  }

  PlatformUD* platform = entry->second;
  setOriginalId_(platform, key);
  // The date only times the legend's text: a bad one loses that text, not
  // the track that its positions look for.
  double time = 0.0;
  if (!lineTime_(tokens, "LEG", time)) return;
  GenericDataUD* data = nullptr;
  if (entry->first.genericDataId == 0) {
    entry->first.genericDataId = platform->UniqueID();
    data = scenario_->createGenericData(entry->first.genericDataId);
  } else {
    data = scenario_->getGenericData(entry->first.genericDataId);
  }
  if (data != nullptr) data->addState("LEG", description, time, -1.0);
}

CSVPos::Entry* CSVPos::createFakeLegend_(const UniqueID& id, int create, const std::string& icon,
                                         const std::string& callsign, int platformType) {
  auto found = tracks_.find(id);
  if (found != tracks_.end()) return found->second.get();
  if (create != 1) return nullptr;
  std::string name = callsign;
  if (name.empty()) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d %04d %04d", id.second, id.id,
                  static_cast<int>(SCORE::convertScoreTrackingSource(id.source)));
    name = text;
  }
  Entry* entry = makePlatform_(id, icon.empty() ? "UnknownV_U.png" : icon, name, platformType, kIffUnknown);
  if (entry == nullptr) return nullptr;
  scenario_->addCategoryData(entry->second->UniqueID(), kStaticTime, "Source", id.source);
  setOriginalId_(entry->second, id);
  return entry;
}

void CSVPos::AddPOS(const std::vector<std::string>& tokens, int dataFormat) {
  UniqueID key;
  if (dataFormat == CSVFile::FORMAT_SCORE) {
    if (tokens.size() < 23) return;
    key = UniqueID(tokens[7], toInt(tokens[8]), toInt(tokens[22]));
  } else if (dataFormat == CSVFile::FORMAT_PMRF) {
    // Fields run to the speed in 12; a shorter line has no position.
    if (tokens.size() < 13) return;
    key = UniqueID("PMRF", toInt(tokens[7]), 0);
  }

  Entry* entry = nullptr;
  if (lastEntry_ != nullptr && key == lastKey_) {
    entry = lastEntry_;
  } else {
    auto found = tracks_.find(key);
    if (found != tracks_.end()) entry = found->second.get();
  }
  if (entry == nullptr) {
    std::cout << "No LEG id: " << key;
    if (dataFormat != CSVFile::FORMAT_SCORE) {
      std::cout << " - Skipping data.\n";
      return;
    }
    std::cout << " - Creating a default!\n";
    if (tokens.size() >= 25 && tokens[23] == "SON")
      entry = createFakeLegend_(key, 1, "SonoV.png", tokens[24] + tokens[8], 8);
    else
      entry = createFakeLegend_(key, 1, "", "", 0);
    if (entry == nullptr) return;
  }
  lastEntry_ = entry;
  lastKey_ = key;

  double time = 0.0;
  if (!lineTime_(tokens, "POS", time)) return;
  // Negative clock fields can reach before the year; -1 would even make
  // the track static.
  if (time < 0.0) {
    report_("POS", "The time lies before the start of the year.");
    return;
  }
  const int year = toInt(tokens[1]);
  if (year != scenario_->referenceYear()) scenario_->setReferenceYear(year);

  double position[3] = {0.0, 0.0, 0.0};
  double orientation[3] = {0.0, 0.0, 0.0};
  double speed = 0.0;
  if (dataFormat == CSVFile::FORMAT_SCORE) {
    position[0] = wrapPlusMinusPi(toDouble(tokens[9]));
    position[1] = wrapPlusMinusPi(toDouble(tokens[10]));
    position[2] = toDouble(tokens[13]) * FEET_TO_METERS;
    const bool e3d = tokens.size() >= 27 && orvCore::caseCompare(tokens[23], "E3D") == 0 &&
                     !(tokens[24] == "0" && tokens[25] == "0" && tokens[26] == "0");
    if (e3d) {
      orientation[0] = wrapZeroTwoPi(toDouble(tokens[24]));
      orientation[1] = wrapPlusMinusPi(toDouble(tokens[25]));
      orientation[2] = wrapPlusMinusPi(toDouble(tokens[26]));
    } else {
      orientation[0] = wrapZeroTwoPi(toDouble(tokens[14]));
    }
    speed = toDouble(tokens[15]) * KNOTS_TO_MPS;
    if (file_->useXYZ() != 0) {
      const orvCore::Coordinate xEast(orvCore::XEAST,
                                      orvCore::Vec3(toDouble(tokens[11]) * YARDS_TO_METERS,
                                                    toDouble(tokens[12]) * YARDS_TO_METERS, position[2]));
      orvCore::Coordinate lla;
      file_->converter().convert(xEast, lla, orvCore::LLA);
      position[0] = lla.position()[0];
      position[1] = lla.position()[1];
    }
  } else if (dataFormat == CSVFile::FORMAT_PMRF) {
    position[0] = wrapPlusMinusPi(toDouble(tokens[8]));
    position[1] = wrapPlusMinusPi(toDouble(tokens[9]));
    position[2] = toDouble(tokens[10]) * FEET_TO_METERS;
    orientation[0] = wrapZeroTwoPi(toDouble(tokens[11]));
    speed = toDouble(tokens[12]) * KNOTS_TO_MPS;
  }

  const int result = entry->second->AddState(time, position, orientation, speed);
  if (result != UD_NO_ERROR) {
    report_("POS", udErrorString(result));
    return;
  }
  file_->raiseLatestPositionTime(time);
}
