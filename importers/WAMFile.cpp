#include "importers/WAMFile.h"

#include <cmath>
#include <map>
#include <memory>
#include <sstream>

#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"
#include "importers/ImporterSupport.h"
#include "importers/wam/WAMLibrary.h"
#include "importers/wam/WAMMapping.h"

using WAMLib::WAMPlatform;
using WAMLib::WAMPoint;

namespace {

constexpr double kDegToRad = M_PI / 180.0;
constexpr double kKnotsToMetresPerSecond = 0.51444444;
constexpr double kEarthRadius = 6371000.0;

std::string orNotFound(const std::string& text) { return text.empty() ? "Not Found" : text; }

// Great-circle speed in knots between two points `seconds` apart.
double calculatedSpeed(const WAMPoint& from, const WAMPoint& to, double seconds) {
  if (seconds <= 0.0) return 0.0;
  const double lat1 = from.latitude * kDegToRad, lat2 = to.latitude * kDegToRad;
  const double dLat = lat2 - lat1, dLon = (to.longitude - from.longitude) * kDegToRad;
  const double a = std::sin(dLat / 2) * std::sin(dLat / 2) +
                   std::cos(lat1) * std::cos(lat2) * std::sin(dLon / 2) * std::sin(dLon / 2);
  const double metres = 2.0 * kEarthRadius * std::asin(std::sqrt(std::min(1.0, a)));
  return metres / seconds / kKnotsToMetresPerSecond;
}

struct DropCounts {
  size_t time = 0, speed = 0, position = 0, localTQ = 0;
};

// Walks one track's points through the filters and into its platform.
class TrackConverter {
 public:
  TrackConverter(ScenarioUD* scenario, const WAMLib::WAMMapping& mapping, int referenceYear)
      : scenario_(scenario), mapping_(mapping), referenceYear_(referenceYear) {}

  // False when the document refused a state.
  bool convert(const WAMPlatform& platform);

 private:
  double absoluteTime_(const WAMPoint& point) const {
    return point.time + Importers::yearOffset(referenceYear_, point.year);
  }
  bool passes_(const WAMPlatform& platform, const WAMPoint& point, const WAMPoint* last, DropCounts& dropped) const;
  uint64_t createPlatform_(const WAMPlatform& platform, const WAMPoint& point, const std::string& name);
  void addPointCategories_(uint64_t id, double time, const WAMPoint& point, std::map<std::string, std::string>& last);

  ScenarioUD* scenario_;
  const WAMLib::WAMMapping& mapping_;
  int referenceYear_;
};

bool TrackConverter::passes_(const WAMPlatform& platform, const WAMPoint& point, const WAMPoint* last,
                             DropCounts& dropped) const {
  const double time = absoluteTime_(point);
  if (last && time <= absoluteTime_(*last)) return ++dropped.time, false;
  if (mapping_.maximumSpeedFilter() >= 0.0) {
    double speed = point.hasSpeed ? point.speed : 0.0;
    if (mapping_.useCalculatedSpeedFilter() && last)
      speed = calculatedSpeed(*last, point, time - absoluteTime_(*last));
    if (speed > mapping_.maximumSpeedFilter()) return ++dropped.speed, false;
  }
  // A position that is no number is no place at all, whatever the source.
  if (!std::isfinite(point.latitude) || !std::isfinite(point.longitude)) return ++dropped.position, false;
  const std::string& source =
      point.text[WAMPoint::SOURCE].empty() ? platform.track.source : point.text[WAMPoint::SOURCE];
  if (source != "GALAXY") {
    const bool atOrigin = point.latitude == 0.0 && point.longitude == 0.0;
    const bool repeated = mapping_.ignoreDuplicatePosition() && last && last->latitude == point.latitude &&
                          last->longitude == point.longitude;
    if (atOrigin || repeated) return ++dropped.position, false;
  }
  if (mapping_.rejectLocalTrackQuality() >= 0.0 && point.hasLocalTQ &&
      point.localTQ <= mapping_.rejectLocalTrackQuality())
    return ++dropped.localTQ, false;
  return true;
}

uint64_t TrackConverter::createPlatform_(const WAMPlatform& platform, const WAMPoint& point,
                                         const std::string& name) {
  const uint64_t id = scenario_->NewId();
  auto header = std::make_unique<PlatformHeaderUD>(scenario_->dataFormat());
  header->uniqueID = id;
  header->iconName = mapping_.icon(name, "x");
  header->callSign = name;
  header->coordSystem = orvCore::LLA;
  header->SetReferenceLLA(point.latitude * kDegToRad, point.longitude * kDegToRad, point.altitude);
  auto made = std::make_unique<PlatformUD>(scenario_, std::move(header));
  if (made->AddToScenario(scenario_) != UD_NO_ERROR) return 0;
  made.release();
  const WAMLib::WAMTrack& track = platform.track;
  const std::pair<const char*, const std::string*> categories[] = {
      {"Platform Type", &track.platformType}, {"Unit Type", &track.unitType}, {"Unit Number", &track.unit},
      {"Track Source", &track.source},        {"Data Source", &track.dataSource}, {"Country", &track.country},
      {"Mission", &track.mission},            {"Exercise", &track.exercise},   {"Taxonomy", &track.taxonomy},
      {"Truth Data", &track.truth}};
  scenario_->addCategoryData(id, -1.0, "Data Format", "WAM");
  for (const auto& category : categories)
    scenario_->addCategoryData(id, -1.0, category.first, orNotFound(*category.second));
  return id;
}

void TrackConverter::addPointCategories_(uint64_t id, double time, const WAMPoint& point,
                                         std::map<std::string, std::string>& last) {
  auto add = [&](const char* name, const std::string& value) {
    auto& previous = last[name];
    if (previous == value) return;
    previous = value;
    scenario_->addCategoryData(id, time, name, value);
  };
  if (point.carriesLocalTQ) add("Local Track Quality", orNotFound(point.localTQText));
  if (point.carriesRemoteTQ) add("Remote Track Quality", orNotFound(point.remoteTQText));
  for (int i = 0; i < WAMPoint::TEXT_COUNT; ++i) {
    const auto field = static_cast<WAMPoint::Text>(i);
    const char* name = WAMPoint::categoryName(field);
    if (!point.carried[i] || *name == '\0') continue;
    add(name, field == WAMPoint::CATEGORY ? WAMLib::domainText(point.text[i]) : orNotFound(point.text[i]));
  }
}

bool TrackConverter::convert(const WAMPlatform& platform) {
  const std::string name = getPlatformName(&platform);
  DropCounts dropped;
  const WAMPoint* last = nullptr;
  uint64_t id = 0;
  PlatformUD* made = nullptr;
  std::map<std::string, std::string> lastCategories;
  bool ok = true;
  for (const auto& entry : platform.points) {
    const WAMPoint& point = *entry;
    if (!passes_(platform, point, last, dropped)) continue;
    last = &point;
    if (made == nullptr) {
      if (!scenario_->hasReferenceOrigin())
        scenario_->setLatLonAlt(point.latitude * kDegToRad, point.longitude * kDegToRad, 0.0);
      id = createPlatform_(platform, point, name);
      made = id ? scenario_->findPlatform(id) : nullptr;
      if (made == nullptr) return false;
    }
    const double time = absoluteTime_(point);
    const double position[3] = {point.latitude * kDegToRad, point.longitude * kDegToRad, point.altitude};
    double orientation[3] = {0.0, 0.0, 0.0};
    const bool hasCourse = point.hasCourse && Importers::courseRadians(point.course, orientation[0]);
    if (made->AddState(time, position, hasCourse ? orientation : nullptr,
                       point.hasSpeed ? point.speed * kKnotsToMetresPerSecond : -1.0) != UD_NO_ERROR)
      ok = false;
    addPointCategories_(id, time, point, lastCategories);
  }
  if (made != nullptr && made->Motion()->Size() == 0) {
    scenario_->deletePlatform(id);
    made = nullptr;
  }
  if (made == nullptr) {
    Importers::tellInfo(name + " dropped due to no valid points!\n");
    return ok;
  }
  std::ostringstream summary;
  summary << name << " Points Processed: " << platform.points.size() << '\n';
  if (dropped.time || dropped.speed || dropped.position || dropped.localTQ) {
    summary << "  Dropped by";
    if (dropped.time) summary << " Time: " << dropped.time;
    if (dropped.speed) summary << " Speed: " << dropped.speed;
    if (dropped.position) summary << " Position: " << dropped.position;
    if (dropped.localTQ) summary << " Local TQ: " << dropped.localTQ;
    summary << '\n';
  }
  Importers::tellInfo(summary.str());
  return ok;
}

}  // namespace

std::string getPlatformName(const WAMPlatform* platform) {
  const std::string& name = platform->track.name;
  if (!name.empty() && name != "_") return name;
  const std::string id = platform->track.unitTrackID();
  return id.empty() || id == "_" ? "Unknown Track" : id;
}

bool convertWAMFile(ScenarioUD* scenario, const WAMLib::WAMLibrary& library, const WAMLib::WAMMapping& mapping) {
  TrackConverter converter(scenario, mapping, scenario->referenceYear());
  bool ok = true;
  for (const auto& entry : library.platforms()) ok = converter.convert(entry.second) && ok;
  return ok;
}

int ParseWAMFile(const std::string& fileName, ScenarioUD* scenario, ScenarioUD::PercentCallback* progress) {
  Importers::tellInfo("Parsing WAM File : " + fileName + "\n");
  std::ostringstream errors, info;
  WAMLib::WAMMapping mapping;
  mapping.load(info, errors);
  Importers::tellInfo(info.str());
  WAMLib::WAMLibrary library;
  WAMLib::WAMLibrary::Progress told;
  if (progress) told = [progress](int percent) { return progress->updateProgress(percent); };
  const int dropped = library.parseFile(fileName, errors, told);
  if (dropped == WAMLib::WAMLibrary::kCanceled) return UD_USER_CANCEL;
  if (dropped < 0 || library.recordCount() == 0) {
    if (dropped >= 0) errors << "Empty WAM data file encountered.\n";
    Importers::tellFault(errors.str());
    return 1;
  }
  scenario->setCoordSystem(orvCore::LLA);
  if (library.firstYear() > 0) scenario->setReferenceYear(library.firstYear());
  scenario->setClassification(mapping.classification(),
                              mapping.classificationColor() ? mapping.classificationColor() : 0x8000ff00u);
  scenario->setDesc(fileName);
  if (dropped > 0) errors << "\nFile processing errors occurred while loading: " << fileName << '\n';
  if (!convertWAMFile(scenario, library, mapping))
    errors << "File encountered errors while loading: " << fileName << '\n';
  if (!errors.str().empty()) Importers::tellFault(errors.str());
  return 0;
}

ImporterEntry wamImporter() {
  return Importers::readerEntry({".wam"}, "WAM", [](const std::string& path, ScenarioUD& scenario,
                                                   ScenarioUD::PercentCallback* progress) {
    return ParseWAMFile(path, &scenario, progress);
  });
}
