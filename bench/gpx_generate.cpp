// Writes a deterministic GPX 1.1 file: TRACKS tracks of POINTS points, one a
// second, each with elevation and time, wandering from a start of its own.
// Usage: gpx_generate FILE [TRACKS] [POINTS]   (defaults 20, 50000: ~100 MB)

#include <cmath>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s FILE [TRACKS] [POINTS]\n", argv[0]);
    return 2;
  }
  const int tracks = argc > 2 ? std::atoi(argv[2]) : 20;
  const int points = argc > 3 ? std::atoi(argv[3]) : 50000;
  std::FILE* out = std::fopen(argv[1], "w");
  if (out == nullptr) return 1;
  std::fprintf(out,
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<gpx version=\"1.1\" creator=\"gpx_generate\" xmlns=\"http://www.topografix.com/GPX/1/1\">\n");
  for (int t = 0; t < tracks; ++t) {
    std::fprintf(out, "<trk><name>Track %d</name><trkseg>\n", t + 1);
    double lat = 40.0 + 0.01 * t, lon = -105.0 + 0.01 * t;
    for (int p = 0; p < points; ++p) {
      lat += 0.00001 * std::sin(p * 0.001 + t);
      lon += 0.00001 * std::cos(p * 0.0013 + t);
      const int seconds = 6 * 3600 + p;
      std::fprintf(out,
                   "<trkpt lat=\"%.7f\" lon=\"%.7f\"><ele>%.1f</ele>"
                   "<time>2024-07-04T%02d:%02d:%02dZ</time></trkpt>\n",
                   lat, lon, 1600.0 + 50.0 * std::sin(p * 0.01), seconds / 3600, seconds / 60 % 60, seconds % 60);
    }
    std::fprintf(out, "</trkseg></trk>\n");
  }
  std::fprintf(out, "</gpx>\n");
  return std::fclose(out) == 0 ? 0 : 1;
}
