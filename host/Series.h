#pragma once
// A time-tagged series of fixed-width numeric records, stored flat: one
// vector of doubles, `stride` values per record, the time first. Strings and
// frames are kept as indices into pools, so a record owns no heap memory.
// In counting mode only the count and the time span are kept.

#include <cstddef>
#include <limits>
#include <vector>

namespace RefHost {

class Series {
 public:
  explicit Series(unsigned stride = 1) : stride_(stride) {}

  unsigned stride() const { return stride_; }
  std::size_t count() const { return count_; }
  bool empty() const { return count_ == 0; }
  // Smallest and largest time other than the static time -1; NaN when none.
  double minTime() const { return timed_ ? minTime_ : std::numeric_limits<double>::quiet_NaN(); }
  double maxTime() const { return timed_ ? maxTime_ : std::numeric_limits<double>::quiet_NaN(); }
  bool hasTimedRecords() const { return timed_; }
  // Whether the records themselves were kept (false in counting mode).
  bool keepsRecords() const { return values_.size() == count_ * stride_; }

  // Adds a record of `stride` values beginning with the time.
  void add(const double* record, bool keep);
  // Record i (only when records are kept).
  const double* record(std::size_t i) const { return values_.data() + i * stride_; }

  std::size_t memoryBytes() const { return values_.capacity() * sizeof(double); }
  void clear();
  // Drops the timed records (time other than -1), or the static ones.
  void removeTimed();
  void removeStatic();

 private:
  unsigned stride_;
  std::size_t count_ = 0;
  std::size_t staticCount_ = 0;
  bool timed_ = false;
  double minTime_ = 0.0;
  double maxTime_ = 0.0;
  std::vector<double> values_;
};

}  // namespace RefHost
