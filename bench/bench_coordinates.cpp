// Conversions per second for LLA to ECEF, ECEF to LLA and LLA to XEAST, with
// GeographicLib's Geocentric and LocalCartesian timed on the same points in
// the same run. After the table, the ratio ours / GeographicLib of each pair
// (above 1 means we are faster). Rates are per CPU second, which keeps them
// steady on a shared, loaded machine; the work is single-threaded.
//
//   bench_coordinates [--benchmark_min_time=1] [--benchmark_repetitions=N]

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/LocalCartesian.hpp>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "core/Coordinate.h"
#include "core/CoordinateConverter.h"

namespace {

using orvCore::Coordinate;
using orvCore::CoordinateConverter;
using orvCore::Vec3;

constexpr double DEG = M_PI / 180.0;
constexpr size_t POINTS = 4096;

// Points spread over the globe, most near the surface, some up to
// geostationary height; the same for every contender.
struct Inputs {
  std::vector<Vec3> llaRad;
  std::vector<Vec3> llaDeg;
  std::vector<Vec3> ecef;
  Inputs() {
    std::mt19937_64 rng(20261123);
    std::uniform_real_distribution<double> lat(-90.0, 90.0), lon(-180.0, 180.0), low(-100.0, 20000.0),
        high(20000.0, 3.6e7);
    for (size_t i = 0; i < POINTS; ++i) {
      const double la = lat(rng), lo = lon(rng), h = (i % 8 == 0) ? high(rng) : low(rng);
      llaDeg.emplace_back(la, lo, h);
      llaRad.emplace_back(la * DEG, lo * DEG, h);
      Vec3 e;
      CoordinateConverter::convertGeodeticPosToEcef(llaRad.back(), e);
      ecef.push_back(e);
    }
  }
};

const Inputs& inputs() {
  static const Inputs in;
  return in;
}

const GeographicLib::Geocentric& earth() { return GeographicLib::Geocentric::WGS84(); }

constexpr double ORIGIN_LAT = 36.6, ORIGIN_LON = -121.9, ORIGIN_ALT = 10.0;

void Orv_LlaToEcef(benchmark::State& state) {
  const auto& in = inputs().llaRad;
  Vec3 out;
  for (auto _ : state) {
    for (const Vec3& p : in) {
      CoordinateConverter::convertGeodeticPosToEcef(p, out);
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * in.size());
}

void Orv_LlaToEcef_Convert(benchmark::State& state) {
  const auto& in = inputs().llaRad;
  const CoordinateConverter conv;
  Coordinate src(orvCore::LLA, Vec3()), out;
  for (auto _ : state) {
    for (const Vec3& p : in) {
      src.setPosition(p);
      conv.convert(src, out, orvCore::ECEF);
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * in.size());
}

void GeographicLib_LlaToEcef(benchmark::State& state) {
  const auto& in = inputs().llaDeg;
  const auto& g = earth();
  double x, y, z;
  for (auto _ : state) {
    for (const Vec3& p : in) {
      g.Forward(p[0], p[1], p[2], x, y, z);
      benchmark::DoNotOptimize(x);
      benchmark::DoNotOptimize(y);
      benchmark::DoNotOptimize(z);
    }
  }
  state.SetItemsProcessed(state.iterations() * in.size());
}

void Orv_EcefToLla(benchmark::State& state) {
  const auto& in = inputs().ecef;
  Vec3 out;
  for (auto _ : state) {
    for (const Vec3& p : in) {
      CoordinateConverter::convertEcefToGeodeticPos(p, out);
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * in.size());
}

void Orv_EcefToLla_Convert(benchmark::State& state) {
  const auto& in = inputs().ecef;
  const CoordinateConverter conv;
  Coordinate src(orvCore::ECEF, Vec3()), out;
  for (auto _ : state) {
    for (const Vec3& p : in) {
      src.setPosition(p);
      conv.convert(src, out, orvCore::LLA);
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * in.size());
}

void GeographicLib_EcefToLla(benchmark::State& state) {
  const auto& in = inputs().ecef;
  const auto& g = earth();
  double lat, lon, h;
  for (auto _ : state) {
    for (const Vec3& p : in) {
      g.Reverse(p[0], p[1], p[2], lat, lon, h);
      benchmark::DoNotOptimize(lat);
      benchmark::DoNotOptimize(lon);
      benchmark::DoNotOptimize(h);
    }
  }
  state.SetItemsProcessed(state.iterations() * in.size());
}

void Orv_LlaToXEast_Convert(benchmark::State& state) {
  const auto& in = inputs().llaRad;
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(ORIGIN_LAT, ORIGIN_LON, ORIGIN_ALT);
  Coordinate src(orvCore::LLA, Vec3()), out;
  for (auto _ : state) {
    for (const Vec3& p : in) {
      src.setPosition(p);
      conv.convert(src, out, orvCore::XEAST);
      benchmark::DoNotOptimize(out);
    }
  }
  state.SetItemsProcessed(state.iterations() * in.size());
}

void GeographicLib_LlaToLocalCartesian(benchmark::State& state) {
  const auto& in = inputs().llaDeg;
  const GeographicLib::LocalCartesian local(ORIGIN_LAT, ORIGIN_LON, ORIGIN_ALT, earth());
  double x, y, z;
  for (auto _ : state) {
    for (const Vec3& p : in) {
      local.Forward(p[0], p[1], p[2], x, y, z);
      benchmark::DoNotOptimize(x);
      benchmark::DoNotOptimize(y);
      benchmark::DoNotOptimize(z);
    }
  }
  state.SetItemsProcessed(state.iterations() * in.size());
}

BENCHMARK(Orv_LlaToEcef);
BENCHMARK(Orv_LlaToEcef_Convert);
BENCHMARK(GeographicLib_LlaToEcef);
BENCHMARK(Orv_EcefToLla);
BENCHMARK(Orv_EcefToLla_Convert);
BENCHMARK(GeographicLib_EcefToLla);
BENCHMARK(Orv_LlaToXEast_Convert);
BENCHMARK(GeographicLib_LlaToLocalCartesian);

// The console table, plus the conversions per second of each benchmark kept
// for the ratios (the best of the repetitions when there are several).
class RateReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.cpu_accumulated_time <= 0.0) continue;
      const double rate = static_cast<double>(run.iterations) * POINTS / run.cpu_accumulated_time;
      double& best = rates[run.run_name.function_name];
      if (rate > best) best = rate;
    }
  }
  std::map<std::string, double> rates;
};

void printRatio(const RateReporter& r, const char* ours, const char* theirs) {
  const auto a = r.rates.find(ours), b = r.rates.find(theirs);
  if (a == r.rates.end() || b == r.rates.end() || b->second <= 0.0) return;
  std::printf("%-24s %7.2f M/s  vs %-34s %7.2f M/s  ratio %.2f\n", ours, a->second / 1e6, theirs, b->second / 1e6,
              a->second / b->second);
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RateReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::printf("\nconversions per second, ours / GeographicLib:\n");
  printRatio(reporter, "Orv_LlaToEcef", "GeographicLib_LlaToEcef");
  printRatio(reporter, "Orv_LlaToEcef_Convert", "GeographicLib_LlaToEcef");
  printRatio(reporter, "Orv_EcefToLla", "GeographicLib_EcefToLla");
  printRatio(reporter, "Orv_EcefToLla_Convert", "GeographicLib_EcefToLla");
  printRatio(reporter, "Orv_LlaToXEast_Convert", "GeographicLib_LlaToLocalCartesian");
  benchmark::Shutdown();
  return 0;
}
