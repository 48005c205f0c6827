#pragma once
// "PlatformID" against the host: each one sends the scenario's reference frame
// if it has not gone yet, whatever stage 1 said.

#include "asi/PlatformIdCmd.h"

namespace AsiReader {

class PlatformId : public AsiInterface::PlatformId {
 public:
  using AsiInterface::PlatformId::PlatformId;

  FileReaderPlugin::CommandParser* clone() const override { return new PlatformId(*this); }
  // No guard: an incomplete frame is reported at every ID line, without a
  // line prefix.
  void transmit() override;
};

}  // namespace AsiReader
