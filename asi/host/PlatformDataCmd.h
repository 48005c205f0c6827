#pragma once
// "PlatformData" against the host: the first good line of a platform creates
// it (or merges it with one the host already holds) and releases what waited
// for it; every later line is one point, one host call.

#include <typeinfo>

#include "asi/PlatformDataCmd.h"

namespace AsiReader {

class PlatformData : public AsiInterface::PlatformData {
 public:
  using AsiInterface::PlatformData::PlatformData;

  FileReaderPlugin::CommandParser* clone() const override { return new PlatformData(*this); }
  bool renewFrom(const FileReaderPlugin::CommandParser& prototype) override {
    if (typeid(prototype) != typeid(*this)) return false;
    *this = static_cast<const PlatformData&>(prototype);
    return true;
  }
  void transmit() override;

 private:
  void create_(AsiInterface::PlatformEntity& platform);
  void addPoint_(const AsiInterface::PlatformEntity& platform);
};

}  // namespace AsiReader
