#pragma once
// Host-bound platform commands that may come before the platform's ID line:
// until a platform of their id exists in the host they wait under that id.

#include "asi/PlatformByIdCmds.h"
#include "asi/PlatformEntity.h"

namespace AsiReader {

class PlatformRCS : public AsiInterface::PlatformRCS {
 public:
  using AsiInterface::PlatformRCS::PlatformRCS;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformRCS(*this); }
  void transmit() override;
};

// Display host only.
class PlatformAttachedGOG : public AsiInterface::PlatformAttachedGOG {
 public:
  using AsiInterface::PlatformAttachedGOG::PlatformAttachedGOG;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformAttachedGOG(*this); }
  void transmit() override;
};

class PlatformType : public AsiInterface::PlatformType {
 public:
  using AsiInterface::PlatformType::PlatformType;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformType(*this); }
  void transmit() override;
};

class PlatformFHN : public AsiInterface::PlatformFHN {
 public:
  using AsiInterface::PlatformFHN::PlatformFHN;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformFHN(*this); }
  void transmit() override;
};

}  // namespace AsiReader
