#pragma once
// Conversions between the door's value records and the reference host's
// scenario, and their JSON form for the trace.

#include <cstdint>

#include <nlohmann/json.hpp>

#include "host/HostScenario.h"
#include "hostapi/PIDataRecords.h"

namespace RefHost {

nlohmann::json frameJson(const PIData::PICoordReferenceFrame& frame);
nlohmann::json pointJson(const PIData::PIPoint& p);
nlohmann::json platformPointJson(const PIData::PIPlatformPoint& p);

// Interns frames; consecutive points nearly always share one, so the last
// frame is compared field by field before anything is formatted.
class FrameCache {
 public:
  std::uint32_t intern(StringPool& pool, const PIData::PICoordReferenceFrame& frame);
  void reset() { valid_ = false; }

 private:
  bool valid_ = false;
  const StringPool* pool_ = nullptr;
  std::size_t poolSize_ = 0;
  PIData::PICoordReferenceFrame last_;
  std::uint32_t index_ = 0;
};

// Header records to and from the scenario's header; the original id is the
// object's, so it travels beside the header.
ObjectHeader toHeader(const PIData::PIPlatformHeader& h);
ObjectHeader toHeader(const PIData::PIBeamHeader& h);
ObjectHeader toHeader(const PIData::PIGateHeader& h);
ObjectHeader toHeader(const PIData::PILobHeader& h);
ObjectHeader toHeader(const PIData::PIProjectorHeader& h);
ObjectHeader toHeader(const PIData::PICustomRenderingHeader& h);

nlohmann::json headerJson(const PIData::PIPlatformHeader& h);
nlohmann::json headerJson(const PIData::PIBeamHeader& h);
nlohmann::json headerJson(const PIData::PIGateHeader& h);
nlohmann::json headerJson(const PIData::PILobHeader& h);
nlohmann::json headerJson(const PIData::PILaserHeader& h);
nlohmann::json headerJson(const PIData::PIProjectorHeader& h);
nlohmann::json headerJson(const PIData::PICustomRenderingHeader& h);

void fromObject(const HostObject& o, PIData::PIPlatformHeader& h);
void fromObject(const HostObject& o, PIData::PIBeamHeader& h);
void fromObject(const HostObject& o, PIData::PIGateHeader& h);
void fromObject(const HostObject& o, PIData::PILobHeader& h);
void fromObject(const HostObject& o, PIData::PIProjectorHeader& h);
void fromObject(const HostObject& o, PIData::PICustomRenderingHeader& h);

}  // namespace RefHost
