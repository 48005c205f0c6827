#pragma once
// The line-of-bearing commands against the host. "LOBData" creates the LOB
// group (or merges it with one the host already holds) once its platform
// exists, and releases what waited for it.

#include "asi/LobCmds.h"
#include "asi/host/ScnStageOneOnly.h"

namespace AsiReader {

// Name and type go out with the LOB's header at its creation.
using LobDesc = ScnStageOneOnly<AsiInterface::LobDesc>;
using LobType = ScnStageOneOnly<AsiInterface::LobType>;

// Declares the LOB; in the plot application it is ignored from then on.
class LobId : public AsiInterface::LobId {
 public:
  using AsiInterface::LobId::LobId;
  FileReaderPlugin::CommandParser* clone() const override { return new LobId(*this); }
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class LobData : public AsiInterface::LobData {
 public:
  using AsiInterface::LobData::LobData;
  FileReaderPlugin::CommandParser* clone() const override { return new LobData(*this); }
  void transmit() override;

 private:
  // Creates or merges the LOB; false when this command is done for now.
  bool create_(AsiInterface::LobEntity& lob);
};

class LOBDrawStyle : public AsiInterface::LOBDrawStyle {
 public:
  using AsiInterface::LOBDrawStyle::LOBDrawStyle;
  FileReaderPlugin::CommandParser* clone() const override { return new LOBDrawStyle(*this); }
  void transmit() override;
};

}  // namespace AsiReader
