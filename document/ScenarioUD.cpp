#include "document/ScenarioUD.h"

#include <algorithm>
#include <cmath>
#include <ctime>

#include "core/FileUtils.h"
#include "document/ConvenienceFuncsUD.h"

bool RadarCrossSectionManagerUD::addRadarCrossSection(uint64_t id, const std::string& file) {
  return files_.emplace(id, file).second;
}

const std::string* RadarCrossSectionManagerUD::findRadarCrossSection(uint64_t id) const {
  auto it = files_.find(id);
  return it == files_.end() ? nullptr : &it->second;
}

std::vector<std::string> RadarCrossSectionManagerUD::getFilenames() const {
  std::vector<std::string> names;
  for (const auto& entry : files_) names.push_back(entry.second);
  return names;
}

ScenarioUD::ScenarioUD() {
  format_.setReferenceYear(udCurrentYear());
  tables_.setOwnerIdNameMapping(
      [this](uint64_t id) {
        const ObjectUD* object = findObject(id);
        return object ? object->Desc() : std::string();
      },
      [this](const std::string& name, uint64_t& id) {
        const PlatformUD* platform = findPlatform(name);
        if (platform) id = platform->UniqueID();
        return platform != nullptr;
      });
}

// Children before parents, so that no object outlives what it points to.
ScenarioUD::~ScenarioUD() {
  genericData_.clear();
  gates_.clear();
  beams_.clear();
  lasers_.clear();
  lobGroups_.clear();
  customRenderings_.clear();
  platforms_.clear();
}

int ScenarioUD::setVersion(int version) {
  if (version < 2 || version > UD_HIGHEST_VERSION) return UD_BAD_VERSION;
  version_ = version;
  return UD_NO_ERROR;
}

int ScenarioUD::setFilename(const std::string& name) {
  if (name.empty()) return UD_BAD_SCEN_FILENAME;
  filename_ = name;
  return UD_NO_ERROR;
}

int ScenarioUD::setDesc(const std::string& text) {
  desc_ = text;
  return UD_NO_ERROR;
}

int ScenarioUD::setTimeFormat(UTILS::UnitType_t format) {
  if (format < UTILS::UNITS_SECONDS || format > UTILS::UNITS_DTG) return UD_BAD_TIME_FORMAT;
  format_.setTimeFormat(format);
  return UD_NO_ERROR;
}

int ScenarioUD::setSaveBgn(double time) {
  if (!udIsFinite(time) || (saveEnd_ >= 0.0 && time > saveEnd_)) return UD_BAD_BEGIN_END_TIMES;
  saveBgn_ = time;
  return UD_NO_ERROR;
}

int ScenarioUD::setSaveEnd(double time) {
  if (!udIsFinite(time) || (saveBgn_ >= 0.0 && time < saveBgn_)) return UD_BAD_BEGIN_END_TIMES;
  saveEnd_ = time;
  return UD_NO_ERROR;
}

int ScenarioUD::setLatLonAlt(double lat, double lon, double alt) {
  if (udIsBadValue(lat) || udIsBadValue(lon) || udIsBadValue(alt) || udIsBadElevAngle(lat) || udIsBadAngle(lon))
    return UD_BAD_SCEN_REFLLA;
  converter_.setReferenceOrigin(lat, lon, alt);
  return UD_NO_ERROR;
}

int ScenarioUD::setTangentPlaneOffsets(double x, double y, double angle) {
  if (udIsBadValue(x) || udIsBadValue(y) || udIsBadValue(angle) || udIsBadAngle(angle))
    return UD_BAD_SCEN_TANGENT_PLANE;
  converter_.setTangentPlaneOffsets(x, y, angle);
  return UD_NO_ERROR;
}

int ScenarioUD::setEciReferenceTime(double seconds) {
  if (!udIsFinite(seconds) || seconds < 0.0 || seconds > 86400.0) return UD_BAD_ECI_TIME;
  eciReferenceTime_ = seconds;
  return UD_NO_ERROR;
}

int ScenarioUD::setWindAngle(double radians) {
  if (udIsBadValue(radians) || udIsBadAngle(radians)) return UD_BAD_WIND_ANGLE;
  windAngle_ = radians;
  return UD_NO_ERROR;
}

int ScenarioUD::setWindSpeed(double speed) {
  if (udIsBadValue(speed) || speed < 0.0) return UD_BAD_WIND_SPEED;
  windSpeed_ = speed;
  return UD_NO_ERROR;
}

int ScenarioUD::setVerticalDatum(UTILS::EVerticalDatum datum, double user) {
  if (datum < UTILS::VD_WGS84 || datum > UTILS::VD_USER || udIsBadValue(user)) return UD_BAD_SCEN_VERTICAL_DATUM;
  verticalDatum_ = datum;
  verticalDatumUser_ = user;
  return UD_NO_ERROR;
}

int ScenarioUD::setMagneticVariance(UTILS::EMagneticVariance variance, double user) {
  if (variance < UTILS::MV_TRUE || variance > UTILS::MV_USER || udIsBadValue(user))
    return UD_BAD_SCEN_MAGNETIC_VARIANCE;
  magneticVariance_ = variance;
  magneticVarianceUser_ = user;
  return UD_NO_ERROR;
}

void ScenarioUD::setClassification(const std::string& label, uint32_t colorAABBGGRR) {
  classification_ = label;
  classificationColor_ = colorAABBGGRR;
}

int ScenarioUD::addExternalFile(EExternalFileType type, const std::string& name) {
  std::vector<std::string>& list = externalFiles_[type];
  if (std::find(list.begin(), list.end(), name) != list.end()) return UD_DUP_FILE;
  list.push_back(name);
  return UD_NO_ERROR;
}

const std::vector<std::string>& ScenarioUD::getExternalFile(EExternalFileType type) const {
  static const std::vector<std::string> none;
  auto it = externalFiles_.find(type);
  return it == externalFiles_.end() ? none : it->second;
}

void ScenarioUD::clearExternalFiles(EExternalFileType type) { externalFiles_.erase(type); }

PlatformUD* ScenarioUD::findPlatform(uint64_t id) const { return find_(platforms_, id); }

PlatformUD* ScenarioUD::findPlatform(const std::string& callsign) const {
  for (const auto& entry : platforms_)
    if (entry.second->Desc() == callsign) return entry.second.get();
  return nullptr;
}

BeamUD* ScenarioUD::findBeam(uint64_t id) const { return find_(beams_, id); }
GateUD* ScenarioUD::findGate(uint64_t id) const { return find_(gates_, id); }
LaserUD* ScenarioUD::findLaser(uint64_t id) const { return find_(lasers_, id); }
LOBGroupUD* ScenarioUD::findLOBGroup(uint64_t id) const { return find_(lobGroups_, id); }
CustomRenderingUD* ScenarioUD::findCustomRendering(uint64_t id) const { return find_(customRenderings_, id); }

CustomRenderingUD* ScenarioUD::findPlatformHostedCustomRendering(uint64_t hostId, uint64_t id) const {
  const PlatformUD* host = findPlatform(hostId);
  return host ? host->FindCustomRendering(id) : nullptr;
}

ObjectUD* ScenarioUD::findObject(uint64_t id) const {
  if (ObjectUD* o = findPlatform(id)) return o;
  if (ObjectUD* o = findBeam(id)) return o;
  if (ObjectUD* o = findGate(id)) return o;
  if (ObjectUD* o = findLaser(id)) return o;
  if (ObjectUD* o = findLOBGroup(id)) return o;
  return findCustomRendering(id);
}

namespace {

template <typename Map, typename Object>
int enter(Map& map, Object* object, int duplicate) {
  const uint64_t id = object->UniqueID();
  if (map.count(id) != 0) return duplicate;
  map[id].reset(object);
  return UD_NO_ERROR;
}

}  // namespace

int ScenarioUD::addPlatform(PlatformUD* platform) {
  platform->setScenario(this);
  return enter(platforms_, platform, UD_DUP_PLATFORM);
}

int ScenarioUD::addBeam(BeamUD* beam) {
  beam->setScenario(this);
  const int code = enter(beams_, beam, UD_DUP_BEAM);
  if (code == UD_NO_ERROR && beam->host()) beam->host()->AddBeam(beam);
  return code;
}

int ScenarioUD::addGate(GateUD* gate) {
  gate->setScenario(this);
  const int code = enter(gates_, gate, UD_DUP_GATE);
  if (code == UD_NO_ERROR && gate->host()) gate->host()->AddGate(gate);
  return code;
}

int ScenarioUD::addLOBGroup(LOBGroupUD* group) {
  group->setScenario(this);
  const int code = enter(lobGroups_, group, UD_DUP_LOB);
  if (code == UD_NO_ERROR && group->host()) group->host()->AddLOBGroup(group);
  return code;
}

int ScenarioUD::addCustomRendering(CustomRenderingUD* object) {
  object->setScenario(this);
  const int code = enter(customRenderings_, object, UD_DUP_CUSTOM_RENDERING);
  if (code == UD_NO_ERROR && object->host()) object->host()->AddCustomRendering(object);
  return code;
}

int ScenarioUD::addLaser(uint64_t hostId, uint64_t laserId, const std::string& name, LaserUD** out) {
  PlatformUD* host = findPlatform(hostId);
  if (host == nullptr) return UD_UNKNOWN_OBJECT_ID;
  if (lasers_.count(laserId) != 0) return UD_LASER_ERROR;
  Laser* laser = laserManager_.addLaser(laserId, hostId, name);
  if (laser == nullptr) return UD_LASER_ERROR;
  auto object = std::make_unique<LaserUD>(this, host, laser);
  host->AddLaser(object.get());
  if (out) *out = object.get();
  lasers_[laserId] = std::move(object);
  return UD_NO_ERROR;
}

bool ScenarioUD::deleteGate(uint64_t id) {
  auto it = gates_.find(id);
  if (it == gates_.end()) return false;
  if (BeamUD* host = it->second->host()) host->RemoveGate(id);
  tables_.deleteOwnersTables(id);
  genericData_.erase(id);
  gates_.erase(it);
  return true;
}

bool ScenarioUD::deleteBeam(uint64_t id) {
  auto it = beams_.find(id);
  if (it == beams_.end()) return false;
  const std::vector<GateUD*> gates = it->second->gates();
  for (GateUD* gate : gates) deleteGate(gate->UniqueID());
  if (PlatformUD* host = it->second->host()) host->RemoveBeam(id);
  tables_.deleteOwnersTables(id);
  genericData_.erase(id);
  beams_.erase(it);
  return true;
}

bool ScenarioUD::deleteLaser(uint64_t id) {
  auto it = lasers_.find(id);
  if (it == lasers_.end()) return false;
  if (PlatformUD* host = it->second->host()) host->RemoveLaser(id);
  lasers_.erase(it);
  laserManager_.removeLaser(id);
  genericData_.erase(id);
  return true;
}

bool ScenarioUD::deleteLOBGroup(uint64_t id) {
  auto it = lobGroups_.find(id);
  if (it == lobGroups_.end()) return false;
  if (PlatformUD* host = it->second->host()) host->RemoveLOBGroup(id);
  tables_.deleteOwnersTables(id);
  genericData_.erase(id);
  lobGroups_.erase(it);
  return true;
}

bool ScenarioUD::deleteCustomRendering(uint64_t id) {
  auto it = customRenderings_.find(id);
  if (it == customRenderings_.end()) return false;
  if (PlatformUD* host = it->second->host()) host->RemoveCustomRendering(id);
  tables_.deleteOwnersTables(id);
  genericData_.erase(id);
  customRenderings_.erase(it);
  return true;
}

bool ScenarioUD::deletePlatform(uint64_t id) {
  auto it = platforms_.find(id);
  if (it == platforms_.end()) return false;
  PlatformUD* platform = it->second.get();
  for (BeamUD* beam : std::vector<BeamUD*>(platform->beams())) deleteBeam(beam->UniqueID());
  for (LaserUD* laser : std::vector<LaserUD*>(platform->lasers())) deleteLaser(laser->UniqueID());
  for (LOBGroupUD* group : std::vector<LOBGroupUD*>(platform->lobGroups())) deleteLOBGroup(group->UniqueID());
  for (CustomRenderingUD* object : std::vector<CustomRenderingUD*>(platform->customRenderings()))
    deleteCustomRendering(object->UniqueID());
  tables_.deleteOwnersTables(id);
  genericData_.erase(id);
  platforms_.erase(it);
  return true;
}

bool ScenarioUD::deleteGenericData(uint64_t id) { return genericData_.erase(id) != 0; }

GenericDataUD* ScenarioUD::getGenericData(uint64_t id) const { return find_(genericData_, id); }

GenericDataUD* ScenarioUD::createGenericData(uint64_t id) {
  std::unique_ptr<GenericDataUD>& slot = genericData_[id];
  if (!slot) slot = std::make_unique<GenericDataUD>(static_cast<unsigned long>(id));
  return slot.get();
}

int ScenarioUD::addGenericData(uint64_t id, const std::string& tag, const std::string& value, double time,
                               double expire) {
  if (id != 0 && findObject(id) == nullptr) return UD_UNKNOWN_OBJECT_ID;
  switch (createGenericData(id)->addState(tag, value, time, expire)) {
    case 0: return UD_NO_ERROR;
    case 3: return UD_GENERIC_EXISTS;
    case 2: return UD_BAD_TIME_VALUE;
    default: return UD_BAD_GENERIC_VALUES;
  }
}

int ScenarioUD::addCategoryData(uint64_t id, double time, const std::string& name, const std::string& value) {
  ObjectUD* object = findObject(id);
  if (object == nullptr) return UD_UNKNOWN_OBJECT_ID;
  int category = CategoryValues::NONE;
  int number = CategoryValues::NONE;
  if (!categories_.addAndGetCategoryNameAndValue(name, value, category, number)) return UD_EMPTY_STRING;
  object->_AddCategoryData(time, category, number);
  return UD_NO_ERROR;
}

void ScenarioUD::forEachObject_(const std::function<void(ObjectUD&)>& visit) const {
  for (const auto& e : platforms_) visit(*e.second);
  for (const auto& e : beams_) visit(*e.second);
  for (const auto& e : gates_) visit(*e.second);
  for (const auto& e : lasers_) visit(*e.second);
  for (const auto& e : lobGroups_) visit(*e.second);
  for (const auto& e : customRenderings_) visit(*e.second);
}

bool ScenarioUD::removeCategory(const std::string& name) {
  const int category = categories_.removeCategory(name);
  if (category == CategoryValues::NONE) return false;
  forEachObject_([category](ObjectUD& o) { o.RemoveCategoryFromData(category); });
  return true;
}

bool ScenarioUD::removeCategoryValue(const std::string& name, const std::string& value) {
  int category = CategoryValues::NONE;
  if (!categories_.getCategoryName(name, category)) return false;
  const int number = categories_.removeCategoryValue(category, value);
  if (number == CategoryValues::NONE) return false;
  forEachObject_([category, number](ObjectUD& o) { o.RemoveCategoryValueFromData(category, number); });
  return true;
}

bool ScenarioUD::renameCategory(const std::string& name, const std::string& newName) {
  int category = CategoryValues::NONE;
  return categories_.getCategoryName(name, category) && categories_.renameCategory(category, newName);
}

bool ScenarioUD::renameCategoryValue(const std::string& name, const std::string& value, const std::string& newValue) {
  int category = CategoryValues::NONE;
  int number = CategoryValues::NONE;
  return categories_.getCategoryNameAndValue(name, value, category, number) &&
         categories_.renameCategoryValue(category, number, newValue);
}

bool ScenarioUD::copyCategoryData(uint64_t fromId, uint64_t toId) {
  const ObjectUD* from = findObject(fromId);
  ObjectUD* to = findObject(toId);
  if (from == nullptr || to == nullptr) return false;
  to->_CopyCategoryData(*from);
  return true;
}

DataTable* ScenarioUD::AddDataTable(uint64_t ownerId, const std::string& name, uint8_t storageMode) {
  DataTable* table = nullptr;
  return tables_.addTable(ownerId, name, table, nullptr, storageMode) == DataTableCodes::OK ? table : nullptr;
}

Projector* ScenarioUD::AddProjector(uint64_t id, uint64_t hostId, const std::string& name) {
  return projectors_.addProjector(id, hostId, name);
}

bool ScenarioUD::findAntennaPattern(const std::string& name) const {
  return std::find(antennaPatterns_.begin(), antennaPatterns_.end(), name) != antennaPatterns_.end();
}

int ScenarioUD::makeRefLinks() {
  int failures = 0;
  for (const auto& entry : beams_) failures += entry.second->MakeRefLinks();
  for (const auto& entry : genericData_)
    if (entry.first != 0 && findObject(entry.first) == nullptr && projectors_.findProjector(entry.first) == nullptr)
      ++failures;
  if (failures != 0) writeErrorStreamUD("Warning: Problem detected when resolving IDs or callsigns.  See console.\n");
  return failures;
}

void ScenarioUD::setStartEndTimes() {
  double start = -1.0;
  double end = -1.0;
  auto take = [&start, &end](double first, double last) {
    // Static states (-1) and empty motions bound nothing.
    if (first >= 0.0 && (start < 0.0 || first < start)) start = first;
    if (last >= 0.0 && (end < 0.0 || last > end)) end = last;
  };
  for (const auto& entry : platforms_) take(entry.second->StartTime(), entry.second->EndTime());
  for (const auto& entry : beams_)
    if (entry.second->motion()) take(entry.second->motion()->StartTime(), entry.second->motion()->EndTime());
  startTime_ = saveBgn_ >= 0.0 ? saveBgn_ : start;
  endTime_ = saveEnd_ >= 0.0 ? saveEnd_ : end;
}

bool ScenarioUD::isValid() {
  valid_ = false;
  if (startTime_ < 0.0 || endTime_ < 0.0) setStartEndTimes();
  if (startTime_ < 0.0) {
    writeErrorStreamUD("\n\nERROR  Scenario Start time has not been set.\n\n");
    return false;
  }
  if (endTime_ < 0.0) {
    writeErrorStreamUD("\n\nERROR  Scenario End time has not been set.\n\n");
    return false;
  }
  if (!converter_.hasReferenceOrigin()) {
    writeErrorStreamUD("\n\nERROR  Scenario Reference origin has not been set.\n\n");
    return false;
  }
  if (static_cast<int>(format_.coordSystem) > 9) return false;
  valid_ = true;
  return true;
}

void ScenarioUD::update(double time) {
  for (const auto& entry : platforms_) entry.second->Update(time);
  for (const auto& entry : tables_.lists()) entry.second->update(time);
  laserManager_.update(time);
}

void ScenarioUD::cull(double degrees) {
  for (const auto& entry : platforms_) entry.second->cull(degrees);
}

void ScenarioUD::modifyFileNames(const std::string& directory) {
  if (directory.empty()) return;
  for (auto& entry : externalFiles_)
    for (std::string& name : entry.second)
      if (!name.empty() && UTILS::fileIsRelative(name)) name = directory + "/" + name;
}
