#pragma once
// Stage 1 of the commands that name side files of the scenario: terrain,
// rule, view, media, image, overlay and range-configuration files, and the
// ones that are read but no longer served (sound, DED and WVS maps). Those
// that may appear once per file are checked in the done-once book on id 0.

#include <memory>
#include <string>
#include <vector>

#include "asi/ScnCommandBase.h"

namespace AsiInterface {

// A command with one file name, allowed once per file.
class ScnOnceFileCommand : public ScnCommand {
 public:
  using ScnCommand::ScnCommand;
  void executeStage1(const std::vector<std::string>& tokens) override;

  const std::string& fileName() const { return fileName_; }

 protected:
  std::string fileName_;
};

// A command with one or more file names.
class ScnFileListCommand : public ScnCommand {
 public:
  using ScnCommand::ScnCommand;
  void executeStage1(const std::vector<std::string>& tokens) override;

  const std::vector<std::string>& fileNames() const { return fileNames_; }

 protected:
  std::vector<std::string> fileNames_;
};

class ITConfigFile : public ScnOnceFileCommand {
 public:
  explicit ITConfigFile(std::shared_ptr<ScenarioProvider> provider)
      : ScnOnceFileCommand("ITConfigFile", std::move(provider)) {}
};

// Files of version 13 and before: a terrain configuration under another name.
class ImageFileDeprecated : public ITConfigFile {
 public:
  explicit ImageFileDeprecated(std::shared_ptr<ScenarioProvider> provider) : ITConfigFile(std::move(provider)) {
    setName("ImageFile");
  }
};

class RuleFile : public ScnOnceFileCommand {
 public:
  explicit RuleFile(std::shared_ptr<ScenarioProvider> provider)
      : ScnOnceFileCommand("RuleFile", std::move(provider)) {}
};

class ViewFile : public ScnOnceFileCommand {
 public:
  explicit ViewFile(std::shared_ptr<ScenarioProvider> provider)
      : ScnOnceFileCommand("ViewFile", std::move(provider)) {}
};

// Once per kind of media file: ".tmd", ".lst" and ".pst" are one kind,
// ".toc" another; other extensions are not limited.
class MediaFile : public ScnCommand {
 public:
  explicit MediaFile(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("MediaFile", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  std::string fileName_;
};

// Version 14 on: media files, as many as given.
class ImageFile : public ScnFileListCommand {
 public:
  explicit ImageFile(std::shared_ptr<ScenarioProvider> provider)
      : ScnFileListCommand("ImageFile", std::move(provider)) {}
};

class GOGFile : public ScnFileListCommand {
 public:
  explicit GOGFile(std::shared_ptr<ScenarioProvider> provider) : ScnFileListCommand("GOGFile", std::move(provider)) {}
};

// A range-configuration file that the host's file locator finds.
class File : public ScnCommand {
 public:
  explicit File(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("File", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  std::string fileName_;
};

class SoundFile : public ScnCommand {
 public:
  explicit SoundFile(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("SoundFile", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  std::string fileName_;
  double start_ = 0.0;
  double end_ = 0.0;
};

class DEDMap : public ScnCommand {
 public:
  explicit DEDMap(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("DEDMap", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class WVSMap : public ScnFileListCommand {
 public:
  explicit WVSMap(std::shared_ptr<ScenarioProvider> provider) : ScnFileListCommand("WVSMap", std::move(provider)) {}
};

}  // namespace AsiInterface
