// Platforms, beams, gates and LOB groups of the document, with their on/off,
// colour, target and category series.
#include <algorithm>
#include <cmath>
#include <vector>

#include "core/StringUtils.h"
#include "document/AsiScenarioFile.h"
#include "document/ProgressPrinter.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIData.h"
#include "hostapi/PIORVIDE.h"

namespace {

void tellError(const std::string& text) { PICommon::notify(text, PICommon::PI_NOTIFY_ERROR, ""); }

// The name an object is sent under: "Unknown" when it has none.
std::string getName(const std::string& name) { return name.empty() ? "Unknown" : name; }

// Document states are geodetic (radians, metres) with east-north-up velocity,
// which is the host's LLA frame.
PIData::PIPlatformPoint platformPoint(const MotionStateUD& s, bool hasOrientation) {
  PIData::PIPlatformPoint p;
  p.frame = PIData::PI_DEFAULT_REFFRAME;
  p.frame.coordSystem = PIData::PI_COORD_LLA;
  p.time = s.time;
  p.x = s.lat;
  p.y = s.lon;
  p.z = s.alt;
  // Without orientation in the file only the pitch is known (the flight-path
  // angle); the host derives what is left unset.
  if (hasOrientation) {
    p.yaw = s.yaw;
    p.roll = s.roll;
  }
  p.pitch = s.pitch;
  p.vx = s.velEast;
  p.vy = s.velNorth;
  p.vz = s.velUp;
  return p;
}

PIData::PIBeamPoint beamPoint(const BeamStateUD& s) {
  PIData::PIBeamPoint p;
  p.time = s.time;
  p.azimuth = s.azimuth;
  p.elevation = s.elevation;
  p.range = s.range;
  return p;
}

PIData::PIGatePoint gatePoint(const GateStateUD& s) {
  PIData::PIGatePoint p;
  p.time = s.time;
  p.azimuth = s.azimuth;
  p.elevation = s.elevation;
  p.width = s.width;
  p.height = s.height;
  p.minRange = s.minRange;
  p.maxRange = s.maxRange;
  p.centroid = s.centroid;
  return p;
}

PIData::PIPoint piPoint(double x, double y, double z) {
  PIData::PIPoint p;
  p.x = x;
  p.y = y;
  p.z = z;
  return p;
}

// The antenna kind of a beam header's pattern type word and name.
PIORVIDE::PIAntennaName_t antennaKind(const std::string& type, const std::string& name) {
  const std::string lowerName = orvCore::lowerCase(name);
  if (lowerName == "cruiseanttable") return PIORVIDE::PI_ANTENNA_CRUISE;
  if (lowerName == "anttable") return PIORVIDE::PI_ANTENNA_TABLE;
  static const std::pair<const char*, PIORVIDE::PIAntennaName_t> kinds[] = {
      {"algorithm", PIORVIDE::PI_ANTENNA_ALGORITHM}, {"table", PIORVIDE::PI_ANTENNA_TABLE},
      {"relative", PIORVIDE::PI_ANTENNA_RELATIVE},   {"monopulse", PIORVIDE::PI_ANTENNA_MONOPULSE},
      {"bilinear", PIORVIDE::PI_ANTENNA_BILINEAR},   {"cruise", PIORVIDE::PI_ANTENNA_CRUISE},
      {"nsma", PIORVIDE::PI_ANTENNA_NSMA},           {"eznec", PIORVIDE::PI_ANTENNA_EZNEC},
      {"xfdtd", PIORVIDE::PI_ANTENNA_XFDTD}};
  const std::string lowerType = orvCore::lowerCase(type);
  for (const auto& kind : kinds)
    if (lowerType == kind.first) return kind.second;
  return PIORVIDE::PI_ANTENNA_NONE;
}

PIORVIDE::PIAntennaAlgorithm_t antennaAlgorithm(const std::string& name) {
  static const std::pair<const char*, PIORVIDE::PIAntennaAlgorithm_t> algorithms[] = {
      {"pedestal", PIORVIDE::PI_ALGORITHM_PEDESTAL}, {"gauss", PIORVIDE::PI_ALGORITHM_GAUSS},
      {"cscsq", PIORVIDE::PI_ALGORITHM_CSCSQ},       {"sinxx", PIORVIDE::PI_ALGORITHM_SINXX},
      {"omni", PIORVIDE::PI_ALGORITHM_OMNI}};
  const std::string lower = orvCore::lowerCase(name);
  for (const auto& algorithm : algorithms)
    if (lower == algorithm.first) return algorithm.second;
  return PIORVIDE::PI_ALGORITHM_NONE;
}

void sendAntenna(uint64_t beamId, const BeamHeaderUD& h) {
  if (h.antType.empty() && h.antName.empty()) return;
  const PIORVIDE::PIAntennaName_t kind = antennaKind(h.antType, h.antName);
  const bool algorithm = kind == PIORVIDE::PI_ANTENNA_ALGORITHM;
  PIORVIDE::setAntennaInfo(beamId, kind, algorithm ? antennaAlgorithm(h.antName) : PIORVIDE::PI_ALGORITHM_NONE,
                           static_cast<PIORVIDE::PIAntennaPolarity_t>(h.antPolarity), algorithm ? "" : h.antName,
                           h.antGain, h.antPower, h.antFreq);
}

}  // namespace

void AsiScenarioFile::transmitPlatformData_(const TimeWindowUD& window) {
  for (const auto& entry : scenario_->platforms()) {
    if (counted_()) return;
    PlatformUD& platform = *entry.second;
    LinearPlatMotionUD* motion = platform.Motion();
    if (motion == nullptr || motion->Size() == 0) continue;
    // States that the file gave no velocity get one from their neighbours;
    // given ones stand.
    motion->CalculateVelocities();
    if (!motion->hasOrientation()) motion->CalculateFlightPathAnglePitch();
    const bool oriented = motion->hasOrientation();

    const auto range = getAtOrInBetweenBeginAndEndIterators(motion->states(), window);
    const bool isStatic = motion->Size() == 1 && motion->StartTime() == -1.0;
    // At the window's edges the interpolated states stand for the states
    // beyond them, so the host sees the platform exactly where the window opens
    // and closes.
    const bool openAtMin = !isStatic && window.hasMin && range.first != range.second && range.first->time < window.min;
    const bool closeAtMax = !isStatic && window.hasMax && motion->EndTime() > window.max && motion->StartTime() < window.max;
    std::vector<PIData::PIPlatformPoint> edges;  // the opening edge first, if any
    MotionStateUD edge;
    const bool hasOpening = openAtMin && platform.GetState(window.min, edge);
    if (hasOpening) {
      edge.time = window.min;
      edges.push_back(platformPoint(edge, oriented));
    }
    auto first = range.first;
    auto last = range.second;
    while (openAtMin && first != last && first->time < window.min) ++first;
    while (closeAtMax && first != last && std::prev(last)->time >= window.max) --last;
    if (closeAtMax && platform.GetState(window.max, edge)) {
      edge.time = window.max;
      edges.push_back(platformPoint(edge, oriented));
    }
    // The points are made as they are sent rather than gathered first: a
    // platform's states are not held twice in the host's form.
    const size_t states = static_cast<size_t>(last - first);
    const size_t total = edges.size() + states;
    auto pointAt = [&](size_t i) {
      if (hasOpening && i == 0) return edges.front();
      if (hasOpening) --i;
      return i < states ? platformPoint(first[static_cast<std::ptrdiff_t>(i)], oriented) : edges.back();
    };
    if (total == 0) continue;

    const PlatformHeaderUD& h = *platform.Header();
    size_t next = 0;
    uint64_t hostId = sameHostPlatform_(h);
    if (hostId != 0) {
      // An appended file continues the earlier file's platform; its static
      // point is there already.
      while (next < total && pointAt(next).time == -1.0) ++next;
    } else {
      PIData::PIPlatformHeader header;
      header.name = getName(h.callSign);
      header.iconName = h.iconName;
      header.originalId = h.originalID;
      hostId = PIData::createPlatform(header, pointAt(0));
      if (hostId == 0) {
        tellError("Unable to create platform <" + h.callSign + ">.\n");
        continue;
      }
      remember_(h.uniqueID, h.originalID, hostId);
      next = 1;
    }
    // One request per state, as the command pipeline sends them: a trace of
    // either path reads the same.
    if (!remembersPointTimes_) {
      for (; next < total; ++next) PIData::addDataPoint(hostId, pointAt(next));
    } else {
      // Two files of one archive may hold the same track (a satellite in two
      // element files): a point at a time the platform already has from an
      // earlier file is not sent again, so the host's track is not doubled;
      // the earlier point stands, as sent data is never withdrawn.
      std::vector<double>& times = pointTimes_[hostId];
      std::vector<double> earlier(times);
      std::sort(earlier.begin(), earlier.end());
      if (next == 1) times.push_back(pointAt(0).time);
      for (; next < total; ++next) {
        const PIData::PIPlatformPoint point = pointAt(next);
        if (std::binary_search(earlier.begin(), earlier.end(), point.time)) continue;
        PIData::addDataPoint(hostId, point);
        times.push_back(point.time);
      }
    }
    transmitCategoryData_(hostId, platform.categoryData(), window);
    // Nothing later in the transmission reads a platform's states (beams,
    // gates and LOB groups find their host by id), and the document is
    // dropped with the next file: freeing them now keeps the document's and
    // the host's copy of a long file from being held at their peaks together.
    motion->flush();
  }
}

uint64_t AsiScenarioFile::sameHostPlatform_(const PlatformHeaderUD& h) const {
  // A later file of a feed may leave out the original id (0): the id and the
  // name still tie it to the earlier platform.
  for (auto it = ids_.lower_bound({h.uniqueID, 0}); it != ids_.end() && it->first.first == h.uniqueID; ++it) {
    if (h.originalID != 0 && it->first.second != h.originalID) continue;
    PIData::PIPlatformHeader header;
    if (PIData::getHeader(it->second, header) && header.name == h.callSign) return it->second;
  }
  return 0;
}

void AsiScenarioFile::transmitBeamData_(const TimeWindowUD& window) {
  for (const auto& entry : scenario_->beams()) {
    if (counted_()) return;
    BeamUD& beam = *entry.second;
    const BeamHeaderUD& h = *beam.Header();
    if (h.beamType <= BEAM_UNKNOWN || h.beamType > BEAM_BODY) {
      tellError("Unable to process beam type: " + CommandsUD::nameAt(CommandsUD::BEAM_TYPES, h.beamType) +
                " for beam <" + h.desc + "> \n");
      continue;
    }
    const uint64_t platformId = beam.host() ? getPluginId_(beam.host()->UniqueID()) : 0;
    if (platformId == 0) {
      tellError("Unable to find beam host for beam <" + h.desc + ">.\n");
      continue;
    }
    std::vector<PIData::PIBeamPoint> points;
    if (const auto* motion = dynamic_cast<const LinearBeamMotionUD*>(beam.motion())) {
      const auto range = getAtOrInBetweenBeginAndEndIterators(motion->states(), window);
      for (auto it = range.first; it != range.second; ++it) points.push_back(beamPoint(*it));
    }
    PIData::PIBeamHeader header;
    header.name = getName(h.desc);
    header.azimuthOffset = h.azimOffset;
    header.elevationOffset = h.elevOffset;
    header.horizontalWidth = h.hbw;
    header.verticalWidth = h.vbw;
    header.beamType = h.beamType;
    header.missileOffset = h.missileOffset;
    header.originalId = h.originalID;
    const uint64_t hostId = PIData::createBeam(platformId, header, points.empty() ? nullptr : &points.front(), false);
    if (hostId == 0) {
      tellError("Unable to create beam <" + h.desc + ">.\n");
      continue;
    }
    remember_(h.uniqueID, h.originalID, hostId);
    // The first point went in with the header; like every later one it is
    // sent as data, after the beam's data are cleared.
    PIData::flushEntityData(hostId, PIData::PI_FLUSH_ALL);
    sendAntenna(hostId, h);
    if (!h.arepsFiles.empty() && (PIORVIDE::runningInORVIDE() || PIORVIDE::runningInORVIDE10()) &&
        PIORVIDE::rfpropSetInputFiles(hostId, h.arepsFiles) != 0)
      tellError("rfpropSetInputFiles():  Error occurred loading AREPSPattern input files.\n");
    for (const PIData::PIBeamPoint& point : points) PIData::addDataPoint(hostId, point);
    transmitActiveMapAndTargets_(hostId, beam, window);
    transmitColorMap_(hostId, beam, window);
    transmitCategoryData_(hostId, beam.categoryData(), window);
    if (h.bodyOffset[0] != 0.0 || h.bodyOffset[1] != 0.0 || h.bodyOffset[2] != 0.0)
      PIData::setObjectOffset(hostId, piPoint(h.bodyOffset[0], h.bodyOffset[1], h.bodyOffset[2]));
    if (h.rollOffset != 0.0)
      PIData::setObjectOrientationOffset(hostId, piPoint(h.azimOffset, h.elevOffset, h.rollOffset));
    PIData::setBeamInterpolatePosition(hostId, beam.getInterpolate());
  }
}

void AsiScenarioFile::transmitGateData_(const TimeWindowUD& window) {
  for (const auto& entry : scenario_->gates()) {
    if (counted_()) return;
    GateUD& gate = *entry.second;
    const GateHeaderUD& h = *gate.Header();
    const uint64_t beamId = gate.host() ? getPluginId_(gate.host()->UniqueID()) : 0;
    if (beamId == 0) {
      tellError("Unable to find gate host for gate <" + h.desc + ">.\n");
      continue;
    }
    std::vector<PIData::PIGatePoint> points;
    if (const LinearGateMotionUD* motion = gate.Motion()) {
      const auto range = getAtOrInBetweenBeginAndEndIterators(motion->states(), window);
      for (auto it = range.first; it != range.second; ++it) points.push_back(gatePoint(*it));
    }
    PIData::PIGateHeader header;
    header.name = getName(h.desc);
    header.gateType = h.gateType;
    header.originalId = h.originalID;
    const uint64_t hostId = PIData::createGate(beamId, header, points.empty() ? nullptr : &points.front(), false);
    if (hostId == 0) {
      tellError("Unable to create gate <" + h.desc + ">.\n");
      continue;
    }
    remember_(h.uniqueID, h.originalID, hostId);
    for (size_t next = 1; next < points.size(); ++next) PIData::addDataPoint(hostId, points[next]);
    transmitActiveMap_(hostId, gate, window);
    transmitColorMap_(hostId, gate, window);
    transmitCategoryData_(hostId, gate.categoryData(), window);
    if (h.azimOffset != 0.0 || h.elevOffset != 0.0 || h.rollOffset != 0.0)
      PIData::setObjectOrientationOffset(hostId, piPoint(h.azimOffset, h.elevOffset, h.rollOffset));
    PIData::setGateInterpolatePosition(hostId, gate.getInterpolate());
  }
}

void AsiScenarioFile::transmitLobGroupData_(const TimeWindowUD& window) {
  for (const auto& entry : scenario_->lobGroups()) {
    if (counted_()) return;
    LOBGroupUD& group = *entry.second;
    const LOBGroupHeaderUD& h = *group.Header();
    const uint64_t platformId = group.host() ? getPluginId_(group.host()->UniqueID()) : 0;
    if (platformId == 0) {
      tellError("Unable to find LOB group host for LOB group <" + h.description + ">.\n");
      continue;
    }
    PIData::PILobHeader header;
    header.name = getName(h.description);
    header.originalId = h.originalID;
    header.type = h.type == UTILS::LOB_RELATIVE ? PIData::PI_LOB_RELATIVE : PIData::PI_LOB_ABSOLUTE;
    const uint64_t hostId = PIData::createLob(platformId, header);
    if (hostId == 0) {
      tellError("Unable to create LOB group <" + h.description + ">.\n");
      continue;
    }
    remember_(h.uniqueID, h.originalID, hostId);
    if (const LOBMotionUD* motion = group.Motion()) {
      const auto range = getAtOrInBetweenBeginAndEndIterators(motion->states(), window);
      for (auto it = range.first; it != range.second; ++it)
        for (const LOBStateUD& s : it->second) {
          PIData::PILobPoint p;
          p.time = s.time;
          p.azimuth = s.azimuth;
          p.elevation = s.elevation;
          p.range = s.range;
          PIData::addDataPoint(hostId, p);
        }
    }
    const auto styles = getAtOrInBetweenBeginAndEndIterators(group.drawStyles(), window);
    for (auto it = styles.first; it != styles.second; ++it) {
      PIData::PILobDrawStyle style;
      style.time = it->first;
      style.color1 = it->second.color1;
      style.color2 = it->second.color2;
      style.stipple1 = it->second.stipple1;
      style.stipple2 = it->second.stipple2;
      style.width = it->second.width;
      PIData::addLobDrawStyle(hostId, style);
    }
    transmitActiveMap_(hostId, group, window);
    transmitColorMap_(hostId, group, window);
    transmitCategoryData_(hostId, group.categoryData(), window);
  }
}

// Importers hang data on custom rendering objects (the OTG loader's
// uncertainty ellipses): the objects must reach the host before their tables.
// They are not counted among the transmissions of the progress dialog.
void AsiScenarioFile::transmitCustomRenderings_(const TimeWindowUD& window) {
  for (const auto& entry : scenario_->customRenderings()) {
    if (canceled_()) return;
    const CustomRenderingUD& object = *entry.second;
    const CustomRenderingHeaderUD& h = *object.Header();
    const uint64_t platformId = object.host() ? getPluginId_(object.host()->UniqueID()) : 0;
    if (object.host() != nullptr && platformId == 0) {
      tellError("Unable to find custom rendering host for <" + h.desc + ">.\n");
      continue;
    }
    PIData::PICustomRenderingHeader header;
    header.name = getName(h.desc);
    header.rendererName = h.renderer;
    header.originalId = h.originalID;
    const uint64_t hostId = PIData::createCustomRendering(platformId, header);
    if (hostId == 0) {
      tellError("Unable to create custom rendering <" + h.desc + ">.\n");
      continue;
    }
    remember_(h.uniqueID, h.originalID, hostId);
    transmitActiveMap_(hostId, object, window);
    transmitColorMap_(hostId, object, window);
    transmitCategoryData_(hostId, object.categoryData(), window);
  }
}

void AsiScenarioFile::transmitActiveMap_(uint64_t hostId, const ObjectLAUD& object, const TimeWindowUD& window) {
  const auto range = getAtOrInBetweenBeginAndEndIterators(object.onOffCommands(), window);
  for (auto it = range.first; it != range.second; ++it)
    PIData::setStatus(hostId, it->second ? PIData::PI_VISIBILITY_ON : PIData::PI_VISIBILITY_OFF, it->first);
}

void AsiScenarioFile::transmitActiveMapAndTargets_(uint64_t hostId, const BeamUD& beam, const TimeWindowUD& window) {
  transmitActiveMap_(hostId, beam, window);
  const auto range = getAtOrInBetweenBeginAndEndIterators(beam.targetCommands(), window);
  for (auto it = range.first; it != range.second; ++it) {
    const PlatformUD* target = it->second.target();
    const uint64_t targetId = target ? getPluginId_(target->UniqueID()) : 0;
    if (targetId == 0) {
      tellError("Unable to find target of beam <" + beam.Desc() + ">.\n");
      continue;
    }
    PIData::setTarget(hostId, targetId, it->first);
  }
}

void AsiScenarioFile::transmitColorMap_(uint64_t hostId, const ObjectLAUD& object, const TimeWindowUD& window) {
  const auto range = getAtOrInBetweenBeginAndEndIterators(object.colorCommands(), window);
  for (auto it = range.first; it != range.second; ++it) PIData::setColor(hostId, it->second, it->first);
}

void AsiScenarioFile::transmitCategoryData_(uint64_t hostId, const CategorySeries& categories,
                                            const TimeWindowUD& window) {
  const CategoryManager& names = scenario_->categoryManager();
  for (const auto& series : categories) {
    const auto range = getAtOrInBetweenBeginAndEndIterators(series.second, window);
    for (auto it = range.first; it != range.second; ++it) {
      PIData::PICategoryDataPoint point;
      point.time = it->first;
      point.categoryName = names.getCategoryNameString(series.first);
      point.categoryValue = names.getCategoryValueString(series.first, it->second);
      PIData::addCategoryData(hostId, point);
    }
  }
}
