#include "asi/PlatformEntity.h"

namespace AsiInterface {

PlatformEntity::PlatformEntity(const PIData::PICoordReferenceFrame& frame) { setReferenceFrame(frame); }

void PlatformEntity::setReferenceFrame(const PIData::PICoordReferenceFrame& frame) {
  frame_ = frame;
  converter_.setReferenceOrigin(frame.latitude, frame.longitude, frame.altitude);
  converter_.setTangentPlaneOffsets(frame.tangentPlaneX, frame.tangentPlaneY, frame.tangentPlaneAngle);
}

}  // namespace AsiInterface
