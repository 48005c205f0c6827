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
  if (keep && kept_ == count_) {
    if (kept_ % CHUNK_RECORDS == 0) chunks_.emplace_back(new double[CHUNK_RECORDS * stride_]);
    double* slot = chunks_.back().get() + (kept_ % CHUNK_RECORDS) * stride_;
    for (unsigned i = 0; i < stride_; ++i) slot[i] = record[i];
    ++kept_;
  } else if (!chunks_.empty()) {
    chunks_.clear();
    chunks_.shrink_to_fit();
    kept_ = 0;
  }
  ++count_;
}

void Series::clear() {
  count_ = 0;
  kept_ = 0;
  staticCount_ = 0;
  timed_ = false;
  chunks_.clear();
}

template <typename Keep>
void Series::filter_(Keep keep) {
  Series kept(stride_);
  for (std::size_t i = 0; i < count_; ++i)
    if (keep(record(i)[0])) kept.add(record(i), true);
  chunks_.swap(kept.chunks_);
  kept_ = kept.kept_;
}

}  // namespace RefHost

namespace RefHost {

void Series::removeTimed() {
  if (keepsRecords()) filter_([](double time) { return time == -1.0; });
  // Records with a NaN time are not static, so they go too.
  count_ = staticCount_;
  timed_ = false;
}

void Series::removeStatic() {
  if (keepsRecords()) filter_([](double time) { return time != -1.0; });
  count_ -= staticCount_;
  staticCount_ = 0;
}

}  // namespace RefHost
