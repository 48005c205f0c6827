#pragma once
// The in-memory scenario document: settings, side files, and every object
// by id (platforms, beams, gates, lasers, LOB groups, custom rendering,
// generic data), with the category, data-table, laser and projector
// managers. The document owns its objects; a platform's children go with it.
//
// Operations answer ErrorCodesUD values; nothing throws.

#include <cstdint>
#include <functional>
#include <istream>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "core/CoordinateConverter.h"
#include "datatable/CategoryData.h"
#include "datatable/DataTableManager.h"
#include "document/BeamUD.h"
#include "document/CommandsUD.h"
#include "document/CustomRenderingUD.h"
#include "document/ErrorCodesUD.h"
#include "document/GateUD.h"
#include "document/GenericDataUD.h"
#include "document/LOBGroupUD.h"
#include "document/LaserUD.h"
#include "document/PlatformUD.h"
#include "document/ProjectorUD.h"

// Kinds of side files, numbered as the writer names them.
enum EExternalFileType : int {
  EFT_DED_MAP = 1,
  EFT_GOG_FILE = 2,
  EFT_WVS_MAP = 3,
  EFT_VIEW_FILE = 4,
  EFT_IMAGE_FILE = 5,
  EFT_MEDIA_FILE = 6,
  EFT_IT_CONFIG_FILE = 7,
  EFT_RULE_FILE = 8,
  EFT_FILE = 9,
  EFT_SOUND_FILE = 10
};

// Radar cross sections by id, each from a file.
class RadarCrossSectionManagerUD {
 public:
  // False for a taken id.
  bool addRadarCrossSection(uint64_t id, const std::string& file);
  // The file of an id, or null.
  const std::string* findRadarCrossSection(uint64_t id) const;
  void clearRadarCrossSection() { files_.clear(); }
  std::vector<std::string> getFilenames() const;

 private:
  std::map<uint64_t, std::string> files_;
};

class ScenarioUD {
 public:
  // Progress of a load: answers true to cancel.
  class PercentCallback {
   public:
    virtual ~PercentCallback() = default;
    virtual bool updateProgress(int percent) = 0;
  };
  class PercentCallbackAdapter : public PercentCallback {
   public:
    explicit PercentCallbackAdapter(std::function<bool(int)> callback) : callback_(std::move(callback)) {}
    bool updateProgress(int percent) override { return callback_ ? callback_(percent) : false; }

   private:
    std::function<bool(int)> callback_;
  };
  // Finds a side file named by a file (may change the name); true if found.
  using FileFinder = std::function<bool(std::string&)>;

  ScenarioUD();
  ScenarioUD(const ScenarioUD&) = delete;
  ScenarioUD& operator=(const ScenarioUD&) = delete;
  virtual ~ScenarioUD();

  // Settings
  int version() const { return version_; }
  int setVersion(int version);
  const std::string& filename() const { return filename_; }
  int setFilename(const std::string& name);
  const std::string& desc() const { return desc_; }
  int setDesc(const std::string& text);
  int referenceYear() const { return format_.referenceYear; }
  void setReferenceYear(int year) { format_.setReferenceYear(year); }
  UTILS::UnitType_t timeFormat() const { return format_.timeFormat; }
  int setTimeFormat(UTILS::UnitType_t format);
  double saveBgn() const { return saveBgn_; }
  double saveEnd() const { return saveEnd_; }
  int setSaveBgn(double time);
  int setSaveEnd(double time);
  orvCore::CoordinateSystem coordSystem() const { return format_.coordSystem; }
  void setCoordSystem(orvCore::CoordinateSystem system) { format_.setCoordSystem(system); }
  bool degreeAngles() const { return format_.degreeAngles; }
  void setDegreeAngles(bool degrees) { format_.degreeAngles = degrees; }
  const DataFormatUD& dataFormat() const { return format_; }
  // Reference origin (radians, metres); 45 for a bad value.
  int setLatLonAlt(double lat, double lon, double alt);
  bool hasReferenceOrigin() const { return converter_.hasReferenceOrigin(); }
  const orvCore::CoordinateConverter& converter() const { return converter_; }
  int setTangentPlaneOffsets(double x, double y, double angle);
  double eciReferenceTime() const { return eciReferenceTime_; }
  int setEciReferenceTime(double seconds);
  double windAngle() const { return windAngle_; }
  double windSpeed() const { return windSpeed_; }
  int setWindAngle(double radians);
  int setWindSpeed(double speed);
  UTILS::EVerticalDatum verticalDatum() const { return verticalDatum_; }
  double verticalDatumUser() const { return verticalDatumUser_; }
  int setVerticalDatum(UTILS::EVerticalDatum datum, double user = 0.0);
  UTILS::EMagneticVariance magneticVariance() const { return magneticVariance_; }
  double magneticVarianceUser() const { return magneticVarianceUser_; }
  int setMagneticVariance(UTILS::EMagneticVariance variance, double user = 0.0);
  const std::string& classification() const { return classification_; }
  // Colour as 0xAABBGGRR, the order of ASI text.
  uint32_t classificationColor() const { return classificationColor_; }
  void setClassification(const std::string& label, uint32_t colorAABBGGRR);
  // The id that the next new object of an importer gets (1, 2, ...).
  uint64_t NewId() { return ++lastId_; }

  // Side files, per kind in order; 62 for a name already in the list.
  int addExternalFile(EExternalFileType type, const std::string& name);
  const std::vector<std::string>& getExternalFile(EExternalFileType type) const;
  void clearExternalFiles(EExternalFileType type);
  void addSoundFile(const std::string& name, double time) { soundFiles_.emplace_back(name, time); }
  const std::vector<std::pair<std::string, double>>& soundFiles() const { return soundFiles_; }

  // Objects by unique id.
  PlatformUD* findPlatform(uint64_t id) const;
  // The first platform whose call sign equals `callsign`.
  PlatformUD* findPlatform(const std::string& callsign) const;
  BeamUD* findBeam(uint64_t id) const;
  GateUD* findGate(uint64_t id) const;
  LaserUD* findLaser(uint64_t id) const;
  LOBGroupUD* findLOBGroup(uint64_t id) const;
  CustomRenderingUD* findCustomRendering(uint64_t id) const;
  // The custom rendering object of that id hosted by `hostId`.
  CustomRenderingUD* findPlatformHostedCustomRendering(uint64_t hostId, uint64_t id) const;
  // Any object of any kind with that id.
  ObjectUD* findObject(uint64_t id) const;
  const std::map<uint64_t, std::unique_ptr<PlatformUD>>& platforms() const { return platforms_; }
  const std::map<uint64_t, std::unique_ptr<BeamUD>>& beams() const { return beams_; }
  const std::map<uint64_t, std::unique_ptr<GateUD>>& gates() const { return gates_; }
  const std::map<uint64_t, std::unique_ptr<LaserUD>>& lasers() const { return lasers_; }
  const std::map<uint64_t, std::unique_ptr<LOBGroupUD>>& lobGroups() const { return lobGroups_; }
  const std::map<uint64_t, std::unique_ptr<CustomRenderingUD>>& customRenderings() const { return customRenderings_; }

  // Entry points of AddToScenario: 0, or the duplicate code of the kind
  // (10, 26, 38, 72, 73; 67 for a laser) and the caller keeps the object.
  int addPlatform(PlatformUD* platform);
  int addBeam(BeamUD* beam);
  int addGate(GateUD* gate);
  int addLOBGroup(LOBGroupUD* group);
  int addCustomRendering(CustomRenderingUD* object);
  // A new laser on a platform, its data in the LaserManager; 44 for an
  // unknown host, 67 for a taken id.
  int addLaser(uint64_t hostId, uint64_t laserId, const std::string& name, LaserUD** out = nullptr);
  int AddLaser(uint64_t hostId, uint64_t laserId, const std::string& name) { return addLaser(hostId, laserId, name); }

  // Deleting a platform deletes what it hosts; a beam its gates.
  bool deletePlatform(uint64_t id);
  bool deleteBeam(uint64_t id);
  bool deleteGate(uint64_t id);
  bool deleteLaser(uint64_t id);
  bool deleteLOBGroup(uint64_t id);
  bool deleteCustomRendering(uint64_t id);
  bool deleteGenericData(uint64_t id);

  // Generic data by entity id (0 is the scenario's own).
  GenericDataUD* getGenericData(uint64_t id) const;
  GenericDataUD* createGenericData(uint64_t id);
  int addGenericData(uint64_t id, const std::string& tag, const std::string& value, double time,
                     double expire = -1.0);
  const std::map<uint64_t, std::unique_ptr<GenericDataUD>>& genericData() const { return genericData_; }

  // Categories
  CategoryManager& categoryManager() { return categories_; }
  const CategoryManager& categoryManager() const { return categories_; }
  // A category entry of an object: 44 for an unknown object, 92 for an empty name or value.
  int addCategoryData(uint64_t id, double time, const std::string& name, const std::string& value);
  bool addAndGetCategoryName(const std::string& name, int& category) {
    return categories_.addAndGetCategoryName(name, category);
  }
  bool addAndGetCategoryNameAndValue(const std::string& name, const std::string& value, int& category, int& number) {
    return categories_.addAndGetCategoryNameAndValue(name, value, category, number);
  }
  // These repair every object's series.
  bool removeCategory(const std::string& name);
  bool removeCategoryValue(const std::string& name, const std::string& value);
  bool renameCategory(const std::string& name, const std::string& newName);
  bool renameCategoryValue(const std::string& name, const std::string& value, const std::string& newValue);
  bool copyCategoryData(uint64_t fromId, uint64_t toId);

  // Data tables, lasers, projectors
  DataTableManager& dataTables() { return tables_; }
  const DataTableManager& dataTables() const { return tables_; }
  // A new table of an owner, or null (an existing name, a bad mode).
  DataTable* AddDataTable(uint64_t ownerId, const std::string& name, uint8_t storageMode = 0);
  bool RemoveDataTable(int64_t tableId) { return tables_.deleteTable(tableId) == 0; }
  LaserManager& laserManager() { return laserManager_; }
  const LaserManager& laserManager() const { return laserManager_; }
  // Null for a taken id.
  Projector* AddProjector(uint64_t id, uint64_t hostId, const std::string& name);
  bool RemoveProjector(uint64_t id) { return projectors_.removeProjector(id); }
  ProjectorManager& GetProjectorManager() { return projectors_; }
  const ProjectorManager& GetProjectorManager() const { return projectors_; }
  RadarCrossSectionManagerUD& radarCrossSections() { return rcs_; }
  const std::string* findRadarCrossSection(uint64_t id) const { return rcs_.findRadarCrossSection(id); }
  // Antenna pattern files named by beams.
  void addAntennaPattern(const std::string& name) { antennaPatterns_.push_back(name); }
  bool findAntennaPattern(const std::string& name) const;

  // After a load
  // Resolves target commands; answers the number of failures and writes the
  // warning when there are any.
  int makeRefLinks();
  // Earliest and latest state time of platforms and beams, unless save times were given.
  void setStartEndTimes();
  double startTime() const { return startTime_; }
  double endTime() const { return endTime_; }
  bool isValid();
  bool valid() const { return valid_; }
  void update(double time);
  void cull(double degrees);
  // Makes relative side-file names relative to `directory`.
  void modifyFileNames(const std::string& directory);

  // The ASI loader and writer (document/ScenarioLoad.cpp, document/ScenarioSave.cpp).
  int load(const std::string& fileName, const FileFinder& fileFinder = nullptr, PercentCallback* callback = nullptr);
  int load(std::istream& stream, const FileFinder& fileFinder = nullptr, bool flag = false,
           PercentCallback* callback = nullptr, std::streamoff size = -1);
  int save(const std::string& fileName, orvCore::CoordinateSystem system);
  int save(std::ostream& stream, orvCore::CoordinateSystem system);

 private:
  template <typename Map>
  static typename Map::mapped_type::pointer find_(const Map& map, uint64_t id) {
    auto it = map.find(id);
    return it == map.end() ? nullptr : it->second.get();
  }
  void forEachObject_(const std::function<void(ObjectUD&)>& visit) const;

  int version_ = UD_HIGHEST_VERSION;
  std::string filename_;
  std::string desc_;
  DataFormatUD format_;
  double saveBgn_ = -1.0;
  double saveEnd_ = -1.0;
  orvCore::CoordinateConverter converter_;
  double eciReferenceTime_ = 0.0;
  double windAngle_ = 0.0;
  double windSpeed_ = 0.0;
  UTILS::EVerticalDatum verticalDatum_ = UTILS::VD_WGS84;
  double verticalDatumUser_ = 0.0;
  UTILS::EMagneticVariance magneticVariance_ = UTILS::MV_TRUE;
  double magneticVarianceUser_ = 0.0;
  std::string classification_;
  uint32_t classificationColor_ = 0;
  uint64_t lastId_ = 0;
  double startTime_ = -1.0;
  double endTime_ = -1.0;
  bool valid_ = false;

  std::map<EExternalFileType, std::vector<std::string>> externalFiles_;
  std::vector<std::pair<std::string, double>> soundFiles_;
  std::vector<std::string> antennaPatterns_;

  // Declared before the objects: objects may refer to the managers' data
  // (a laser object to its Laser) while they are destroyed.
  CategoryManager categories_;
  DataTableManager tables_;
  LaserManager laserManager_;
  ProjectorManager projectors_;
  RadarCrossSectionManagerUD rcs_;

  std::map<uint64_t, std::unique_ptr<PlatformUD>> platforms_;
  std::map<uint64_t, std::unique_ptr<BeamUD>> beams_;
  std::map<uint64_t, std::unique_ptr<GateUD>> gates_;
  std::map<uint64_t, std::unique_ptr<LaserUD>> lasers_;
  std::map<uint64_t, std::unique_ptr<LOBGroupUD>> lobGroups_;
  std::map<uint64_t, std::unique_ptr<CustomRenderingUD>> customRenderings_;
  std::map<uint64_t, std::unique_ptr<GenericDataUD>> genericData_;
};
