// Wrapper calls through a function map that does no work: the price of the
// record (with its heap block), the override query and the dispatch.

#include <benchmark/benchmark.h>

#include "hostapi/PIBase.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIData.h"

namespace {

class NullMap : public PIFunctionMap {
 public:
  uint64_t dispatch(PIFunctionMap*, void*, PIServerFunctions_t code, void* params, PIFunctionMap**) override {
    benchmark::DoNotOptimize(params);
    return code == PI_OVERRIDE_THIS_POINTER ? 0 : 1;
  }
};

NullMap g_map;
int g_context = 0;

void install() { PIBase::setFunctionMap(&g_map, &g_context); }

void BM_Handle(benchmark::State& state) {
  install();
  double value = 1.0;
  for (auto _ : state) benchmark::DoNotOptimize(handle(PI_SET_WIND_SPEED, &value));
}
BENCHMARK(BM_Handle);

void BM_AddPlatformPoint(benchmark::State& state) {
  install();
  PIData::PIPlatformPoint point;
  for (auto _ : state) {
    point.time += 1.0;
    benchmark::DoNotOptimize(PIData::addDataPoint(42, point));
  }
}
BENCHMARK(BM_AddPlatformPoint);

void BM_AddCategoryData(benchmark::State& state) {
  install();
  PIData::PICategoryDataPoint point;
  point.categoryName = "Type";
  point.categoryValue = "Ship";
  for (auto _ : state) benchmark::DoNotOptimize(PIData::addCategoryData(42, point));
}
BENCHMARK(BM_AddCategoryData);

void BM_AddDataTableRow(benchmark::State& state) {
  install();
  DataTableRowT row(0.0);
  for (int64_t c = 0; c < state.range(0); ++c) row.addCell(c, new DataTableCellTyped<double>(c * 0.5));
  for (auto _ : state) benchmark::DoNotOptimize(PIData::addDataTableRow(7, row));
}
BENCHMARK(BM_AddDataTableRow)->Arg(4)->Arg(32);

void BM_Notify(benchmark::State& state) {
  install();
  const std::string text = "Line 120 PlatformData: Invalid time\n";
  for (auto _ : state) PICommon::notify(text, PICommon::PI_NOTIFY_WARN, "");
}
BENCHMARK(BM_Notify);

}  // namespace

BENCHMARK_MAIN();
