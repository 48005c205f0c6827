#pragma once
// A time-tagged series of fixed-width numeric records, stored flat in chunks
// of CHUNK_RECORDS records, `stride` doubles per record, the time first: a
// growing series never copies what it holds. Strings and frames are kept as
// indices into pools, so a record owns no heap memory. In counting mode only
// the count and the time span are kept.

#include <cstddef>
#include <limits>
#include <memory>
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
  bool keepsRecords() const { return kept_ == count_; }

  // Adds a record of `stride` values beginning with the time.
  void add(const double* record, bool keep);
  // Record i (only when records are kept).
  const double* record(std::size_t i) const {
    return chunks_[i / CHUNK_RECORDS].get() + (i % CHUNK_RECORDS) * stride_;
  }

  std::size_t memoryBytes() const { return chunks_.size() * CHUNK_RECORDS * stride_ * sizeof(double); }
  void clear();
  // Drops the timed records (time other than -1), or the static ones.
  void removeTimed();
  void removeStatic();

 private:
  static constexpr std::size_t CHUNK_RECORDS = 1024;

  // Keeps only the records for which `keep(time)` holds.
  template <typename Keep>
  void filter_(Keep keep);

  unsigned stride_;
  std::size_t count_ = 0;
  std::size_t kept_ = 0;  // records stored; count_ unless counting
  std::size_t staticCount_ = 0;
  bool timed_ = false;
  double minTime_ = 0.0;
  double maxTime_ = 0.0;
  std::vector<std::unique_ptr<double[]>> chunks_;
};

}  // namespace RefHost
