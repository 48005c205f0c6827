#include "host/HostRecords.h"

namespace RefHost {

using nlohmann::json;

json frameJson(const PIData::PICoordReferenceFrame& f) {
  return {{"coordSystem", f.coordSystem},
          {"latitude", f.latitude},
          {"longitude", f.longitude},
          {"altitude", f.altitude},
          {"tangentPlaneX", f.tangentPlaneX},
          {"tangentPlaneY", f.tangentPlaneY},
          {"tangentPlaneAngle", f.tangentPlaneAngle},
          {"eciReferenceTime", f.eciReferenceTime},
          {"verticalDatum", f.verticalDatum},
          {"verticalDatumOffset", f.verticalDatumOffset},
          {"magneticVariance", f.magneticVariance},
          {"magneticVarianceOffset", f.magneticVarianceOffset}};
}

json pointJson(const PIData::PIPoint& p) { return json::array({p.x, p.y, p.z}); }

json platformPointJson(const PIData::PIPlatformPoint& p) {
  return {{"time", p.time}, {"x", p.x},   {"y", p.y},   {"z", p.z},   {"yaw", p.yaw},
          {"pitch", p.pitch}, {"roll", p.roll}, {"vx", p.vx}, {"vy", p.vy}, {"vz", p.vz},
          {"frame", frameJson(p.frame)}};
}

namespace {
bool sameFrame(const PIData::PICoordReferenceFrame& a, const PIData::PICoordReferenceFrame& b) {
  return a.coordSystem == b.coordSystem && a.latitude == b.latitude && a.longitude == b.longitude &&
         a.altitude == b.altitude && a.tangentPlaneX == b.tangentPlaneX && a.tangentPlaneY == b.tangentPlaneY &&
         a.tangentPlaneAngle == b.tangentPlaneAngle && a.eciReferenceTime == b.eciReferenceTime &&
         a.verticalDatum == b.verticalDatum && a.verticalDatumOffset == b.verticalDatumOffset &&
         a.magneticVariance == b.magneticVariance && a.magneticVarianceOffset == b.magneticVarianceOffset;
}
}  // namespace

std::uint32_t FrameCache::intern(StringPool& pool, const PIData::PICoordReferenceFrame& frame) {
  // The pool may have been cleared (scenario deleted) since the last call.
  if (valid_ && pool_ == &pool && pool.size() >= poolSize_ && poolSize_ > index_ && sameFrame(frame, last_))
    return index_;
  index_ = pool.intern(frameJson(frame).dump());
  last_ = frame;
  pool_ = &pool;
  poolSize_ = pool.size();
  valid_ = true;
  return index_;
}

ObjectHeader toHeader(const PIData::PIPlatformHeader& h) {
  ObjectHeader o;
  o.name = h.name;
  o.icon = h.iconName;
  return o;
}

ObjectHeader toHeader(const PIData::PIBeamHeader& h) {
  ObjectHeader o;
  o.name = h.name;
  o.azimuthOffset = h.azimuthOffset;
  o.elevationOffset = h.elevationOffset;
  o.horizontalWidth = h.horizontalWidth;
  o.verticalWidth = h.verticalWidth;
  o.beamType = h.beamType;
  o.missileOffset = h.missileOffset;
  return o;
}

ObjectHeader toHeader(const PIData::PIGateHeader& h) {
  ObjectHeader o;
  o.name = h.name;
  o.gateType = h.gateType;
  return o;
}

ObjectHeader toHeader(const PIData::PILobHeader& h) {
  ObjectHeader o;
  o.name = h.name;
  o.lobType = h.type;
  return o;
}

ObjectHeader toHeader(const PIData::PIProjectorHeader& h) {
  ObjectHeader o;
  o.name = h.name;
  return o;
}

ObjectHeader toHeader(const PIData::PICustomRenderingHeader& h) {
  ObjectHeader o;
  o.name = h.name;
  o.renderer = h.rendererName;
  return o;
}

json headerJson(const PIData::PIPlatformHeader& h) {
  return {{"name", h.name}, {"icon", h.iconName}, {"originalId", h.originalId}};
}

json headerJson(const PIData::PIBeamHeader& h) {
  return {{"name", h.name},
          {"azimuthOffset", h.azimuthOffset},
          {"elevationOffset", h.elevationOffset},
          {"horizontalWidth", h.horizontalWidth},
          {"verticalWidth", h.verticalWidth},
          {"beamType", h.beamType},
          {"missileOffset", h.missileOffset},
          {"originalId", h.originalId}};
}

json headerJson(const PIData::PIGateHeader& h) {
  return {{"name", h.name}, {"gateType", h.gateType}, {"originalId", h.originalId}};
}

json headerJson(const PIData::PILobHeader& h) {
  return {{"name", h.name}, {"originalId", h.originalId}, {"type", h.type}};
}

json headerJson(const PIData::PILaserHeader& h) {
  return {{"name", h.name}, {"frame", frameJson(h.frame)}, {"body", h.bodyFlag}};
}

json headerJson(const PIData::PIProjectorHeader& h) { return {{"name", h.name}, {"originalId", h.originalId}}; }

json headerJson(const PIData::PICustomRenderingHeader& h) {
  return {{"name", h.name}, {"renderer", h.rendererName}, {"originalId", h.originalId}};
}

void fromObject(const HostObject& o, PIData::PIPlatformHeader& h) {
  h.name = o.header.name;
  h.iconName = o.header.icon;
  h.originalId = o.originalId;
}

void fromObject(const HostObject& o, PIData::PIBeamHeader& h) {
  h.name = o.header.name;
  h.azimuthOffset = o.header.azimuthOffset;
  h.elevationOffset = o.header.elevationOffset;
  h.horizontalWidth = o.header.horizontalWidth;
  h.verticalWidth = o.header.verticalWidth;
  h.beamType = o.header.beamType;
  h.missileOffset = o.header.missileOffset;
  h.originalId = o.originalId;
}

void fromObject(const HostObject& o, PIData::PIGateHeader& h) {
  h.name = o.header.name;
  h.gateType = o.header.gateType;
  h.originalId = o.originalId;
}

void fromObject(const HostObject& o, PIData::PILobHeader& h) {
  h.name = o.header.name;
  h.type = o.header.lobType;
  h.originalId = o.originalId;
}

void fromObject(const HostObject& o, PIData::PIProjectorHeader& h) {
  h.name = o.header.name;
  h.originalId = o.originalId;
}

void fromObject(const HostObject& o, PIData::PICustomRenderingHeader& h) {
  h.name = o.header.name;
  h.rendererName = o.header.renderer;
  h.originalId = o.originalId;
}

}  // namespace RefHost
