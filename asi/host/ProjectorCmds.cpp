#include "asi/host/ProjectorCmds.h"

#include "asi/Resolver.h"
#include "asi/host/CommandFamilies.h"
#include "asi/host/DrawableSupport.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

namespace {

const char* const MISSING_RASTER = "Must specify raster file via the ProjectorRasterFile command";

// The projector a command addresses, after the guard; null when the command
// sends nothing. A projector need not exist in the host yet.
AsiInterface::Projector* addressedProjector(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                                            uint64_t id) {
  if (TransmitSkeleton::guard(command)) return nullptr;
  AsiInterface::Projector* projector = provider.getProjector(id);
  if (projector == nullptr) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_PROJECTOR);
    return nullptr;
  }
  return projector->ignore() ? nullptr : projector;
}

}  // namespace

void ProjectorId::executeStage1(const std::vector<std::string>& tokens) {
  AsiInterface::ProjectorId::executeStage1(tokens);
  ignoreInPlotApplication(*this, provider_->getProjector(id_), TransmitSkeleton::MISSING_PROJECTOR);
}

void ProjectorId::transmit() {
  AsiInterface::Projector* projector = addressedProjector(*this, *provider_, id_);
  if (projector == nullptr) return;
  AsiInterface::Entity* host = readyHost(*this, *provider_, projector->hostAsiId(), TransmitSkeleton::MISSING_ENTITY);
  if (host == nullptr) return;

  PIData::PIProjectorHeader header;
  header.name = projector->name();
  header.originalId = projector->originalId();
  AsiInterface::Resolver* resolver = provider_->resolver();
  uint64_t uniqueId = resolver != nullptr ? resolver->getProjectorId(host->uniqueId(), id_, header) : 0;
  if (uniqueId != 0) {
    projector->setMerging(true);
  } else {
    uniqueId = PIData::createProjector(host->uniqueId(), header);
    if (uniqueId == 0) {
      setMessage(PICommon::PI_NOTIFY_WARN, "Failed to create projector; check console for error messages");
      return;
    }
    if (resolver != nullptr) resolver->setProjectorId(host->uniqueId(), id_, header, uniqueId);
  }
  projector->setUniqueId(uniqueId);
  // Category data, generic data and tables of newer files wait under the
  // projector's number. Should that number also be an entity's, that
  // entity's waiting commands run early and, finding it absent, wait again.
  provider_->transmitCommands(id_);
}

void ProjectorRasterFile::transmit() {
  AsiInterface::Projector* projector = addressedProjector(*this, *provider_, id_);
  if (projector == nullptr || projector->isMerging()) return;
  if (PIData::setProjectorRasterFileName(projector->uniqueId(), file_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to set raster file name; check console for error messages");
  // The file was given: a refusal is reported above, not again at each FOV.
  projector->setHasRasterFile();
}

void ProjectorInterpolateFov::transmit() {
  AsiInterface::Projector* projector = addressedProjector(*this, *provider_, id_);
  if (projector == nullptr || projector->isMerging()) return;
  if (PIData::setProjectorInterpolateFov(projector->uniqueId(), flag_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to set projector FOV interpolation; check console for error messages");
}

void ProjectorFOV::transmit() {
  AsiInterface::Projector* projector = addressedProjector(*this, *provider_, id_);
  if (projector == nullptr) return;
  if (!projector->hasRasterFile() && !projector->isMerging()) {
    setMessage(PICommon::PI_NOTIFY_ERROR, MISSING_RASTER);
    return;
  }
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, time_)) return;
  if (PIData::addProjectorFOV(projector->uniqueId(), time_, angle_) != 0)
    setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to set ProjectorFOV angle; check console for error messages");
}

void ProjectorOn::transmit() {
  AsiInterface::Projector* projector = addressedProjector(*this, *provider_, id_);
  if (projector == nullptr) return;
  if (!projector->hasRasterFile() && !provider_->isAppending()) {
    setMessage(PICommon::PI_NOTIFY_ERROR, MISSING_RASTER);
    return;
  }
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, time_)) return;
  const PIData::PIVisibilityStatus_t status = on_ ? PIData::PI_VISIBILITY_ON : PIData::PI_VISIBILITY_OFF;
  if (PIData::setStatus(projector->uniqueId(), status, time_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to set projector status; check console for error messages");
}

void addProjectorCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int /*version*/,
                          CommandList& commands) {
  commands.push_back(new ProjectorId(provider));
  commands.push_back(new ProjectorFOV(provider));
  commands.push_back(new ProjectorOn(provider));
  commands.push_back(new ProjectorRasterFile(provider));
  commands.push_back(new ProjectorInterpolateFov(provider));
}

}  // namespace AsiReader
