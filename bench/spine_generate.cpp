// Writes a deterministic ASI file for the read-spine benchmark: position
// lines of 9 to 12 tokens, quoted names, comments, blank lines, some CRLF.
// Usage: spine_generate <path> [command lines, default 2000000]

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// A small fixed generator, so every run writes the same bytes.
struct Lcg {
  std::uint64_t state = 0x2545F4914F6CDD1DULL;
  std::uint32_t next() {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<std::uint32_t>(state >> 33);
  }
  double unit() { return next() / 2147483648.0; }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s <path> [command lines]\n", argv[0]);
    return 2;
  }
  const long commands = argc > 2 ? std::atol(argv[2]) : 2000000;
  std::FILE* out = std::fopen(argv[1], "wb");
  if (out == nullptr) {
    std::perror(argv[1]);
    return 1;
  }

  Lcg random;
  const int platforms = 200;
  std::fprintf(out, "# Scenario Identifier: spine benchmark\nVersion 24\nReferenceYear 2026\n"
                    "CoordSystem LLA\nRefLLA 36.5 -117.5 0.0\n");
  long written = 3;
  for (int id = 1; id <= platforms && written < commands; ++id, written += 2)
    std::fprintf(out, "PlatformID %d\nPlatformName %d \"Ship %d of the fleet\"\n", id, id, id);

  double time = 0.0;
  char line[256];
  while (written < commands) {
    const std::uint32_t roll = random.next() % 100;
    const char* end = roll < 10 ? "\r\n" : "\n";
    if (roll < 3) std::fputs("\n", out);
    if (roll >= 97) std::fputs("# position block\n", out);

    const int id = 1 + static_cast<int>(random.next() % platforms);
    time += 0.01;
    const double lat = 30.0 + 10.0 * random.unit();
    const double lon = -120.0 + 10.0 * random.unit();
    const double alt = 10000.0 * random.unit();
    const std::uint32_t extra = random.next() % 4;  // 9 to 12 tokens
    int n = std::snprintf(line, sizeof line, "PlatformData %d %.3f %.6f %.6f %.2f %.3f %.3f %.3f", id,
                          time, lat, lon, alt, random.unit(), random.unit(), random.unit());
    for (std::uint32_t i = 0; i < extra; ++i)
      n += std::snprintf(line + n, sizeof line - n, " %.2f", 300.0 * random.unit());
    if (roll >= 90 && roll < 95) n += std::snprintf(line + n, sizeof line - n, " // note");
    if (roll == 50) {
      std::fprintf(out, "PlatformName %d 'renamed #%d'%s", id, static_cast<int>(written), end);
    } else {
      std::fputs(line, out);
      std::fputs(end, out);
    }
    ++written;
  }
  std::fclose(out);
  return 0;
}
