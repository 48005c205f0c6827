#pragma once
// The host-bound file commands. Only the display application loads side
// files; view and media files wait until every entity of the file is loaded,
// overlay files until the scenario's frame was sent, and the range
// configuration of "File" is found through the host's file locator.

#include "asi/ScenarioFileCommands.h"

namespace AsiReader {

class ITConfigFile : public AsiInterface::ITConfigFile {
 public:
  using AsiInterface::ITConfigFile::ITConfigFile;
  FileReaderPlugin::CommandParser* clone() const override { return new ITConfigFile(*this); }
  void transmit() override;
};

// Version 13 and before: the terrain configuration under the name "ImageFile".
class ImageFileDeprecated : public AsiInterface::ImageFileDeprecated {
 public:
  using AsiInterface::ImageFileDeprecated::ImageFileDeprecated;
  FileReaderPlugin::CommandParser* clone() const override { return new ImageFileDeprecated(*this); }
  void transmit() override;
};

class RuleFile : public AsiInterface::RuleFile {
 public:
  using AsiInterface::RuleFile::RuleFile;
  FileReaderPlugin::CommandParser* clone() const override { return new RuleFile(*this); }
  void transmit() override;
};

class ViewFile : public AsiInterface::ViewFile {
 public:
  using AsiInterface::ViewFile::ViewFile;
  FileReaderPlugin::CommandParser* clone() const override { return new ViewFile(*this); }
  void transmit() override;
};

class MediaFile : public AsiInterface::MediaFile {
 public:
  using AsiInterface::MediaFile::MediaFile;
  FileReaderPlugin::CommandParser* clone() const override { return new MediaFile(*this); }
  void transmit() override;
};

class ImageFile : public AsiInterface::ImageFile {
 public:
  using AsiInterface::ImageFile::ImageFile;
  FileReaderPlugin::CommandParser* clone() const override { return new ImageFile(*this); }
  void transmit() override;
};

// Not scenario-owning: an appended file's overlays load too.
class GOGFile : public AsiInterface::GOGFile {
 public:
  using AsiInterface::GOGFile::GOGFile;
  FileReaderPlugin::CommandParser* clone() const override { return new GOGFile(*this); }
  void transmit() override;
};

class File : public AsiInterface::File {
 public:
  // The host's file kind of a range-configuration file.
  static const int RANGE_CONFIGURATION_KIND = 11;

  using AsiInterface::File::File;
  FileReaderPlugin::CommandParser* clone() const override { return new File(*this); }
  void transmit() override;

 private:
  // Reads `path` and hands its text to the host.
  void transmitRtConfig_(const std::string& path);
};

// Read for compatibility; the host no longer plays sound, DED or WVS maps,
// and says so even after a bad line.
class SoundFile : public AsiInterface::SoundFile {
 public:
  using AsiInterface::SoundFile::SoundFile;
  FileReaderPlugin::CommandParser* clone() const override { return new SoundFile(*this); }
  void transmit() override;
};

class DEDMap : public AsiInterface::DEDMap {
 public:
  using AsiInterface::DEDMap::DEDMap;
  FileReaderPlugin::CommandParser* clone() const override { return new DEDMap(*this); }
  void transmit() override;
};

class WVSMap : public AsiInterface::WVSMap {
 public:
  using AsiInterface::WVSMap::WVSMap;
  FileReaderPlugin::CommandParser* clone() const override { return new WVSMap(*this); }
  void transmit() override;
};

}  // namespace AsiReader
