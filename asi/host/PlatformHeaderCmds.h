#pragma once
// Host-bound name, icon and quaternion mode: they act in stage 1 and send
// nothing themselves; the creating data line carries what they set.

#include "asi/PlatformHeaderCmds.h"

namespace AsiReader {

class PlatformName : public AsiInterface::PlatformName {
 public:
  using AsiInterface::PlatformName::PlatformName;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformName(*this); }
};

class PlatformIcon : public AsiInterface::PlatformIcon {
 public:
  using AsiInterface::PlatformIcon::PlatformIcon;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformIcon(*this); }
};

class PlatformUsesQuaternion : public AsiInterface::PlatformUsesQuaternion {
 public:
  using AsiInterface::PlatformUsesQuaternion::PlatformUsesQuaternion;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformUsesQuaternion(*this); }
};

}  // namespace AsiReader
