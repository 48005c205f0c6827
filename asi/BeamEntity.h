#pragma once
// A beam, hung on a platform (hostId is its ASI id). Its header is filled in
// stage 1 by the header commands and sent at creation; the antenna settings
// follow the creation.

#include <vector>

#include "asi/EntityAdapter.h"
#include "hostapi/PIDataRecords.h"

namespace AsiInterface {

class BeamEntity : public EntityAdapter {
 public:
  explicit BeamEntity(uint64_t hostId);
  std::string typeName() const override { return "Beam"; }
  // The name lives in the header as well.
  void setName(const std::string& name) override;

  uint64_t hostId() const { return hostId_; }
  void header(PIData::PIBeamHeader& header) const { header = header_; }
  void setHeader(const PIData::PIBeamHeader& header) { header_ = header; }

  // Antenna. setPattern and setAlgorithm answer 1 once an antenna is defined;
  // the other setters default the pattern to the SINXX algorithm first.
  int setPattern(int32_t kind, const std::string& file);
  int setAlgorithm(int32_t algorithm);
  void setPolarity(int32_t polarity);
  void setFrequency(double frequency);
  void setGain(double gain);
  void setPeakPower(double peakPower);
  int32_t patternKind() const { return patternKind_; }
  int32_t algorithm() const { return algorithm_; }
  int32_t polarity() const { return polarity_; }
  const std::string& patternFile() const { return patternFile_; }
  double frequency() const { return frequency_; }
  double gain() const { return gain_; }
  double peakPower() const { return peakPower_; }
  bool antennaDefined() const { return antennaDefined_; }

  void addArepsFilename(const std::string& name) { arepsFiles_.push_back(name); }
  const std::vector<std::string>& arepsFilenames() const { return arepsFiles_; }

 private:
  void defaultIfNecessary_();

  uint64_t hostId_;
  PIData::PIBeamHeader header_;
  int32_t patternKind_ = 0;  // PIORVIDE::PIAntennaName_t
  int32_t algorithm_ = 0;    // PIORVIDE::PIAntennaAlgorithm_t
  int32_t polarity_ = 0;     // PIORVIDE::PIAntennaPolarity_t
  std::string patternFile_;
  double frequency_ = 7000.0;
  double gain_ = 20.0;
  double peakPower_ = 2000.0;
  bool antennaDefined_ = false;
  std::vector<std::string> arepsFiles_;
};

}  // namespace AsiInterface
