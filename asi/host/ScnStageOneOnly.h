#pragma once
// The host-bound form of a command whose whole effect is in stage 1 (on the
// provider) or that is read and ignored: it sends nothing.

#include "pipeline/CommandParser.h"

namespace AsiReader {

template <typename Stage1>
class ScnStageOneOnly : public Stage1 {
 public:
  using Stage1::Stage1;
  FileReaderPlugin::CommandParser* clone() const override { return new ScnStageOneOnly(*this); }
  void transmit() override {}
};

}  // namespace AsiReader
