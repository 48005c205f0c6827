// Data of objects: points, laser and projector data, status, colours,
// targets, offsets, flags, file names, category data, flushes.

#include <algorithm>
#include <vector>

#include "host/HostDispatch.h"
#include "hostapi/PIDataRecords.h"

namespace RefHost {

namespace {

using namespace PIData;
using nlohmann::json;

// The object addressed by a request when its kind is one of `kinds`.
HostObject* target(HostScenario& s, std::uint64_t id, std::uint32_t kinds) {
  HostObject* object = s.find(id);
  return object && (object->kind & kinds) ? object : nullptr;
}

constexpr std::uint32_t kAnyKind = KIND_PLATFORM | KIND_BEAM | KIND_GATE | KIND_LASER | KIND_LOB | KIND_PROJECTOR |
                                   KIND_CUSTOM_RENDERING;

}  // namespace

std::uint64_t Dispatcher::objectData(Request& r) {
  HostScenario& s = host.scenario_;
  if (r.code == PI_ADD_CATEGORY_DATA) {
    auto* rec = record<PI_DATA_CATCHALL>(r);
    r.op = "addCategoryData";
    if (!rec) return 1;
    if (rec->ints.size() < 2) rec->ints.resize(2, 0);
    auto* id = rec->pointers.size() > 0 ? static_cast<std::uint64_t*>(rec->pointers[0]) : nullptr;
    auto* point = rec->pointers.size() > 1 ? static_cast<PICategoryDataPoint*>(rec->pointers[1]) : nullptr;
    rec->ints[1] = 1;
    if (id) arg(r, "id", *id);
    if (point && r.tracing)
      r.args["point"] = {{"time", point->time}, {"name", point->categoryName}, {"value", point->categoryValue}};
    if (refuse(r, "addCategoryData")) return 1;
    if (!id || !point) {
      r.problem = "missing id or point";
      return 1;
    }
    // Id 0 is the scenario, which must have been started, as for generic
    // data and tables.
    HostObject* object = s.owner(*id);
    if (!object || (*id == 0 && !s.settings().initialized) || (*id != 0 && !(object->kind & kAnyKind))) return 1;
    double record[3] = {point->time, 0.0, 0.0};
    if (!s.noData()) {
      record[1] = s.strings().intern(point->categoryName);
      record[2] = s.strings().intern(point->categoryValue);
    }
    s.addRecord(*id, SERIES_CATEGORY, record);
    rec->ints[1] = 0;
    return 0;
  }

  auto* rec = record<PI_DATA_STRUCT>(r);
  if (!rec) return 1;
  const std::uint64_t id = rec->objectId;
  arg(r, "id", id);
  switch (r.code) {
    case PI_ADD_DATA_POINT: {
      r.op = "addDataPoint";
      const std::uint32_t kind = rec->kindMask;
      double values[11];
      unsigned n = 0;
      const PICoordReferenceFrame* frame = nullptr;
      switch (kind) {
        case KIND_PLATFORM:
          if (auto* p = static_cast<PIPlatformPoint*>(rec->pointer1)) {
            arg(r, "point", [&] { return platformPointJson(*p); });
            frame = &p->frame;  // interned once the point is taken
            const double v[11] = {p->time, p->x, p->y, p->z, p->yaw, p->pitch, p->roll, p->vx, p->vy, p->vz, 0.0};
            std::copy(v, v + 11, values);
            n = 11;
          }
          break;
        case KIND_BEAM:
          if (auto* p = static_cast<PIBeamPoint*>(rec->pointer1)) {
            const double v[4] = {p->time, p->azimuth, p->elevation, p->range};
            std::copy(v, v + 4, values);
            n = 4;
          }
          break;
        case KIND_LOB:
          if (auto* p = static_cast<PILobPoint*>(rec->pointer1)) {
            const double v[4] = {p->time, p->azimuth, p->elevation, p->range};
            std::copy(v, v + 4, values);
            n = 4;
          }
          break;
        case KIND_GATE:
          if (auto* p = static_cast<PIGatePoint*>(rec->pointer1)) {
            const double v[8] = {p->time, p->azimuth, p->elevation, p->width, p->height, p->minRange, p->maxRange, p->centroid};
            std::copy(v, v + 8, values);
            n = 8;
          }
          break;
        default: r.problem = "unknown kind mask"; break;
      }
      if (kind != KIND_PLATFORM) {
        arg(r, "kindMask", kind);
        if (n && r.tracing) r.args["point"] = std::vector<double>(values, values + n);
      }
      if (refuse(r, "addDataPoint")) return 1;
      if (!n) {
        if (!r.problem) r.problem = "null point";
        return 1;
      }
      HostObject* object = target(s, id, kind);
      if (!object) return 1;
      if (frame && !s.noData()) values[10] = host.frameCache_.intern(s.frames(), *frame);
      s.addRecord(*object, SERIES_POINTS, values);
      return 0;
    }
    case PI_ADD_DATA_POINTS: {
      r.op = "addDataPoints";
      auto* points = static_cast<std::vector<PIPlatformPoint>*>(rec->pointer1);
      if (points && r.tracing) {
        json list = json::array();
        for (const PIPlatformPoint& p : *points) list.push_back(platformPointJson(p));
        r.args["points"] = std::move(list);
      }
      if (refuse(r, "addDataPoints")) return 1;
      if (!points) {
        r.problem = "null point list";
        return 1;
      }
      if (!target(s, id, KIND_PLATFORM)) return 1;
      for (const PIPlatformPoint& p : *points) {
        const double values[11] = {p.time, p.x, p.y, p.z, p.yaw, p.pitch, p.roll, p.vx, p.vy, p.vz,
                                   s.noData() ? 0.0 : static_cast<double>(host.frameCache_.intern(s.frames(), p.frame))};
        s.addRecord(id, SERIES_POINTS, values);
      }
      return 0;
    }
    case PI_LASER_DATA: {
      std::vector<double> values;
      SeriesId series = SERIES_POINTS;
      switch (rec->intValue) {
        case 0:
          r.op = "addLaserOriDataPoint";
          if (auto* p = static_cast<PILaserPoint*>(rec->pointer1))
            values = {p->time, p->orientation.x, p->orientation.y, p->orientation.z};
          arg(r, "point", values);
          break;
        case 1:
          r.op = "addLaserOffsetDataPoint";
          series = SERIES_LASER_OFFSET;
          if (auto* p = static_cast<PILaserOffset*>(rec->pointer1)) values = {p->time, p->x, p->y, p->z};
          arg(r, "offset", values);
          break;
        case 2:
          r.op = "addLaserMaxRangeDataPoint";
          series = SERIES_LASER_MAX_RANGE;
          values = {rec->value1, rec->value2};
          arg(r, "time", rec->value1);
          arg(r, "value", rec->value2);
          break;
        case 3:
          r.op = "addLaserWidthDataPoint";
          series = SERIES_LASER_WIDTH;
          values = {rec->value1, static_cast<double>(static_cast<std::int64_t>(rec->longValue))};
          arg(r, "time", rec->value1);
          arg(r, "width", static_cast<std::int64_t>(rec->longValue));
          break;
        default:
          r.op = "laserData";
          r.problem = "unknown sub-operation";
          return 1;
      }
      if (refuse(r, r.op)) return 1;
      if (values.empty()) {
        r.problem = "null point";
        return 1;
      }
      if (!target(s, id, KIND_LASER)) return 1;
      s.addRecord(id, series, values.data());
      return 0;
    }
    case PI_ADD_LOB_DRAW_STYLE: {
      r.op = "addLobDrawStyle";
      auto* p = static_cast<PILobDrawStyle*>(rec->pointer1);
      std::vector<double> values;
      if (p) values = {p->time, double(p->color1), double(p->color2), double(p->stipple1), double(p->stipple2), double(p->width)};
      arg(r, "style", values);
      if (refuse(r, r.op)) return 1;
      if (!p) {
        r.problem = "null style";
        return 1;
      }
      if (!target(s, id, KIND_LOB)) return 1;
      s.addRecord(id, SERIES_LOB_DRAW_STYLE, values.data());
      return 0;
    }
    case PI_PROJECTOR: {
      HostObject* object = target(s, id, KIND_PROJECTOR);
      switch (rec->intValue) {
        case 0: {
          arg(r, "time", rec->value1);
          arg(r, "fov", rec->value2);
          if (refuse(r, "addProjectorFOV") || !object) return 1;
          const double values[2] = {rec->value1, rec->value2};
          s.addRecord(id, SERIES_PROJECTOR_FOV, values);
          return 0;
        }
        case 1:
          arg(r, "name", rec->text);
          if (refuse(r, "setProjectorRasterFileName") || !object) return 1;
          object->settings["rasterFile"] = rec->text;
          return 0;
        case 2:
          arg(r, "flag", rec->longValue != 0);
          if (refuse(r, "setProjectorInterpolateFov") || !object) return 1;
          object->settings["interpolateFov"] = rec->longValue != 0;
          return 0;
        default:
          r.op = "projector";
          r.problem = "unknown sub-operation";
          return 1;
      }
    }
    case PI_SET_STATUS:
    case PI_SET_COLOR:
    case PI_SET_TARGET: {
      SeriesId series = SERIES_STATUS;
      double value = rec->intValue;
      if (r.code == PI_SET_STATUS) {
        arg(r, "status", rec->intValue);
      } else {
        series = r.code == PI_SET_COLOR ? SERIES_COLOR : SERIES_TARGET;
        value = static_cast<double>(rec->longValue);
        arg(r, r.code == PI_SET_COLOR ? "color" : "targetId", rec->longValue);
      }
      arg(r, "time", rec->value1);
      const char* op = r.code == PI_SET_STATUS ? "setStatus" : r.code == PI_SET_COLOR ? "setColor" : "setTarget";
      if (refuse(r, op)) return 1;
      if (r.code == PI_SET_TARGET) {
        // A target of 0 clears the target; any other must exist.
        if (!target(s, id, KIND_BEAM | KIND_GATE)) return 1;
        if (rec->longValue != 0 && !s.find(rec->longValue)) return 1;
      } else if (!target(s, id, kAnyKind)) {
        return 1;
      }
      const double values[2] = {rec->value1, value};
      s.addRecord(id, series, values);
      return 0;
    }
    case PI_SET_OBJECT_OFFSET: {
      arg(r, "point", json::array({rec->value1, rec->value2, rec->value3}));
      HostObject* object = target(s, id, kAnyKind);
      if (refuse(r, "setObjectOffset") || !object) return 1;
      object->settings["offset"] = json::array({rec->value1, rec->value2, rec->value3});
      return 0;
    }
    case PI_ORIENTATION_OFFSET: {
      HostObject* object = target(s, id, kAnyKind);
      switch (rec->intValue) {
        case 0:
        case 2: {
          const bool platform = rec->intValue == 2;
          arg(r, "point", json::array({rec->value1, rec->value2, rec->value3}));
          if (refuse(r, platform ? "setPlatformOrientationOffset" : "setObjectOrientationOffset")) return 1;
          if (!object || (platform && object->kind != KIND_PLATFORM)) return 1;
          object->settings[platform ? "platformOrientationOffset" : "orientationOffset"] =
              json::array({rec->value1, rec->value2, rec->value3});
          return 0;
        }
        case 1: {
          if (refuse(r, "getObjectOrientationOffset") || !object) return 1;
          auto it = object->settings.find("orientationOffset");
          // Never set: no offset.
          rec->value1 = it == object->settings.end() ? 0.0 : (*it)[0].get<double>();
          rec->value2 = it == object->settings.end() ? 0.0 : (*it)[1].get<double>();
          rec->value3 = it == object->settings.end() ? 0.0 : (*it)[2].get<double>();
          if (r.tracing) r.out = json::array({rec->value1, rec->value2, rec->value3});
          return 0;
        }
        default:
          r.op = "orientationOffset";
          r.problem = "unknown sub-operation";
          return 1;
      }
    }
    case PI_BEAM_OFFSET: {
      const bool azimuth = rec->intValue == 0;
      if (!azimuth && rec->intValue != 1) {
        r.op = "beamOffset";
        r.problem = "unknown sub-operation";
        return 1;
      }
      arg(r, "value", rec->value1);
      HostObject* object = target(s, id, KIND_BEAM | KIND_GATE);
      if (refuse(r, azimuth ? "setAzimuthOffset" : "setElevationOffset") || !object) return 1;
      object->settings[azimuth ? "azimuthOffset" : "elevationOffset"] = rec->value1;
      return 0;
    }
    case PI_SET_INTERPOLATE: {
      const char* op = rec->kindMask == KIND_PLATFORM ? "setPlatformInterpolate"
                       : rec->kindMask == KIND_BEAM   ? "setBeamInterpolatePosition"
                       : rec->kindMask == KIND_GATE   ? "setGateInterpolatePosition"
                                                      : "setInterpolate";
      arg(r, "flag", rec->intValue != 0);
      HostObject* object = target(s, id, rec->kindMask);
      if (refuse(r, op) || !object || rec->kindMask == 0) return 1;
      object->settings["interpolate"] = rec->intValue != 0;
      return 0;
    }
    case PI_RCS_PATTERN_FILE: {
      HostObject* object = target(s, id, KIND_PLATFORM);
      if (rec->intValue == 0) {
        arg(r, "name", rec->text);
        if (refuse(r, "setPlatformRCSPatternFileName") || !object) return 1;
        object->settings["rcsPatternFile"] = rec->text;
        return 0;
      }
      if (refuse(r, "getPlatformRCSPatternFileName") || !object) return 1;
      auto it = object->settings.find("rcsPatternFile");
      rec->text = it == object->settings.end() ? std::string() : it->get<std::string>();
      if (r.tracing) r.out = rec->text;
      return 0;
    }
    case PI_FLUSH_ENTITY_DATA:
      arg(r, "type", rec->intValue);
      if (refuse(r, "flushEntityData")) return 1;
      return s.flush(id, rec->intValue) ? 0 : 1;
    default:
      r.op = "unknown";
      return 0;
  }
}

}  // namespace RefHost
