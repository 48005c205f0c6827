#include "asi/host/CustomRenderingCmds.h"

#include "asi/CustomRenderingEntity.h"
#include "asi/Resolver.h"
#include "asi/host/CommandFamilies.h"
#include "asi/host/DrawableSupport.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void CustomRendering::executeStage1(const std::vector<std::string>& tokens) {
  AsiInterface::CustomRendering::executeStage1(tokens);
  ignoreInPlotApplication(*this, provider_->getCustomRenderingEntity(id_), TransmitSkeleton::MISSING_ENTITY);
}

void CustomRendering::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::CustomRenderingEntity* object = provider_->getCustomRenderingEntity(id_);
  if (object == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    return;
  }
  if (object->ignore()) return;

  uint64_t hostUniqueId = 0;
  if (object->hostId() != 0) {
    AsiInterface::Entity* host = readyHost(*this, *provider_, object->hostId(), "Internal Error: missing host entity");
    if (host == nullptr) return;
    hostUniqueId = host->uniqueId();
  } else {
    // An object of its own counts like a platform with time-tagged data.
    provider_->setHaveNonStaticIndependent();
  }

  PIData::PICustomRenderingHeader header;
  header.name = object->name();
  header.rendererName = renderer_;
  header.originalId = object->originalId();
  const uint64_t asiId = object->asiId();
  AsiInterface::Resolver* resolver = provider_->resolver();
  uint64_t uniqueId = resolver != nullptr ? resolver->getCustomRenderingId(hostUniqueId, asiId, header) : 0;
  if (uniqueId != 0) {
    object->setMerging(true);
  } else {
    uniqueId = PIData::createCustomRendering(hostUniqueId, header);
    if (uniqueId == 0) {
      setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to create Custom Rendering; check console for error messages");
      return;
    }
    if (resolver != nullptr) resolver->setCustomRenderingId(hostUniqueId, asiId, header, uniqueId);
  }
  object->setUniqueId(uniqueId);
  provider_->transmitCommands(asiId);
}

void CustomRenderingColorCmd::transmit() {
  AsiInterface::CustomRenderingEntity* object = provider_->getCustomRenderingEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, object, time_)) return;
  if (PIData::setColor(object->uniqueId(), color_, time_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to set Custom Rendering color; check console for error messages");
}

void addCustomRenderingCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int /*version*/,
                                CommandList& commands) {
  commands.push_back(new CustomRendering(provider));
  commands.push_back(new CustomRenderingColorCmd(provider));
}

}  // namespace AsiReader
