#pragma once
// The custom rendering commands against the host. "CustomRendering" creates
// the object at its own line: at once without a host, else once its platform
// exists (until then it waits for the platform).

#include "asi/CustomRenderingCmds.h"

namespace AsiReader {

// In the plot application the object is ignored from its declaration on.
class CustomRendering : public AsiInterface::CustomRendering {
 public:
  using AsiInterface::CustomRendering::CustomRendering;
  FileReaderPlugin::CommandParser* clone() const override { return new CustomRendering(*this); }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override;
};

class CustomRenderingColorCmd : public AsiInterface::CustomRenderingColorCmd {
 public:
  using AsiInterface::CustomRenderingColorCmd::CustomRenderingColorCmd;
  FileReaderPlugin::CommandParser* clone() const override { return new CustomRenderingColorCmd(*this); }
  void transmit() override;
};

}  // namespace AsiReader
