// Propagation rate of the SGP4 model alone: one million propagations of a
// near-earth set (25544) and of a deep-space, half-day resonant set (09880),
// at times stepping one minute through a day and starting over, as a track
// of a day at one-minute steps is computed. bench/sgp4_satellitejs.js runs
// the same schedule in satellite.js.
//
// Usage: sgp4_bench [propagations]

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "importers/sgp4/AIAASgp4.h"

namespace {

double rate(const char* line1, const char* line2, long count, double& checksum) {
  char l1[130] = {0}, l2[130] = {0};
  std::strncpy(l1, line1, 129);
  std::strncpy(l2, line2, 129);
  double start, stop, step;
  AIAA::ElsetRec rec;
  AIAA::twoline2rv(l1, l2, 'i', AIAA::wgs84, start, stop, step, rec);
  double r[3], v[3];
  const auto begin = std::chrono::steady_clock::now();
  for (long i = 0; i < count; ++i) {
    AIAA::sgp4(rec, static_cast<double>(i % 1440), r, v);
    checksum += r[0] + v[2];
  }
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
  return count / seconds.count();
}

}  // namespace

int main(int argc, char** argv) {
  const long count = argc > 1 ? std::atol(argv[1]) : 1000000;
  double checksum = 0.0;
  const double near = rate("1 25544U 98067A   05207.31276620  .00009213  00000-0  73642-4 0  9958",
                           "2 25544  51.6451  60.5367 0003083 157.4370 169.9096 15.71943135381834", count, checksum);
  const double deep = rate("1 09880U 77021A   06176.56157475  .00000421  00000-0  10000-3 0  9814",
                           "2 09880  64.5968 349.3786 7069051 270.0229  16.3320  2.00813614112380", count, checksum);
  std::printf("near-earth: %.0f propagations/s\n", near);
  std::printf("deep-space: %.0f propagations/s\n", deep);
  // Keeps the work observable so that it can't be optimised away.
  std::fprintf(stderr, "checksum %.6f\n", checksum);
  return 0;
}
