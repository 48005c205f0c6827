// Codes 400 on: the display application's services. The plot application
// does not offer them. A file to load must exist and be readable.

#include <unistd.h>

#include <vector>

#include "host/HostDispatch.h"

namespace RefHost {

namespace {

using nlohmann::json;

bool readable(const std::string& path) { return !path.empty() && access(path.c_str(), R_OK) == 0; }

const char* displayOp(PIServerFunctions_t code) {
  switch (code) {
    case PI_LOAD_GOG_FILE: return "loadGOGFile";
    case PI_SET_ANTENNA_INFO: return "setAntennaInfo";
    case PI_LOAD_TERRAIN_CONFIGURATION: return "loadTerrainConfiguration";
    case PI_PREF_RULES: return "loadPrefRuleFile";
    case PI_RFPROP_SET_INPUT_FILES: return "rfpropSetInputFiles";
    case PI_LOAD_MEDIA_FILE: return "loadMediaFile";
    case PI_LOAD_VIEW_FILE: return "loadViewFile";
    case PI_LOAD_RANGE_CONFIGURATION: return "loadRangeConfiguration";
    default: return "unknown";
  }
}

}  // namespace

std::uint64_t Dispatcher::display(Request& r) {
  const char* op = displayOp(r.code);
  if (std::string(op) == "unknown") return 0;
  auto* rec = record<PI_DATA_CATCHALL>(r);
  r.op = op;
  if (!rec) return 1;
  HostScenario& s = host.scenario_;
  auto str = [&](std::size_t i) { return i < rec->strings.size() ? rec->strings[i] : std::string(); };
  auto intAt = [&](std::size_t i) -> std::int64_t { return i < rec->ints.size() ? rec->ints[i] : 0; };
  auto pointer = [&](std::size_t i) -> void* { return i < rec->pointers.size() ? rec->pointers[i] : nullptr; };
  if (r.code == PI_PREF_RULES && intAt(0) == 1) op = "removeAllPrefRules";

  // Decode every argument first, so that a refused request is traced in full.
  json load = {{"op", op}};
  switch (r.code) {
    case PI_LOAD_GOG_FILE: {
      auto* hostId = static_cast<std::uint64_t*>(pointer(0));
      load["file"] = str(0);
      load["hostId"] = hostId ? *hostId : 0;
      load["flag"] = intAt(0) != 0;
      break;
    }
    case PI_SET_ANTENNA_INFO: {
      auto* id = static_cast<std::uint64_t*>(pointer(0));
      auto number = [&](std::size_t i) {
        auto* v = static_cast<double*>(pointer(i));
        return v ? json(*v) : json(nullptr);
      };
      load["id"] = id ? *id : 0;
      load["kind"] = intAt(0);
      load["algorithm"] = intAt(1);
      load["polarity"] = intAt(2);
      load["file"] = str(0);
      load["gain"] = number(1);
      load["peakPower"] = number(2);
      load["frequency"] = number(3);
      break;
    }
    case PI_PREF_RULES:
      if (intAt(0) == 0) load["file"] = str(0);
      break;
    case PI_RFPROP_SET_INPUT_FILES: {
      auto* id = static_cast<std::uint64_t*>(pointer(0));
      load["id"] = id ? *id : 0;
      load["files"] = rec->strings;
      break;
    }
    case PI_LOAD_RANGE_CONFIGURATION:
      load["text"] = str(0);
      load["name"] = str(1);
      load["flag"] = intAt(0) != 0;
      break;
    default: load["file"] = str(0); break;
  }
  if (r.tracing)
    for (auto it = load.begin(); it != load.end(); ++it)
      if (it.key() != "op") r.args[it.key()] = it.value();
  if (refuse(r, op)) return 1;
  if (host.config_.application == Application::Plot) {
    r.problem = "not offered by the plot application";
    return 1;
  }

  switch (r.code) {
    case PI_LOAD_GOG_FILE: {
      const std::uint64_t hostId = load["hostId"];
      HostObject* owner = hostId ? s.find(hostId) : nullptr;
      if (!readable(str(0)) || (hostId && !owner)) return 1;
      if (owner) owner->settings["gogFiles"].push_back(str(0));
      break;
    }
    case PI_SET_ANTENNA_INFO: {
      HostObject* beam = s.find(load["id"].get<std::uint64_t>());
      if (!beam || beam->kind != KIND_BEAM || load["gain"].is_null() || load["peakPower"].is_null() ||
          load["frequency"].is_null())
        return 1;
      json antenna = load;
      antenna.erase("op");
      antenna.erase("id");
      beam->settings["antenna"] = std::move(antenna);
      return 0;  // a setting of the beam, not a load
    }
    case PI_PREF_RULES:
      if (intAt(0) == 0) {
        auto* out = static_cast<std::vector<std::uint64_t>*>(pointer(0));
        if (!out || !readable(str(0))) return 1;
        // The reference host does not read rule files: one rule per file.
        const std::uint64_t rule = static_cast<std::uint64_t>(host.nextRuleId_++);
        out->push_back(rule);
        load["ruleIds"] = json::array({rule});
        if (r.tracing) r.out = *out;
      } else if (intAt(0) != 1) {
        r.problem = "unknown sub-operation";
        return 1;
      }
      break;
    case PI_RFPROP_SET_INPUT_FILES: {
      HostObject* object = s.find(load["id"].get<std::uint64_t>());
      if (!object) return 1;
      object->settings["rfpropInputFiles"] = rec->strings;
      return 0;
    }
    case PI_LOAD_RANGE_CONFIGURATION:
      if (str(0).empty()) return 1;
      load.erase("text");
      load["bytes"] = str(0).size();
      break;
    default:
      if (!readable(str(0))) return 1;
      break;
  }
  host.displayLoads_.push_back(std::move(load));
  return 0;
}

}  // namespace RefHost
