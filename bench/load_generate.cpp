// Writes a deterministic ASI scenario for the load benchmark: PLATFORMS ships
// and aircraft declared up front, then LINES PlatformData lines, one second of
// time per round over all platforms. Every line has ten tokens: id, time,
// latitude, longitude (degrees), altitude, yaw, pitch, roll (degrees), speed.
// Usage: load_generate <path> [lines, default 2000000] [platforms, default 100]

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

// A small fixed generator, so every run writes the same bytes.
struct Lcg {
  std::uint64_t state = 0x9E3779B97F4A7C15ULL;
  std::uint32_t next() {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<std::uint32_t>(state >> 33);
  }
  double unit() { return next() / 2147483648.0; }
};

struct Track {
  double lat, lon, alt, heading, pitch, roll, speed;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s <path> [lines] [platforms]\n", argv[0]);
    return 2;
  }
  const long lines = argc > 2 ? std::atol(argv[2]) : 2000000;
  const int platforms = argc > 3 ? std::atoi(argv[3]) : 100;
  if (lines < 0 || platforms < 1) {
    std::fprintf(stderr, "%s: lines must be >= 0 and platforms >= 1\n", argv[0]);
    return 2;
  }
  std::FILE* out = std::fopen(argv[1], "wb");
  if (out == nullptr) {
    std::perror(argv[1]);
    return 1;
  }
  static char buffer[1 << 20];
  std::setvbuf(out, buffer, _IOFBF, sizeof buffer);

  // The reference point and the coordinate system come right behind the
  // version: the scenario document's own loader requires that order.
  std::fprintf(out,
               "# Load benchmark: %d platforms, %ld position lines.\n"
               "Version 24\nRefLLA 36.5 -121.9 0\nCoordSystem LLA\nDegreeAngles 1\nReferenceYear 2026\n"
               "Classification \"UNCLASSIFIED\" green\n",
               platforms, lines);

  Lcg random;
  std::vector<Track> tracks(platforms);
  for (int i = 0; i < platforms; ++i) {
    Track& t = tracks[i];
    const bool aircraft = i % 4 == 3;
    t.lat = 35.0 + 3.0 * random.unit();
    t.lon = -124.0 + 3.0 * random.unit();
    t.alt = aircraft ? 3000.0 + 7000.0 * random.unit() : 0.0;
    t.heading = 360.0 * random.unit();
    t.pitch = 0.0;
    t.roll = 0.0;
    t.speed = aircraft ? 150.0 + 100.0 * random.unit() : 4.0 + 8.0 * random.unit();
    std::fprintf(out, "PlatformID %d\nPlatformName %d \"%s %d\"\nPlatformIcon %d %s\n", i + 1, i + 1,
                 aircraft ? "Flight" : "Vessel", i + 1, i + 1, aircraft ? "aircraft" : "ship");
  }

  const double metresPerDegree = 111320.0;
  const double pi = 3.14159265358979323846;
  long written = 0;
  for (long second = 0; written < lines; ++second) {
    for (int i = 0; i < platforms && written < lines; ++i, ++written) {
      Track& t = tracks[i];
      // A slow random walk of the heading; roll follows the turn.
      const double turn = 2.0 * (random.unit() - 0.5);
      t.heading = std::fmod(t.heading + turn + 360.0, 360.0);
      t.roll = 10.0 * turn;
      t.pitch = t.alt > 0.0 ? 2.0 * (random.unit() - 0.5) : 0.0;
      const double h = t.heading * pi / 180.0;
      t.lat += t.speed * std::cos(h) / metresPerDegree;
      t.lon += t.speed * std::sin(h) / (metresPerDegree * std::cos(t.lat * pi / 180.0));
      if (t.lat > 80.0 || t.lat < -80.0) t.heading = std::fmod(t.heading + 180.0, 360.0);
      // Long runs fly round the earth; the file keeps longitudes in range.
      if (t.lon >= 180.0) t.lon -= 360.0;
      if (t.lon < -180.0) t.lon += 360.0;
      std::fprintf(out, "PlatformData %d %ld %.6f %.6f %.1f %.2f %.2f %.2f %.1f\n", i + 1, second, t.lat, t.lon,
                   t.alt, t.heading, t.pitch, t.roll, t.speed);
    }
  }
  if (std::fclose(out) != 0) {
    std::perror(argv[1]);
    return 1;
  }
  return 0;
}
