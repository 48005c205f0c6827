#include "host/Series.h"

namespace RefHost {

void Series::add(const double* record, bool keep) {
  const double t = record[0];
  if (t != -1.0 && t == t) {
    if (!timed_) {
      minTime_ = maxTime_ = t;
      timed_ = true;
    } else {
      if (t < minTime_) minTime_ = t;
      if (t > maxTime_) maxTime_ = t;
    }
  } else if (t == -1.0) {
    ++staticCount_;
  }
  // Once a record has been dropped the series stays a count, so that
  // record(i) never addresses a record that was not kept.
  if (keep && values_.size() == count_ * stride_) values_.insert(values_.end(), record, record + stride_);
  else if (!values_.empty()) values_.clear(), values_.shrink_to_fit();
  ++count_;
}

void Series::clear() {
  count_ = 0;
  staticCount_ = 0;
  timed_ = false;
  values_.clear();
}

}  // namespace RefHost

namespace RefHost {

void Series::removeTimed() {
  if (keepsRecords()) {
    std::vector<double> kept;
    for (std::size_t i = 0; i < count_; ++i)
      if (record(i)[0] == -1.0) kept.insert(kept.end(), record(i), record(i) + stride_);
    values_.swap(kept);
  }
  // Records with a NaN time are not static, so they go too.
  count_ = staticCount_;
  timed_ = false;
}

void Series::removeStatic() {
  if (keepsRecords()) {
    std::vector<double> kept;
    for (std::size_t i = 0; i < count_; ++i)
      if (record(i)[0] != -1.0) kept.insert(kept.end(), record(i), record(i) + stride_);
    values_.swap(kept);
  }
  count_ -= staticCount_;
  staticCount_ = 0;
}

}  // namespace RefHost
