// Writes a SCORE range file: a header, one legend per track, then RECORDS
// position records in time order, the tracks taking turns once a second,
// each flying its own circle. Deterministic.
// Usage: csv_generate FILE RECORDS TRACKS

#include <cmath>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: %s FILE RECORDS TRACKS\n", argv[0]);
    return 64;
  }
  const long records = std::atol(argv[2]);
  const int tracks = std::atoi(argv[3]);
  FILE* out = std::fopen(argv[1], "w");
  if (out == nullptr || records < 0 || tracks <= 0) return 1;
  static char buffer[1 << 20];
  std::setvbuf(out, buffer, _IOFBF, sizeof buffer);
  std::fprintf(out, "COM,generated SCORE benchmark file\nCLA,UNCLAS\nSRC,SCORE,benchmark\n"
                    "ORG,33.026669,-118.578636,0,0\nPKL,POS,Year,Month,Day,Hour,Min,Source,TID\n");
  static const char* const vehicles[] = {"F18", "Ship", "Sub", "P3", "SH60", "BQM-74", "SURF", "E2C"};
  for (int t = 0; t < tracks; ++t)
    std::fprintf(out, "LEG,2021,3,4,0,0,0,LTS,%d,Track %d,%s,CSV,%d,0,0\n", t + 1, t + 1, vehicles[t % 8], t % 4 + 1);
  for (long i = 0; i < records; ++i) {
    const int t = static_cast<int>(i % tracks);
    const long second = i / tracks;
    const double angle = second * 0.002 + t;
    const double lat = 32.5 + 0.01 * t + 0.05 * std::sin(angle);
    const double lon = -119.0 + 0.005 * t + 0.05 * std::cos(angle);
    const double course = std::fmod(angle * 57.29577951308232 + 90.0, 360.0);
    std::fprintf(out, "POS,2021,3,4,%ld,%ld,%ld,LTS,%d,%.6f,%.6f,%d,%d,%d,%.1f,%d,0,0,0,0,0,0,0\n", second / 3600,
                 second / 60 % 60, second % 60, t + 1, lat, lon, static_cast<int>(i % 900), t * 3, 100 * (t % 50),
                 course, 10 + t % 400);
  }
  return std::fclose(out) == 0 ? 0 : 1;
}
