#pragma once
// The antenna of a beam: pattern or algorithm, polarity, frequency, gain and
// peak power. Stage 1 reads the arguments; the values go into the entity when
// the command is transmitted, and reach the host once, when the beam is
// created. So only antenna lines that stand before the beam's first data line
// count, and a beam that merges with one the host held takes none of them.

#include <string>
#include <vector>

#include "asi/BeamParser.h"

namespace AsiInterface {

// "AntennaPattern <id> <kind> <file>": the kind by name, ignoring case.
class AntennaPattern : public BeamParser {
 public:
  explicit AntennaPattern(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("AntennaPattern", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  int32_t kind_ = 0;  // a PIORVIDE::PIAntennaName_t value
  std::string file_;
};

// "AntennaAlgorithm <id> <PEDESTAL|GAUSS|CSCSQ|SINXX|OMNI>", ignoring case.
class AntennaAlgorithm : public BeamParser {
 public:
  explicit AntennaAlgorithm(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("AntennaAlgorithm", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  int32_t algorithm_ = 0;  // a PIORVIDE::PIAntennaAlgorithm_t value
};

// "AntennaPolarity <id> <word>": an unknown word is polarity 0, silently.
class AntennaPolarity : public BeamParser {
 public:
  explicit AntennaPolarity(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("AntennaPolarity", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  int32_t polarity_ = 0;  // a PIORVIDE::PIAntennaPolarity_t value
};

// "AntennaFrequency", "AntennaGain" and "AntennaPeakPower" <id> <number>.
class AntennaValue : public BeamParser {
 public:
  enum Field { FREQUENCY, GAIN, PEAK_POWER };

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  AntennaValue(const std::string& name, std::shared_ptr<ScenarioProvider> provider, Field field)
      : BeamParser(name, std::move(provider)), field_(field) {}
  // Stores the value in the beam's antenna.
  void apply_(BeamEntity& beam) const;

  uint64_t id_ = 0;
  double value_ = 0.0;

 private:
  Field field_;
};

class AntennaFrequency : public AntennaValue {
 public:
  explicit AntennaFrequency(std::shared_ptr<ScenarioProvider> provider)
      : AntennaValue("AntennaFrequency", std::move(provider), FREQUENCY) {}
};

class AntennaGain : public AntennaValue {
 public:
  explicit AntennaGain(std::shared_ptr<ScenarioProvider> provider)
      : AntennaValue("AntennaGain", std::move(provider), GAIN) {}
};

class AntennaPeakPower : public AntennaValue {
 public:
  explicit AntennaPeakPower(std::shared_ptr<ScenarioProvider> provider)
      : AntennaValue("AntennaPeakPower", std::move(provider), PEAK_POWER) {}
};

}  // namespace AsiInterface
