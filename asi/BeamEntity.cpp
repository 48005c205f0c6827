#include "asi/BeamEntity.h"

namespace AsiInterface {

namespace {
const int32_t PATTERN_ALGORITHM = 1;  // the pattern kind that names an algorithm
const int32_t ALGORITHM_SINXX = 4;
}  // namespace

BeamEntity::BeamEntity(uint64_t hostId) : hostId_(hostId) { header_.name = "UNKNOWN"; }

void BeamEntity::setName(const std::string& name) {
  EntityAdapter::setName(name);
  header_.name = name;
}

int BeamEntity::setPattern(int32_t kind, const std::string& file) {
  if (antennaDefined_) return 1;
  patternKind_ = kind;
  patternFile_ = file;
  antennaDefined_ = true;
  return 0;
}

int BeamEntity::setAlgorithm(int32_t algorithm) {
  if (antennaDefined_) return 1;
  patternKind_ = PATTERN_ALGORITHM;
  algorithm_ = algorithm;
  antennaDefined_ = true;
  return 0;
}

// The defined flag stays as it is, so a pattern given after a gain is still taken.
void BeamEntity::defaultIfNecessary_() {
  if (patternKind_ != 0) return;
  patternKind_ = PATTERN_ALGORITHM;
  algorithm_ = ALGORITHM_SINXX;
}

void BeamEntity::setPolarity(int32_t polarity) {
  defaultIfNecessary_();
  polarity_ = polarity;
}

void BeamEntity::setFrequency(double frequency) {
  defaultIfNecessary_();
  frequency_ = frequency;
}

void BeamEntity::setGain(double gain) {
  defaultIfNecessary_();
  gain_ = gain;
}

void BeamEntity::setPeakPower(double peakPower) {
  defaultIfNecessary_();
  peakPower_ = peakPower;
}

}  // namespace AsiInterface
