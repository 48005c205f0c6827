#pragma once
// Lasers: the data of each is a Laser held by the scenario's LaserManager,
// its time-tagged values in a data table; LaserUD is the document object
// that stands for it on its platform.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "datatable/DataTable.h"
#include "document/ObjectUD.h"

class Laser {
 public:
  // The columns of the laser's table, by column id.
  enum Column : int64_t {
    COL_ON_OFF = 0, COL_YAW, COL_PITCH, COL_ROLL, COL_WIDTH, COL_MAX_RANGE, COL_COLOR, COL_OFFSET_X, COL_OFFSET_Y,
    COL_OFFSET_Z
  };

  Laser(uint64_t id, uint64_t hostId, const std::string& name);

  uint64_t id() const { return id_; }
  uint64_t hostId() const { return hostId_; }
  void setHostId(uint64_t id) { hostId_ = id; }
  const std::string& name() const { return name_; }
  void setName(const std::string& name) { name_ = name; }
  uint64_t originalId() const { return originalId_; }
  void setOriginalId(uint64_t id) { originalId_ = id; }

  void addOnOffDataPoint(double time, bool on);
  void addOriDataPoint(double time, double yaw, double pitch, double roll);
  void addWidthDataPoint(double time, int32_t width);
  void addMaxRangeDataPoint(double time, double range);
  void addColorDataPoint(double time, uint32_t color);
  void addPositionOffsetDataPoint(double time, double x, double y, double z);

  void setReferenceLLA(double lat, double lon, double alt) {
    refLLA_[0] = lat;
    refLLA_[1] = lon;
    refLLA_[2] = alt;
  }
  const double* referenceLLA() const { return refLLA_; }
  orvCore::CoordinateSystem coordSystem() const { return coordSystem_; }
  void setCoordSystem(orvCore::CoordinateSystem system) { coordSystem_ = system; }
  bool azElBodyFlag() const { return azElBody_; }
  void setAzElBodyFlag(bool flag) { azElBody_ = flag; }

  DataTable& table() { return table_; }
  const DataTable& table() const { return table_; }

 private:
  void addRow_(double time, std::initializer_list<std::pair<int64_t, DataTableCell*>> cells);

  uint64_t id_;
  uint64_t hostId_;
  uint64_t originalId_ = 0;
  std::string name_;
  double refLLA_[3] = {0.0, 0.0, 0.0};
  orvCore::CoordinateSystem coordSystem_ = orvCore::LLA;
  bool azElBody_ = false;
  DataTable table_;
};

class LaserManager {
 public:
  using Callback = std::function<void(Laser&)>;

  // Null for a taken id.
  Laser* addLaser(uint64_t id, uint64_t hostId, const std::string& name);
  bool removeLaser(uint64_t id);
  Laser* findLaser(uint64_t id) const;
  // The id of the first laser of that name on the host, or 0.
  uint64_t findLaserId(uint64_t hostId, const std::string& name) const;
  size_t getNumLasers() const { return lasers_.size(); }
  // Moves every laser of one host to another.
  void moveLasers(uint64_t fromHost, uint64_t toHost);
  bool renameLaser(uint64_t id, const std::string& name);
  void update(double time);
  void addAddCallback(Callback callback) { addCallbacks_.push_back(std::move(callback)); }
  void addRemoveCallback(Callback callback) { removeCallbacks_.push_back(std::move(callback)); }
  const std::map<uint64_t, std::unique_ptr<Laser>>& lasers() const { return lasers_; }

 private:
  std::map<uint64_t, std::unique_ptr<Laser>> lasers_;
  std::vector<Callback> addCallbacks_;
  std::vector<Callback> removeCallbacks_;
};

class PlatformUD;

class LaserUD : public ObjectUD {
 public:
  // `laser` is held by the scenario's LaserManager.
  LaserUD(ScenarioUD* scenario, PlatformUD* host, Laser* laser);

  Laser* laser() const { return laser_; }
  PlatformUD* host() const { return host_; }
  uint64_t UniqueID() const override { return laser_->id(); }
  void SetUniqueID(uint64_t) override {}
  uint64_t GetOriginalID() const override { return laser_->originalId(); }
  void SetOriginalID(uint64_t id) override { laser_->setOriginalId(id); }
  std::string Desc() const override { return laser_->name(); }
  void SetDesc(const std::string& text) override { laser_->setName(text); }
  int Valid(const DataFormatUD& format) const override;
  bool ActiveAtTime(double time, bool* out) const override;
  void AddOnOffCmd(double time, bool on) override { laser_->addOnOffDataPoint(time, on); }

 private:
  PlatformUD* host_;
  Laser* laser_;
};
