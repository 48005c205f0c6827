#pragma once
// Projectors of the document: a raster source on a host object, with
// time-tagged on/off and field-of-view values in two data tables.

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "datatable/DataTable.h"

class Projector {
 public:
  Projector(uint64_t id, uint64_t hostId, const std::string& name);

  uint64_t id() const { return id_; }
  uint64_t hostId() const { return hostId_; }
  const std::string& name() const { return name_; }
  uint64_t originalId() const { return originalId_; }
  void setOriginalId(uint64_t id) { originalId_ = id; }

  void setRasterFileName(const std::string& name) { rasterFileName_ = name; }
  const std::string& rasterFileName() const { return rasterFileName_; }
  void setRasterURL(const std::string& url) { rasterURL_ = url; }
  const std::string& rasterURL() const { return rasterURL_; }
  void setRasterName(const std::string& name) { rasterName_ = name; }
  const std::string& rasterName() const { return rasterName_; }
  void setRasterBlobExpression(const std::string& text) { rasterBlob_ = text; }
  const std::string& rasterBlobExpression() const { return rasterBlob_; }
  void setRasterDeviceID(int id) { rasterDevice_ = id; }
  int rasterDeviceID() const { return rasterDevice_; }
  void setInterpolateFov(bool flag) { interpolateFov_ = flag; }
  bool interpolateFov() const { return interpolateFov_; }

  void addOnOffDataPoint(double time, bool on);
  // Field of view in radians.
  void addFovDataPoint(double time, double fov);
  void copyOnOffDataTable(const Projector& other);
  void copyFovDataTable(const Projector& other);
  DataTable& onOffTable() { return onOff_; }
  DataTable& fovTable() { return fov_; }
  const DataTable& onOffTable() const { return onOff_; }
  const DataTable& fovTable() const { return fov_; }

 private:
  uint64_t id_;
  uint64_t hostId_;
  uint64_t originalId_ = 0;
  std::string name_;
  std::string rasterFileName_, rasterURL_, rasterName_, rasterBlob_;
  int rasterDevice_ = 0;
  bool interpolateFov_ = false;
  DataTable onOff_;
  DataTable fov_;
};

class ProjectorManager {
 public:
  // Null for a taken id.
  Projector* addProjector(uint64_t id, uint64_t hostId, const std::string& name);
  bool removeProjector(uint64_t id);
  Projector* findProjector(uint64_t id) const;
  size_t size() const { return projectors_.size(); }
  const std::map<uint64_t, std::unique_ptr<Projector>>& projectors() const { return projectors_; }

 private:
  std::map<uint64_t, std::unique_ptr<Projector>> projectors_;
};
