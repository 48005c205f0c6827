#pragma once
// The laser commands, stage 1. "Laser" declares a laser on a platform; the
// frame and body-flag commands fill the entity; the time-tagged commands read
// their values here and send them at transmit. The host creates the laser at
// its first "LaserOri": every other data command waits for that.

#include <cstdint>
#include <string>
#include <vector>

#include "asi/LaserParser.h"

namespace AsiInterface {

// "Laser <host platform id> <laser id> <name>".
class LaserId : public LaserParser {
 public:
  explicit LaserId(std::shared_ptr<ScenarioProvider> provider) : LaserParser("Laser", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

  uint64_t id() const { return id_; }

 protected:
  uint64_t id_ = 0;
};

// A change to the laser's own frame, made on a copy and stored back only when
// the arguments parse.
class LaserFrameCommand : public LaserParser {
 public:
  LaserFrameCommand(const std::string& name, std::shared_ptr<ScenarioProvider> provider, size_t tokenCount)
      : LaserParser(name, std::move(provider)), tokenCount_(tokenCount) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) final;
  void transmit() override {}

 protected:
  // 0 to keep the changed frame, else 1 after reporting.
  virtual int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) = 0;

  uint64_t id_ = 0;

 private:
  size_t tokenCount_;
};

// "LaserCoordSystem <id> <word or number>".
class LaserCoordSystem : public LaserFrameCommand {
 public:
  explicit LaserCoordSystem(std::shared_ptr<ScenarioProvider> provider)
      : LaserFrameCommand("LaserCoordSystem", std::move(provider), 3) {}

 protected:
  int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) override;
};

// "LaserRefLLA <id> <lat> <lon> <alt>": latitude and longitude as degree
// strings, altitude in metres.
class LaserRefLla : public LaserFrameCommand {
 public:
  explicit LaserRefLla(std::shared_ptr<ScenarioProvider> provider)
      : LaserFrameCommand("LaserRefLLA", std::move(provider), 5) {}

 protected:
  int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) override;
};

// "LaserAzElBody <id> <flag>": only the text "0" is false.
class LaserAzElBody : public LaserParser {
 public:
  explicit LaserAzElBody(std::shared_ptr<ScenarioProvider> provider)
      : LaserParser("LaserAzElBody", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

// A time-tagged laser command: "<keyword> <id> <time> <values...>". The
// count, the time and the laser are read here, in that order.
class LaserTimedCommand : public LaserParser {
 public:
  using LaserParser::LaserParser;

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void transmit() override {}

 protected:
  // The laser, or null after reporting.
  LaserEntity* parseIdAndTime_(const std::vector<std::string>& tokens, size_t tokenCount);

  uint64_t id_ = 0;
  double time_ = 0.0;
};

// "LaserColor <id> <time> <colour>".
class LaserColor : public LaserTimedCommand {
 public:
  explicit LaserColor(std::shared_ptr<ScenarioProvider> provider)
      : LaserTimedCommand("LaserColor", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  uint32_t color_ = 0;
};

// "LaserOn <id> <time> <flag>": any nonzero number switches it on.
class LaserOnOffCmd : public LaserTimedCommand {
 public:
  explicit LaserOnOffCmd(std::shared_ptr<ScenarioProvider> provider)
      : LaserTimedCommand("LaserOn", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  bool on_ = false;
};

// "LaserOri <id> <time> <yaw> <pitch> <roll>", angles as DegreeAngles says.
class LaserOri : public LaserTimedCommand {
 public:
  explicit LaserOri(std::shared_ptr<ScenarioProvider> provider)
      : LaserTimedCommand("LaserOri", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  PIData::PILaserPoint point_;
};

// "LaserXYZOffset <id> <time> <x> <y> <z>", metres.
class LaserXYZOffset : public LaserTimedCommand {
 public:
  explicit LaserXYZOffset(std::shared_ptr<ScenarioProvider> provider)
      : LaserTimedCommand("LaserXYZOffset", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  PIData::PILaserOffset offset_;
};

// "LaserMaxRange <id> <time> <range>", metres.
class LaserMaxRange : public LaserTimedCommand {
 public:
  explicit LaserMaxRange(std::shared_ptr<ScenarioProvider> provider)
      : LaserTimedCommand("LaserMaxRange", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  double range_ = 0.0;
};

// "LaserWidth <id> <time> <width>": read as a real number, kept as whole
// pixels (truncated).
class LaserWidth : public LaserTimedCommand {
 public:
  explicit LaserWidth(std::shared_ptr<ScenarioProvider> provider)
      : LaserTimedCommand("LaserWidth", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  int width_ = 0;
};

}  // namespace AsiInterface
