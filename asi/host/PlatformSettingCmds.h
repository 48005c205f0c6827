#pragma once
// Host-bound platform settings: they wait for the platform's creation and
// leave alone a platform that merged with one the host held before this file.

#include "asi/PlatformSettingCmds.h"

namespace AsiReader {

class PlatformInterpolate : public AsiInterface::PlatformInterpolate {
 public:
  using AsiInterface::PlatformInterpolate::PlatformInterpolate;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformInterpolate(*this); }
  void transmit() override;
};

class PlatformOffset : public AsiInterface::PlatformOffset {
 public:
  using AsiInterface::PlatformOffset::PlatformOffset;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformOffset(*this); }
  void transmit() override;
};

class PlatformOriOffset : public AsiInterface::PlatformOriOffset {
 public:
  using AsiInterface::PlatformOriOffset::PlatformOriOffset;
  FileReaderPlugin::CommandParser* clone() const override { return new PlatformOriOffset(*this); }
  void transmit() override;
};

}  // namespace AsiReader
