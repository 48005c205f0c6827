#pragma once
// The laser commands against the host. "LaserOri" creates the laser (or
// merges it with one the host already holds) once its platform exists, and
// releases what waited for it; every other data command waits for that.

#include "asi/LaserCmds.h"
#include "asi/host/ScnStageOneOnly.h"

namespace AsiReader {

// The frame and body flag go out with the laser's header at its creation.
using LaserCoordSystem = ScnStageOneOnly<AsiInterface::LaserCoordSystem>;
using LaserRefLla = ScnStageOneOnly<AsiInterface::LaserRefLla>;
using LaserAzElBody = ScnStageOneOnly<AsiInterface::LaserAzElBody>;

// Declares the laser; in the plot application it is ignored from then on.
class LaserId : public AsiInterface::LaserId {
 public:
  using AsiInterface::LaserId::LaserId;
  FileReaderPlugin::CommandParser* clone() const override { return new LaserId(*this); }
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class LaserColor : public AsiInterface::LaserColor {
 public:
  using AsiInterface::LaserColor::LaserColor;
  FileReaderPlugin::CommandParser* clone() const override { return new LaserColor(*this); }
  void transmit() override;
};

class LaserOnOffCmd : public AsiInterface::LaserOnOffCmd {
 public:
  using AsiInterface::LaserOnOffCmd::LaserOnOffCmd;
  FileReaderPlugin::CommandParser* clone() const override { return new LaserOnOffCmd(*this); }
  void transmit() override;
};

class LaserOri : public AsiInterface::LaserOri {
 public:
  using AsiInterface::LaserOri::LaserOri;
  FileReaderPlugin::CommandParser* clone() const override { return new LaserOri(*this); }
  void transmit() override;

 private:
  // Creates or merges the laser; false when this command is done for now.
  bool create_(AsiInterface::LaserEntity& laser);
};

class LaserXYZOffset : public AsiInterface::LaserXYZOffset {
 public:
  using AsiInterface::LaserXYZOffset::LaserXYZOffset;
  FileReaderPlugin::CommandParser* clone() const override { return new LaserXYZOffset(*this); }
  void transmit() override;
};

class LaserMaxRange : public AsiInterface::LaserMaxRange {
 public:
  using AsiInterface::LaserMaxRange::LaserMaxRange;
  FileReaderPlugin::CommandParser* clone() const override { return new LaserMaxRange(*this); }
  void transmit() override;
};

class LaserWidth : public AsiInterface::LaserWidth {
 public:
  using AsiInterface::LaserWidth::LaserWidth;
  FileReaderPlugin::CommandParser* clone() const override { return new LaserWidth(*this); }
  void transmit() override;
};

}  // namespace AsiReader
