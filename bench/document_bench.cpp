// Bulk figures of the scenario document, printed as plain lines:
//   bench_document [states] [platforms] [rows] [columns]
// 1. `states` platform states over `platforms` platforms, in time order per
//    platform: states/s to insert, interpolations/s at random times, and heap
//    bytes per state (measured with mallinfo2 around the insertion, mapped
//    blocks included).
// 2. A table of `rows` rows by `columns` double columns, filled column by
//    column at different times (so each column is a sub-table of its own):
//    heap bytes per cell and rows/s of forEachRow over the whole table.
#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

#include "datatable/DataTable.h"
#include "document/ScenarioUD.h"

namespace {

double seconds(std::chrono::steady_clock::time_point since) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

// Heap in use: the arena's and the blocks that malloc maps on their own
// (large arrays, which a contiguous state list is).
size_t heapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

struct CountRows : PerDataTableRowFunctor {
  size_t rows = 0;
  size_t cells = 0;
  bool operator()(DataTable&, const DataTableRowT& row) override {
    ++rows;
    cells += row.cells().size();
    return true;
  }
};

}  // namespace

int main(int argc, char** argv) {
  const size_t states = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 10000000;
  const size_t platforms = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1000;
  const size_t rows = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 1000000;
  const size_t columns = argc > 4 ? std::strtoull(argv[4], nullptr, 10) : 20;
  const size_t perPlatform = states / platforms;

  {
    ScenarioUD scenario;
    std::vector<PlatformUD*> list;
    for (size_t p = 0; p < platforms; ++p) {
      auto* platform = new PlatformUD(&scenario, std::make_unique<PlatformHeaderUD>());
      platform->SetUniqueID(p + 1);
      platform->AddToScenario(&scenario);
      list.push_back(platform);
    }
    const size_t before = heapInUse();
    auto start = std::chrono::steady_clock::now();
    for (size_t i = 0; i < perPlatform; ++i)
      for (size_t p = 0; p < platforms; ++p) {
        const double position[3] = {0.6 + 1e-6 * i, -2.1 + 1e-6 * p, 1000.0};
        const double orientation[3] = {0.001 * static_cast<double>(i % 6000), 0.0, 0.0};
        if (list[p]->AddState(static_cast<double>(i), position, orientation, nullptr) != 0) std::abort();
      }
    const double insertSeconds = seconds(start);
    const size_t bytes = heapInUse() - before;
    const size_t inserted = perPlatform * platforms;

    std::mt19937_64 random(42);
    std::uniform_int_distribution<size_t> pick(0, platforms - 1);
    std::uniform_real_distribution<double> when(0.0, static_cast<double>(perPlatform - 1));
    MotionStateUD out;
    size_t found = 0;
    start = std::chrono::steady_clock::now();
    for (size_t i = 0; i < inserted; ++i) found += list[pick(random)]->GetState(when(random), out);
    const double lookupSeconds = seconds(start);
    std::printf("platform states: %zu over %zu platforms\n", inserted, platforms);
    std::printf("  insert: %.0f states/s\n", inserted / insertSeconds);
    std::printf("  interpolate: %.0f states/s (%zu answered)\n", inserted / lookupSeconds, found);
    std::printf("  heap: %.1f bytes/state (fields of a state: %zu bytes)\n", double(bytes) / inserted,
                sizeof(MotionStateUD));
  }

  {
    DataTable table(0, 1, "bench", 1);
    for (size_t c = 0; c < columns; ++c) {
      int64_t id = 0;
      table.addColumn("c" + std::to_string(c), UTILS::VT_FLOAT64, id);
    }
    const size_t before = heapInUse();
    auto start = std::chrono::steady_clock::now();
    // Column c is filled at times offset by c/100: no two columns share a time.
    for (size_t c = 0; c < columns; ++c)
      for (size_t r = 0; r < rows; ++r) {
        DataTableRowT row(static_cast<double>(r) + static_cast<double>(c) / 100.0);
        row.addCell(static_cast<int64_t>(c), new DataTableCellTyped<double>(static_cast<double>(r)));
        table.addRow(row);
      }
    const double fillSeconds = seconds(start);
    const size_t bytes = heapInUse() - before;
    CountRows count;
    start = std::chrono::steady_clock::now();
    table.forEachRow(-1.0, 1e300, count);
    const double walkSeconds = seconds(start);
    std::printf("data table: %zu rows x %zu columns, %zu sub-tables\n", rows, columns, table.subTableCount());
    std::printf("  fill: %.0f cells/s\n", rows * columns / fillSeconds);
    std::printf("  heap: %.1f bytes/cell (a time and a double)\n", double(bytes) / (rows * columns));
    std::printf("  forEachRow: %.0f rows/s (%zu rows, %zu cells)\n", count.rows / walkSeconds, count.rows,
                count.cells);
  }
  return 0;
}
