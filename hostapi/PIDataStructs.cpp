#include "hostapi/PIDataStructs.h"

#include <algorithm>

namespace {
constexpr int32_t kBlockValues[PI_DATA_BASE_CLASS::BLOCK_SIZE] = {0, 0, 2, 2, 2, 2, 2, 2, 0};
}

PI_DATA_BASE_CLASS::PI_DATA_BASE_CLASS() : block_(new int32_t[BLOCK_SIZE]) {
  std::copy(kBlockValues, kBlockValues + BLOCK_SIZE, block_);
}

PI_DATA_BASE_CLASS::PI_DATA_BASE_CLASS(const PI_DATA_BASE_CLASS& other) : block_(new int32_t[BLOCK_SIZE]) {
  std::copy(other.block_, other.block_ + BLOCK_SIZE, block_);
}

PI_DATA_BASE_CLASS& PI_DATA_BASE_CLASS::operator=(const PI_DATA_BASE_CLASS& other) {
  if (this != &other) std::copy(other.block_, other.block_ + BLOCK_SIZE, block_);
  return *this;
}

PI_DATA_BASE_CLASS::~PI_DATA_BASE_CLASS() { delete[] block_; }
