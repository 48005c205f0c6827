#include "asi/host/LaserCmds.h"

#include "asi/Resolver.h"
#include "asi/host/CommandFamilies.h"
#include "asi/host/DrawableSupport.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void LaserId::executeStage1(const std::vector<std::string>& tokens) {
  AsiInterface::LaserId::executeStage1(tokens);
  ignoreInPlotApplication(*this, provider_->getLaserEntity(id_), TransmitSkeleton::MISSING_ENTITY);
}

void LaserColor::transmit() {
  AsiInterface::LaserEntity* laser = provider_->getLaserEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, laser, time_)) return;
  if (PIData::setColor(laser->uniqueId(), color_, time_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to set Laser color; check console for error messages");
}

void LaserOnOffCmd::transmit() {
  AsiInterface::LaserEntity* laser = provider_->getLaserEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, laser, time_)) return;
  const PIData::PIVisibilityStatus_t status = on_ ? PIData::PI_VISIBILITY_ON : PIData::PI_VISIBILITY_OFF;
  if (PIData::setStatus(laser->uniqueId(), status, time_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to set Laser status; check console for error messages");
}

void LaserOri::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::LaserEntity* laser = provider_->getLaserEntity(id_);
  if (laser == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    return;
  }
  if (laser->ignore()) return;
  // A laser that the host held before this file keeps its static orientation.
  if (laser->isMerging() && time_ == -1.0) return;
  if (!laser->doesExist() && !create_(*laser)) return;
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, time_)) return;
  point_.time = time_;
  if (PIData::addLaserOriDataPoint(laser->uniqueId(), point_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN,
               "Failed to add Laser Orientation Data Point; check console for error messages");
}

bool LaserOri::create_(AsiInterface::LaserEntity& laser) {
  if (laser.name().empty()) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Laser definition missing description.");
    return false;
  }
  AsiInterface::Entity* host = readyHost(*this, *provider_, laser.hostId(), TransmitSkeleton::MISSING_ENTITY);
  if (host == nullptr) return false;

  PIData::PILaserHeader header;
  header.name = laser.name();
  laser.referenceFrame(header.frame);
  header.bodyFlag = laser.bodyFlag();
  const uint64_t originalId = laser.originalId();
  const uint64_t asiId = laser.asiId();
  AsiInterface::Resolver* resolver = provider_->resolver();

  uint64_t uniqueId = resolver != nullptr ? resolver->getLaserId(host->uniqueId(), asiId, header, originalId) : 0;
  if (uniqueId != 0) {
    laser.setMerging(true);
  } else {
    uniqueId = PIData::createLaser(host->uniqueId(), header, originalId);
    if (uniqueId == 0) {
      setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to create Laser; check console for error messages");
      return false;
    }
    if (resolver != nullptr) resolver->setLaserId(host->uniqueId(), asiId, header, originalId, uniqueId);
  }
  laser.setUniqueId(uniqueId);
  provider_->transmitCommands(asiId);
  return true;
}

void LaserXYZOffset::transmit() {
  AsiInterface::LaserEntity* laser = provider_->getLaserEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, laser, time_)) return;
  offset_.time = time_;
  if (PIData::addLaserOffsetDataPoint(laser->uniqueId(), offset_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add Laser Offset Data Point; check console for error messages");
}

void LaserMaxRange::transmit() {
  AsiInterface::LaserEntity* laser = provider_->getLaserEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, laser, time_)) return;
  // The host operation takes the range before the time.
  if (PIData::addLaserMaxRangeDataPoint(laser->uniqueId(), range_, time_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add Laser Max Range Data Point; check console for error messages");
}

void LaserWidth::transmit() {
  AsiInterface::LaserEntity* laser = provider_->getLaserEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, laser, time_)) return;
  if (PIData::addLaserWidthDataPoint(laser->uniqueId(), time_, width_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add Laser Width Data Point; check console for error messages");
}

void addLaserCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int /*version*/,
                      CommandList& commands) {
  commands.push_back(new LaserId(provider));
  commands.push_back(new LaserCoordSystem(provider));
  commands.push_back(new LaserRefLla(provider));
  commands.push_back(new LaserAzElBody(provider));
  commands.push_back(new LaserXYZOffset(provider));
  commands.push_back(new LaserMaxRange(provider));
  commands.push_back(new LaserWidth(provider));
  commands.push_back(new LaserColor(provider));
  commands.push_back(new LaserOnOffCmd(provider));
  commands.push_back(new LaserOri(provider));
}

}  // namespace AsiReader
