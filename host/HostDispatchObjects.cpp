// Object creation, headers and look-ups.

#include <limits>
#include <vector>

#include "host/HostDispatch.h"
#include "hostapi/PIDataRecords.h"

namespace RefHost {

namespace {

using namespace PIData;

const char* createName(std::uint32_t kind) {
  switch (kind) {
    case KIND_PLATFORM: return "createPlatform";
    case KIND_BEAM: return "createBeam";
    case KIND_GATE: return "createGate";
    case KIND_LOB: return "createLob";
    case KIND_LASER: return "createLaser";
    case KIND_PROJECTOR: return "createProjector";
    case KIND_CUSTOM_RENDERING: return "createCustomRendering";
    case KIND_GENERIC_DATA: return "createGenericData";
    default: return "createObject";
  }
}

const char* listName(std::uint32_t kind) {
  switch (kind) {
    case KIND_PLATFORM: return "getPlatformList";
    case KIND_BEAM: return "getBeamList";
    case KIND_GATE: return "getGateList";
    case KIND_LOB: return "getLobList";
    case KIND_LASER: return "getLaserList";
    case KIND_PROJECTOR: return "getProjectorList";
    case KIND_CUSTOM_RENDERING: return "getCustomRenderingList";
    default: return "getObjectList";
  }
}

// Reads or writes a header record of type H for an object of the record's kind.
template <typename H>
std::uint64_t headerRequest(Dispatcher& d, Request& r, PI_DATA_STRUCT& rec, HostObject* object, bool update) {
  auto* header = static_cast<H*>(rec.pointer1);
  if (!header) {
    r.problem = "null header";
    return update ? 1 : 0;
  }
  if (update) {
    d.arg(r, "header", [&] { return headerJson(*header); });
    if (d.refuse(r, "updateHeader") || !object || object->kind != rec.kindMask) return 1;
    const std::uint32_t frame = object->header.frame;
    object->header = toHeader(*header);
    object->header.frame = frame;
    object->originalId = header->originalId;
    return 0;
  }
  if (d.refuse(r, "getHeader") || !object || object->kind != rec.kindMask) return 0;
  fromObject(*object, *header);
  if (r.tracing) r.out = headerJson(*header);
  return 1;
}

// Lasers carry a frame and no original id in their header.
template <>
std::uint64_t headerRequest<PILaserHeader>(Dispatcher& d, Request& r, PI_DATA_STRUCT& rec, HostObject* object,
                                           bool update) {
  auto* header = static_cast<PILaserHeader*>(rec.pointer1);
  if (!header) {
    r.problem = "null header";
    return update ? 1 : 0;
  }
  if (update) {
    d.arg(r, "header", [&] { return headerJson(*header); });
    if (d.refuse(r, "updateHeader") || !object || object->kind != rec.kindMask) return 1;
    object->header.name = header->name;
    object->header.body = header->bodyFlag;
    object->header.frame = d.host.scenario().frames().intern(frameJson(header->frame).dump());
    return 0;
  }
  if (d.refuse(r, "getHeader") || !object || object->kind != rec.kindMask) return 0;
  header->name = object->header.name;
  header->bodyFlag = object->header.body;
  const StringPool& frames = d.host.scenario().frames();
  const std::uint32_t index = object->header.frame;
  const nlohmann::json f = index < frames.size() ? nlohmann::json::parse(frames.at(index)) : nlohmann::json::object();
  PICoordReferenceFrame& out = header->frame;
  out = PICoordReferenceFrame();
  // The frame was kept as JSON text, in which NaN became null.
  auto number = [&](const char* key, double fallback) {
    auto it = f.find(key);
    if (it == f.end()) return fallback;
    return it->is_number() ? it->get<double>() : std::numeric_limits<double>::quiet_NaN();
  };
  auto integer = [&](const char* key, std::int32_t fallback) {
    auto it = f.find(key);
    return it != f.end() && it->is_number_integer() ? it->get<std::int32_t>() : fallback;
  };
  out.coordSystem = integer("coordSystem", out.coordSystem);
  out.latitude = number("latitude", out.latitude);
  out.longitude = number("longitude", out.longitude);
  out.altitude = number("altitude", out.altitude);
  out.tangentPlaneX = number("tangentPlaneX", out.tangentPlaneX);
  out.tangentPlaneY = number("tangentPlaneY", out.tangentPlaneY);
  out.tangentPlaneAngle = number("tangentPlaneAngle", out.tangentPlaneAngle);
  out.eciReferenceTime = number("eciReferenceTime", out.eciReferenceTime);
  out.verticalDatum = integer("verticalDatum", out.verticalDatum);
  out.verticalDatumOffset = number("verticalDatumOffset", out.verticalDatumOffset);
  out.magneticVariance = integer("magneticVariance", out.magneticVariance);
  out.magneticVarianceOffset = number("magneticVarianceOffset", out.magneticVarianceOffset);
  if (r.tracing) r.out = headerJson(*header);
  return 1;
}

}  // namespace

std::uint64_t Dispatcher::objects(Request& r) {
  auto* rec = record<PI_DATA_STRUCT>(r);
  HostScenario& s = host.scenario_;
  if (!rec) {
    r.op = r.code == PI_CREATE_OBJECT ? "createObject" : "objectRequest";
    return r.code == PI_UPDATE_HEADER ? 1 : 0;
  }
  switch (r.code) {
    case PI_CREATE_OBJECT: {
      const std::uint32_t kind = rec->kindMask;
      r.op = createName(kind);
      std::uint64_t id = 0;
      if (kind == KIND_GENERIC_DATA) {
        auto* point = static_cast<PIGenericDataPoint*>(rec->pointer1);
        arg(r, "id", rec->objectId);
        if (point && r.tracing)
          r.args["point"] = {{"time", point->time}, {"expirationTime", point->expirationTime},
                             {"tag", point->tag}, {"value", point->value}};
        if (refuse(r, r.op)) return 0;
        if (!point) {
          r.problem = "null point";
          return 0;
        }
        id = s.addGenericData(rec->objectId, point->time, point->expirationTime, point->tag, point->value);
      } else {
        if (!rec->pointer1) r.problem = "null header";
        if (kind != KIND_PLATFORM) arg(r, "hostId", rec->objectId);
        ObjectHeader header;
        std::uint64_t originalId = 0;
        // Frames are interned only for an object that is made.
        const PICoordReferenceFrame* pointFrame = nullptr;
        const PICoordReferenceFrame* headerFrame = nullptr;
        std::vector<double> first;
        switch (kind) {
          case KIND_PLATFORM: {
            auto* h = static_cast<PIPlatformHeader*>(rec->pointer1);
            auto* p = static_cast<PIPlatformPoint*>(rec->pointer2);
            if (h) header = toHeader(*h), originalId = h->originalId, arg(r, "header", [&] { return headerJson(*h); });
            if (p) arg(r, "point", [&] { return platformPointJson(*p); });
            if (!p) r.problem = "null point";
            if (p && h) first = {p->time, p->x, p->y, p->z, p->yaw, p->pitch, p->roll, p->vx, p->vy, p->vz, 0.0};
            pointFrame = p ? &p->frame : nullptr;
            if (!p) return refuse(r, r.op), 0;
            break;
          }
          case KIND_BEAM: {
            auto* h = static_cast<PIBeamHeader*>(rec->pointer1);
            auto* p = static_cast<PIBeamPoint*>(rec->pointer2);
            if (h) header = toHeader(*h), originalId = h->originalId, arg(r, "header", [&] { return headerJson(*h); });
            arg(r, "point", p ? nlohmann::json::array({p->time, p->azimuth, p->elevation, p->range})
                              : nlohmann::json(nullptr));
            arg(r, "flag", rec->intValue == 1);
            if (p) first = {p->time, p->azimuth, p->elevation, p->range};
            break;
          }
          case KIND_GATE: {
            auto* h = static_cast<PIGateHeader*>(rec->pointer1);
            auto* p = static_cast<PIGatePoint*>(rec->pointer2);
            if (h) header = toHeader(*h), originalId = h->originalId, arg(r, "header", [&] { return headerJson(*h); });
            if (p) first = {p->time, p->azimuth, p->elevation, p->width, p->height, p->minRange, p->maxRange, p->centroid};
            arg(r, "point", p ? nlohmann::json(first) : nlohmann::json(nullptr));
            arg(r, "flag", rec->intValue == 1);
            break;
          }
          case KIND_LOB: {
            auto* h = static_cast<PILobHeader*>(rec->pointer1);
            if (h) header = toHeader(*h), originalId = h->originalId, arg(r, "header", [&] { return headerJson(*h); });
            break;
          }
          case KIND_LASER: {
            auto* h = static_cast<PILaserHeader*>(rec->pointer1);
            auto* original = static_cast<std::uint64_t*>(rec->pointer2);
            if (h) {
              arg(r, "header", [&] { return headerJson(*h); });
              header.name = h->name;
              header.body = h->bodyFlag;
              headerFrame = &h->frame;
            }
            if (original) originalId = *original;
            arg(r, "originalId", originalId);
            break;
          }
          case KIND_PROJECTOR: {
            auto* h = static_cast<PIProjectorHeader*>(rec->pointer1);
            if (h) header = toHeader(*h), originalId = h->originalId, arg(r, "header", [&] { return headerJson(*h); });
            break;
          }
          case KIND_CUSTOM_RENDERING: {
            auto* h = static_cast<PICustomRenderingHeader*>(rec->pointer1);
            if (h) header = toHeader(*h), originalId = h->originalId, arg(r, "header", [&] { return headerJson(*h); });
            break;
          }
          default:
            arg(r, "kindMask", kind);
            r.problem = "unknown kind mask";
            return 0;
        }
        if (refuse(r, r.op) || !rec->pointer1) return 0;
        if (!s.canCreate(kind, rec->objectId)) return 0;
        if (headerFrame) header.frame = s.frames().intern(frameJson(*headerFrame).dump());
        if (pointFrame && first.size() == 11 && !s.noData()) first[10] = host.frameCache_.intern(s.frames(), *pointFrame);
        id = s.create(kind, rec->objectId, header, originalId);
        if (id && (kind == KIND_BEAM || kind == KIND_GATE)) s.find(id)->settings["createFlag"] = rec->intValue == 1;
        if (id && !first.empty()) s.addRecord(id, SERIES_POINTS, first.data());
      }
      rec->uniqueId = id;
      return id;
    }
    case PI_UPDATE_HEADER:
    case PI_GET_HEADER: {
      const bool update = r.code == PI_UPDATE_HEADER;
      r.op = update ? "updateHeader" : "getHeader";
      arg(r, "id", rec->objectId);
      arg(r, "kindMask", rec->kindMask);
      HostObject* object = s.find(rec->objectId);
      switch (rec->kindMask) {
        case KIND_PLATFORM: return headerRequest<PIPlatformHeader>(*this, r, *rec, object, update);
        case KIND_BEAM: return headerRequest<PIBeamHeader>(*this, r, *rec, object, update);
        case KIND_GATE: return headerRequest<PIGateHeader>(*this, r, *rec, object, update);
        case KIND_LOB: return headerRequest<PILobHeader>(*this, r, *rec, object, update);
        case KIND_LASER: return headerRequest<PILaserHeader>(*this, r, *rec, object, update);
        case KIND_PROJECTOR: return headerRequest<PIProjectorHeader>(*this, r, *rec, object, update);
        case KIND_CUSTOM_RENDERING: return headerRequest<PICustomRenderingHeader>(*this, r, *rec, object, update);
        default:
          refuse(r, r.op);
          r.problem = "unknown kind mask";
          return update ? 1 : 0;
      }
    }
    case PI_FIND_OBJECT_BY_NAME: {
      const char* op = rec->kindMask == KIND_PLATFORM ? "findPlatform"
                       : rec->kindMask == KIND_BEAM   ? "findBeam"
                                                      : "findObject";
      arg(r, "name", rec->text);
      if (rec->kindMask != KIND_PLATFORM && rec->kindMask != KIND_BEAM) arg(r, "kindMask", rec->kindMask);
      if (refuse(r, op)) return 0;
      return s.findByName(rec->kindMask, rec->text);
    }
    case PI_GET_OBJECT_LIST: {
      const bool children = rec->intValue == 1;
      if (children) arg(r, "parent", rec->objectId);
      auto* out = static_cast<std::vector<std::uint64_t>*>(rec->pointer1);
      if (refuse(r, listName(rec->kindMask))) return 1;
      if (!out) {
        r.problem = "null output list";
        return 1;
      }
      if (rec->intValue != 0 && !children) {
        r.problem = "unknown scope";
        return 1;
      }
      *out = s.list(rec->kindMask, children ? std::optional<std::uint64_t>(rec->objectId) : std::nullopt);
      if (r.tracing) r.out = *out;
      return 0;
    }
    case PI_GET_OBJECT_TYPE:
      arg(r, "id", rec->objectId);
      if (refuse(r, "getObjectType")) return 0;
      return s.objectType(rec->objectId);
    case PI_FIND_BY_ORIGINAL_ID: {
      arg(r, "originalId", rec->longValue);
      auto* out = static_cast<std::vector<std::uint64_t>*>(rec->pointer1);
      if (refuse(r, "findObjectsByOriginalID")) return 1;
      if (!out) {
        r.problem = "null output list";
        return 1;
      }
      *out = s.findByOriginalId(rec->longValue);
      if (r.tracing) r.out = *out;
      return 0;
    }
    case PI_GET_ORIGINAL_ID: {
      arg(r, "id", rec->objectId);
      if (refuse(r, "getOriginalId")) return 0;
      const HostObject* object = s.find(rec->objectId);
      return object ? object->originalId : 0;
    }
    default: return 0;
  }
}

}  // namespace RefHost
