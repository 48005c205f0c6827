#pragma once
// Beam commands that declare a beam and fill its header before the first data
// line: the ID, the name, the widths and offsets, the type, the missile-offset
// flag and the AREPS files. All of them act in stage 1 on the entity; the
// header goes to the host when the beam is created.

#include <string>
#include <vector>

#include "asi/BeamParser.h"

namespace AsiInterface {

// "BeamID <host platform id> <beam id>".
class BeamId : public BeamParser {
 public:
  explicit BeamId(std::shared_ptr<ScenarioProvider> provider) : BeamParser("BeamID", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t hostId_ = 0;
  uint64_t id_ = 0;
};

// "BeamDesc <id> <name>".
class BeamDesc : public BeamParser {
 public:
  explicit BeamDesc(std::shared_ptr<ScenarioProvider> provider) : BeamParser("BeamDesc", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

// "VertBW <id> <degrees>" and "HorzBW <id> <degrees>": a width of (nearly)
// zero is replaced by a usable one, with a warning.
class BeamWidth : public BeamParser {
 public:
  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  struct Texts {
    const char* invalid;
    const char* replaced;
    double replacementDegrees;
  };
  BeamWidth(const std::string& name, std::shared_ptr<ScenarioProvider> provider, bool horizontal, const Texts& texts)
      : BeamParser(name, std::move(provider)), horizontal_(horizontal), texts_(texts) {}

  uint64_t id_ = 0;

 private:
  bool horizontal_;
  Texts texts_;
};

class VertBW : public BeamWidth {
 public:
  explicit VertBW(std::shared_ptr<ScenarioProvider> provider)
      : BeamWidth("VertBW", std::move(provider), false,
                  {"Invalid vertical beam width", "Invalid vertical beam width, setting to 1", 1.0}) {}
};

class HorzBW : public BeamWidth {
 public:
  explicit HorzBW(std::shared_ptr<ScenarioProvider> provider)
      : BeamWidth("HorzBW", std::move(provider), true,
                  {"Invalid horizontal beam width", "Invalid horizontal beam width, setting to 360", 360.0}) {}
};

// "AzimOffset <id> <degrees>" and "ElevOffset <id> <degrees>": the pointing
// offsets of the header.
class BeamHeaderOffset : public BeamParser {
 public:
  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  BeamHeaderOffset(const std::string& name, std::shared_ptr<ScenarioProvider> provider, bool azimuth,
                   const char* invalidText)
      : BeamParser(name, std::move(provider)), azimuth_(azimuth), invalidText_(invalidText) {}

  uint64_t id_ = 0;

 private:
  bool azimuth_;
  const char* invalidText_;
};

class AzimOffset : public BeamHeaderOffset {
 public:
  explicit AzimOffset(std::shared_ptr<ScenarioProvider> provider)
      : BeamHeaderOffset("AzimOffset", std::move(provider), true, "Invalid azimuth offset") {}
};

class ElevOffset : public BeamHeaderOffset {
 public:
  explicit ElevOffset(std::shared_ptr<ScenarioProvider> provider)
      : BeamHeaderOffset("ElevOffset", std::move(provider), false, "Invalid elevation offset") {}
};

// "BeamMissileOffset <id>".
class BeamMissileOffset : public BeamParser {
 public:
  explicit BeamMissileOffset(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("BeamMissileOffset", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

// "BeamType <id> <ABSOLUTE|BODY|TARGET|UNKNOWN>", once per beam. Newer files
// are expected to give it: its absence is warned about at creation.
class BeamType : public BeamParser {
 public:
  explicit BeamType(std::shared_ptr<ScenarioProvider> provider) : BeamParser("BeamType", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

// "AREPSPattern <id> <file> [file...]": propagation input files of the beam.
class AREPSPattern : public BeamParser {
 public:
  explicit AREPSPattern(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("AREPSPattern", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

}  // namespace AsiInterface
