// Codes 200-280: scenario state and clock here; objects, their data and the
// data tables in the files beside this one.

#include <string>

#include "host/HostDispatch.h"
#include "hostapi/PIDataRecords.h"

namespace RefHost {

namespace {

// Scalar operations pass the bare value's address.
template <typename T>
const T* scalar(Request& r) {
  if (!r.params) r.problem = "null value";
  return static_cast<const T*>(r.params);
}

}  // namespace

std::uint64_t Dispatcher::scenario(Request& r) {
  HostScenario& s = host.scenario_;
  ScenarioSettings& set = s.settings();
  switch (r.code) {
    case PI_SCENARIO_INITIALIZE: {
      auto* rec = record<PI_DATA_CATCHALL>(r);
      r.op = "initializeScenario";
      if (!rec || rec->ints.empty()) return 0;
      if (rec->ints[0] == 1) {
        if (refuse(r, "isScenarioInitialized")) return 0;
        return set.initialized ? 1 : 0;
      }
      const std::string name = rec->strings.empty() ? std::string() : rec->strings[0];
      auto intAt = [&](std::size_t i) { return i < rec->ints.size() ? rec->ints[i] : 0; };
      arg(r, "name", name);
      arg(r, "port", intAt(1));
      arg(r, "protocol", intAt(2));
      arg(r, "flag", intAt(3) != 0);
      if (refuse(r, "initializeScenario")) return 1;
      s.initialize(name, intAt(1), intAt(2), intAt(3) != 0);
      return 0;
    }
    case PI_DELETE_SCENARIO:
      if (refuse(r, "deleteScenario")) return 1;
      s.deleteScenario();
      host.frameCache_.reset();
      return 0;
    case PI_SET_CLASSIFICATION: {
      r.op = "setClassification";
      const auto* text = scalar<std::string>(r);
      if (!text) return 1;
      arg(r, "text", *text);
      if (refuse(r, "setClassification")) return 1;
      set.classification = *text;
      return 0;
    }
    case PI_SET_CLASSIFICATION_COLOR: {
      r.op = "setClassificationColor";
      const auto* color = scalar<std::uint32_t>(r);
      if (!color) return 1;
      arg(r, "color", *color);
      if (refuse(r, "setClassificationColor")) return 1;
      set.classificationColor = *color;
      return 0;
    }
    case PI_SCENARIO_DESCRIPTION: {
      r.op = "setDescription";
      const auto* text = scalar<std::string>(r);
      if (!text) return 1;
      arg(r, "text", *text);
      if (refuse(r, "setDescription")) return 1;
      set.description = *text;
      return 0;
    }
    case PI_GET_REFERENCE_YEAR: {
      r.op = "getReferenceYear";
      auto* year = static_cast<std::int32_t*>(r.params);
      if (!year) {
        r.problem = "null value";
        return 1;
      }
      if (refuse(r, "getReferenceYear")) return 1;
      *year = set.referenceYear;
      if (r.tracing) r.out = *year;
      return 0;
    }
    case PI_SET_REFERENCE_YEAR: {
      r.op = "setReferenceYear";
      const auto* year = scalar<std::int32_t>(r);
      if (!year) return 1;
      arg(r, "year", *year);
      if (refuse(r, "setReferenceYear")) return 1;
      set.referenceYear = *year;
      return 0;
    }
    case PI_SET_WIND_SPEED:
    case PI_SET_WIND_DIRECTION: {
      const bool speed = r.code == PI_SET_WIND_SPEED;
      r.op = speed ? "setWindSpeed" : "setWindDirection";
      const auto* value = scalar<double>(r);
      if (!value) return 1;
      arg(r, speed ? "speed" : "angle", *value);
      if (refuse(r, r.op)) return 1;
      (speed ? set.windSpeed : set.windDirection) = *value;
      return 0;
    }
    case PI_SCENARIO_ORIGIN: {
      auto* rec = record<PIData::PI_DATA_STRUCT>(r);
      r.op = "setOriginLLA";
      if (!rec) return 1;
      const bool lla = rec->intValue == 0;
      if (!lla && rec->intValue != 1) {
        r.problem = "unknown sub-operation";
        return 1;
      }
      if (lla) {
        arg(r, "lat", rec->value1);
        arg(r, "lon", rec->value2);
        arg(r, "alt", rec->value3);
      } else {
        arg(r, "x", rec->value1);
        arg(r, "y", rec->value2);
        arg(r, "angle", rec->value3);
      }
      if (refuse(r, lla ? "setOriginLLA" : "setTangentPlaneOffsets")) return 1;
      (lla ? set.originLLA : set.tangentPlaneOffsets) = std::array<double, 3>{rec->value1, rec->value2, rec->value3};
      return 0;
    }
    case PI_SCENARIO_FILE_NAME: {
      auto* rec = record<PI_DATA_CATCHALL>(r);
      r.op = "getScenarioFileName";
      if (!rec || rec->ints.empty()) return 1;
      if (rec->ints[0] == 0) {
        if (refuse(r, "getScenarioFileName")) return 1;
        auto* out = rec->pointers.empty() ? nullptr : static_cast<std::string*>(rec->pointers[0]);
        if (!out) {
          r.problem = "missing output string";
          return 1;
        }
        *out = set.fileName;
        if (r.tracing) r.out = *out;
        return 0;
      }
      const std::string name = rec->strings.empty() ? std::string() : rec->strings[0];
      arg(r, "name", name);
      if (refuse(r, "setScenarioFileName")) return 1;
      set.fileName = name;
      return 0;
    }
    case PI_CLOCK: return clock(r);
    case PI_CREATE_OBJECT:
    case PI_UPDATE_HEADER:
    case PI_GET_HEADER:
    case PI_FIND_OBJECT_BY_NAME:
    case PI_GET_OBJECT_LIST:
    case PI_GET_OBJECT_TYPE:
    case PI_FIND_BY_ORIGINAL_ID:
    case PI_GET_ORIGINAL_ID: return objects(r);
    case PI_DATA_TABLE: return tables(r);
    default: return objectData(r);
  }
}

std::uint64_t Dispatcher::clock(Request& r) {
  auto* rec = record<PI_DATA_CATCHALL>(r);
  r.op = "clock";
  if (!rec || rec->ints.empty()) return 1;
  Clock& c = host.scenario_.clock();
  auto pointer = [&](std::size_t i) -> double* {
    return i < rec->pointers.size() ? static_cast<double*>(rec->pointers[i]) : nullptr;
  };
  switch (rec->ints[0]) {
    case 4: {  // clockSetTime(begin, end)
      double* begin = pointer(0);
      double* end = pointer(1);
      r.op = "clockSetTime";
      if (!begin || !end) {
        r.problem = "missing begin or end";
        return 1;
      }
      arg(r, "begin", *begin);
      arg(r, "end", *end);
      if (refuse(r, "clockSetTime")) return 1;
      // The client moves the clock with (time, 0.0): the first argument is
      // the current time; the second is kept as received.
      c.time = *begin;
      c.setTimeSecond = *end;
      return 0;
    }
    case 10:
      if (refuse(r, "clockAutoConfigureBeginEnd")) return 1;
      return host.scenario_.autoConfigureClock() ? 0 : 1;
    case 12:
    case 13: {
      const bool begin = rec->ints[0] == 12;
      double* out = pointer(0);
      if (refuse(r, begin ? "clockGetBegin" : "clockGetEnd")) return 1;
      if (!out) {
        r.problem = "missing output value";
        return 1;
      }
      *out = begin ? c.begin : c.end;
      if (r.tracing) r.out = *out;
      return 0;
    }
    case 19: {
      const std::int64_t format = rec->ints.size() > 1 ? rec->ints[1] : 0;
      arg(r, "format", format);
      if (refuse(r, "clockSetTimeFormat")) return 1;
      c.timeFormat = format;
      return 0;
    }
    default:
      r.problem = "unknown sub-operation";
      return 1;
  }
}

}  // namespace RefHost
