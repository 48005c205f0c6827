#include "asi/host/BeamCreation.h"

#include <string>

#include "asi/PlatformEntity.h"
#include "asi/Resolver.h"
#include "asi/host/HostEntities.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"
#include "hostapi/PIKurvex.h"
#include "hostapi/PIORVIDE.h"

namespace AsiReader {

namespace {

// Files older than this need not name a beam's type.
const int LAST_VERSION_WITHOUT_BEAM_TYPE = 17;

}  // namespace

// --- the host-bound beam -------------------------------------------------------

int BeamEntity::transmitSetAntennaInfo() const {
  // The plot application draws no antenna patterns.
  if (PIKurvex::runningInKurvex() || PIKurvex::runningInKurvex10()) return 0;
  if (patternKind() == PIORVIDE::PI_ANTENNA_NONE) return 0;
  if (!doesExist()) return 1;
  return PIORVIDE::setAntennaInfo(uniqueId(), static_cast<PIORVIDE::PIAntennaName_t>(patternKind()),
                                  static_cast<PIORVIDE::PIAntennaAlgorithm_t>(algorithm()),
                                  static_cast<PIORVIDE::PIAntennaPolarity_t>(polarity()), patternFile(), gain(),
                                  peakPower(), frequency());
}

uint64_t BeamEntity::transmitCreateBeam(AsiInterface::BaseParser& parser, uint64_t hostUniqueId,
                                        AsiInterface::Resolver* resolver, const PIData::PIBeamHeader& header,
                                        const PIData::PIBeamPoint& point, bool flag) {
  uint64_t id = resolver != nullptr ? resolver->getBeamId(hostUniqueId, asiId(), header) : 0;
  if (id != 0) {
    setMerging(true);
  } else {
    id = PIData::createBeam(hostUniqueId, header, &point, flag);
    if (id == 0) return 0;
    if (resolver != nullptr) resolver->setBeamId(hostUniqueId, asiId(), header, id);
    // The point goes in as data below, like every later one.
    PIData::flushEntityData(id, PIData::PI_FLUSH_ALL);
  }
  // A target beam points at its target: it has no data points.
  if (header.beamType != PIData::PI_BEAM_TARGET) transmitAddDataPoint(parser, id, point);
  return id;
}

int BeamEntity::transmitAddDataPoint(AsiInterface::BaseParser& parser, uint64_t uniqueId,
                                     const PIData::PIBeamPoint& point) const {
  const int result = PIData::addDataPoint(uniqueId, point);
  if (result != 0)
    parser.setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add Beam data; check console for error messages");
  return result;
}

int BeamEntity::transmitArepsPattern() const {
  if (!doesExist()) return 1;
  // The files of a beam the host held before this file stand as they are.
  if (isMerging() || arepsFilenames().empty()) return 0;
  return PIORVIDE::rfpropSetInputFiles(uniqueId(), arepsFilenames());
}

int BeamEntity::transmitSetTarget(uint64_t uniqueId, uint64_t targetId, double time) const {
  return PIData::setTarget(uniqueId, targetId, time);
}

// --- creation ------------------------------------------------------------------

uint64_t beamHostUniqueId(const AsiInterface::ScenarioProvider& provider, const AsiInterface::BeamEntity& beam) {
  const AsiInterface::PlatformEntity* platform = provider.getPlatformEntity(beam.hostId());
  return platform != nullptr ? platform->uniqueId() : 0;
}

int createBeam(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
               AsiInterface::BeamEntity& entity, const PIData::PIBeamPoint& point, uint64_t targetUniqueId) {
  auto* beam = dynamic_cast<BeamEntity*>(&entity);
  if (beam == nullptr) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    return 1;
  }
  if (beam->name().empty()) beam->setName("Beam " + std::to_string(beam->asiId()));
  const uint64_t hostUniqueId = beamHostUniqueId(provider, *beam);
  if (hostUniqueId == 0) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, "Missing host platform.");
    return 1;
  }
  if (provider.version() > LAST_VERSION_WITHOUT_BEAM_TYPE && !provider.doneOnce(beam->asiId(), "BeamType"))
    command.setMessage(PICommon::PI_NOTIFY_WARN, "Should specify a beam type via a BeamType command");

  PIData::PIBeamHeader header;
  beam->header(header);
  if (header.horizontalWidth == PIData::PI_UNSET_DOUBLE) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, "Must specify a horizontal beam width via a HorzBW command");
    return 1;
  }
  if (header.verticalWidth == PIData::PI_UNSET_DOUBLE) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, "Must specify a vertical beam width via a VertBW command");
    return 1;
  }

  const uint64_t id = beam->transmitCreateBeam(command, hostUniqueId, provider.resolver(), header, point, true);
  if (id == 0) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to create beam; check console for error messages");
    return 1;
  }
  beam->setUniqueId(id);
  if (targetUniqueId != 0) beam->transmitSetTarget(id, targetUniqueId, point.time);
  provider.transmitCommands(beam->asiId());

  if (beam->transmitSetAntennaInfo() != 0) {
    command.setMessage(PICommon::PI_NOTIFY_WARN, "Invalid antenna definition; check console for error messages");
    return 1;
  }
  if (beam->transmitArepsPattern() != 0) {
    command.setMessage(PICommon::PI_NOTIFY_WARN, "Invalid AREPS Patterns; check console for error messages");
    return 1;
  }
  return 0;
}

}  // namespace AsiReader
