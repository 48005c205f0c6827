#pragma once
// Host-bound platform frame commands: the frame travels with every point of
// the platform, so they send nothing themselves.

#include "asi/PlatformFrameCmds.h"

namespace AsiReader {

class PlatformCoordSystem : public AsiInterface::PlatformCoordSystem {
 public:
  using AsiInterface::PlatformCoordSystem::PlatformCoordSystem;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformCoordSystem(*this); }
};

class PlatformReferenceLla : public AsiInterface::PlatformReferenceLla {
 public:
  using AsiInterface::PlatformReferenceLla::PlatformReferenceLla;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformReferenceLla(*this); }
};

class PlatformTangentPlaneOffset : public AsiInterface::PlatformTangentPlaneOffset {
 public:
  using AsiInterface::PlatformTangentPlaneOffset::PlatformTangentPlaneOffset;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformTangentPlaneOffset(*this); }
};

class PlatformReferenceTimeEci : public AsiInterface::PlatformReferenceTimeEci {
 public:
  using AsiInterface::PlatformReferenceTimeEci::PlatformReferenceTimeEci;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformReferenceTimeEci(*this); }
};

class PlatformMagneticVariance : public AsiInterface::PlatformMagneticVariance {
 public:
  using AsiInterface::PlatformMagneticVariance::PlatformMagneticVariance;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformMagneticVariance(*this); }
};

class PlatformVerticalDatum : public AsiInterface::PlatformVerticalDatum {
 public:
  using AsiInterface::PlatformVerticalDatum::PlatformVerticalDatum;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformVerticalDatum(*this); }
};

}  // namespace AsiReader
