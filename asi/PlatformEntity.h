#pragma once
// A platform: the independent entity of the language. It keeps a copy of the
// scenario's frame as it stood at its ID line, and what the platform commands
// set before the first data point creates it in the host.

#include "asi/EntityAdapter.h"
#include "core/CoordinateConverter.h"
#include "hostapi/PIDataRecords.h"

namespace AsiInterface {

class PlatformEntity : public EntityAdapter {
 public:
  explicit PlatformEntity(const PIData::PICoordReferenceFrame& frame);
  std::string typeName() const override { return "Platform"; }

  const std::string& iconName() const { return iconName_; }
  void setIconName(const std::string& icon) { iconName_ = icon; }

  void referenceFrame(PIData::PICoordReferenceFrame& frame) const { frame = frame_; }
  // Also moves the converter's origin and tangent plane to the frame's.
  void setReferenceFrame(const PIData::PICoordReferenceFrame& frame);
  const orvCore::CoordinateConverter& converter() const { return converter_; }

  // -1 for Euler angles; 0 to 3 name the order of the quaternion columns.
  int quaternion() const { return quaternion_; }
  void setQuaternion(int mode) { quaternion_ = mode; }
  bool usingEuler() const { return quaternion_ == -1; }
  bool usingQuaternion() const { return quaternion_ != -1; }

 private:
  std::string iconName_;
  PIData::PICoordReferenceFrame frame_;
  orvCore::CoordinateConverter converter_;
  int quaternion_ = -1;
};

}  // namespace AsiInterface
