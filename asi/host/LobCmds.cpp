#include "asi/host/LobCmds.h"

#include "asi/Resolver.h"
#include "asi/host/CommandFamilies.h"
#include "asi/host/DrawableSupport.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void LobId::executeStage1(const std::vector<std::string>& tokens) {
  AsiInterface::LobId::executeStage1(tokens);
  ignoreInPlotApplication(*this, provider_->getLobEntity(id_), TransmitSkeleton::MISSING_ENTITY);
}

void LobData::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::LobEntity* lob = provider_->getLobEntity(id_);
  if (lob == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    return;
  }
  if (lob->ignore()) return;
  if (!lob->doesExist() && !create_(*lob)) return;
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, time_)) return;
  point_.time = time_;
  if (PIData::addDataPoint(lob->uniqueId(), point_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add LOB Group data; check console for error messages");
}

bool LobData::create_(AsiInterface::LobEntity& lob) {
  if (lob.name().empty()) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "LOB definition missing description.");
    return false;
  }
  AsiInterface::Entity* host = readyHost(*this, *provider_, lob.hostId(), TransmitSkeleton::MISSING_ENTITY);
  if (host == nullptr) return false;
  // Unlike a beam's, a LOB's type is required in every version.
  if (!provider_->doneOnce(lob.asiId(), "LOBType")) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Must specify a LOB type via a LOBType command");
    return false;
  }

  PIData::PILobHeader header;
  header.name = lob.name();
  header.type = lob.type();
  header.originalId = lob.originalId();
  const uint64_t asiId = lob.asiId();
  AsiInterface::Resolver* resolver = provider_->resolver();

  uint64_t uniqueId = resolver != nullptr ? resolver->getLobGroupId(host->uniqueId(), asiId, header) : 0;
  if (uniqueId != 0) {
    lob.setMerging(true);
  } else {
    uniqueId = PIData::createLob(host->uniqueId(), header);
    if (uniqueId == 0) {
      setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to create LOB; check console for error messages");
      return false;
    }
    if (resolver != nullptr) resolver->setLobGroupId(host->uniqueId(), asiId, header, uniqueId);
  }
  lob.setUniqueId(uniqueId);
  provider_->transmitCommands(asiId);
  return true;
}

void LOBDrawStyle::transmit() {
  AsiInterface::LobEntity* lob = provider_->getLobEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, lob, time_)) return;
  style_.time = time_;
  if (PIData::addLobDrawStyle(lob->uniqueId(), style_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add LOB Group draw style; check console for error messages");
}

void addLobCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int /*version*/,
                    CommandList& commands) {
  commands.push_back(new LobId(provider));
  commands.push_back(new LobType(provider));
  commands.push_back(new LobDesc(provider));
  commands.push_back(new LobData(provider));
  commands.push_back(new LOBDrawStyle(provider));
}

}  // namespace AsiReader
