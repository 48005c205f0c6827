// The read spine alone: every keyword a stand-by command, so what is timed
// is reading, splitting, look-up, cloning and the hand-over between threads.
// Prints lines/s, MB/s and peak RSS, then times awk on the same file.
// Both sides of the pipeline poll with 10 ms sleeps, so with stand-by
// commands the wall time of a read is bounded by the hand-over, not by
// the read thread: the read thread's own work (read, strip, split, look up,
// clone) is therefore also timed alone, on one thread.
// Usage: spine_bench <path.asi> [--no-awk]

#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "pipeline/AsiLine.h"
#include "pipeline/AsiParserAdapter.h"
#include "pipeline/CommandParser.h"
#include "pipeline/FileReaderEngine.h"
#include "pipeline/FileReaderProgress.h"
#include "pipeline/MessageManager.h"
#include "pipeline/StandByParser.h"

namespace {

using FileReaderPlugin::StandByParser;

// The per-line work of the read thread, without the hand-over.
long readThreadWorkAlone(const std::string& path) {
  StandByParser parser;
  parser.populateCommands(24);
  std::ifstream in(path, std::ios::binary);
  std::string line;
  std::vector<std::string> tokens;
  long commands = 0;
  while (std::getline(in, line)) {
    FileReaderPlugin::stripLineEnd(line);
    FileReaderPlugin::tokenizeAsiLine(line, tokens);
    if (tokens.empty()) continue;
    if (FileReaderPlugin::CommandParser* command = parser.getCommand(tokens)) {
      std::unique_ptr<FileReaderPlugin::CommandParser> clone(command->clone());
      clone->setLineNumber(static_cast<unsigned long>(commands));
      ++commands;
    }
  }
  return commands;
}

double cpuSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec +
         (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

class ConsoleMessages : public FileReaderPlugin::MessageManager {
 protected:
  void writeMessage_(PICommon::NotifySeverity severity, const std::string& text,
                     unsigned long) override {
    std::fprintf(stderr, "[%d] %s\n", static_cast<int>(severity), text.c_str());
  }
};

class CountingProgress : public FileReaderPlugin::NullFileReaderProgress {
 public:
  int updates = 0;
  void setValue(int) override { ++updates; }
};

double peakRssMb() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024.0;  // kilobytes on Linux
}

long countLines(const std::string& path) {
  std::FILE* in = std::fopen(path.c_str(), "rb");
  if (in == nullptr) return 0;
  long lines = 0;
  char buffer[1 << 16];
  std::size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, in)) > 0)
    for (std::size_t i = 0; i < n; ++i) lines += buffer[i] == '\n';
  std::fclose(in);
  return lines;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s <path.asi> [--no-awk]\n", argv[0]);
    return 2;
  }
  const std::string path = argv[1];
  const bool awk = !(argc > 2 && std::strcmp(argv[2], "--no-awk") == 0);
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) {
    std::perror(path.c_str());
    return 1;
  }
  const double megabytes = info.st_size / (1024.0 * 1024.0);
  const long lines = countLines(path);

  StandByParser parser;
  ConsoleMessages messages;
  CountingProgress progress;
  FileReaderPlugin::FileReaderEngine engine(parser);
  const double cpuStart = cpuSeconds();
  const auto start = std::chrono::steady_clock::now();
  const int result = engine.execute(path, messages, progress);
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  const double cpu = cpuSeconds() - cpuStart;
  const double peakRss = peakRssMb();

  std::printf("file           %s (%.1f MB, %ld lines)\n", path.c_str(), megabytes, lines);
  std::printf("result         %d (messages %llu, progress updates %d)\n", result,
              static_cast<unsigned long long>(messages.numberOfMessages()), progress.updates);
  std::printf("spine          %.3f s  %.0f lines/s  %.1f MB/s  (CPU %.3f s, both threads)\n",
              seconds, lines / seconds, megabytes / seconds, cpu);
  std::printf("peak RSS       %.1f MB\n", peakRss);

  const auto aloneStart = std::chrono::steady_clock::now();
  const long commands = readThreadWorkAlone(path);
  const double alone =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - aloneStart).count();
  std::printf("read work only %.3f s  %.0f lines/s  %.1f MB/s  (%ld commands, one thread)\n", alone,
              lines / alone, megabytes / alone, commands);

  if (awk) {
    const std::string command = "awk '{n+=NF} END{print n}' '" + path + "' > /dev/null";
    const auto awkStart = std::chrono::steady_clock::now();
    const int status = std::system(command.c_str());
    const double awkSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - awkStart).count();
    std::printf("awk            %.3f s  %.0f lines/s  %.1f MB/s (status %d)\n", awkSeconds,
                lines / awkSeconds, megabytes / awkSeconds, status);
    std::printf("spine/awk      %.2f (time ratio; below 1 is faster than awk)\n", seconds / awkSeconds);
  }
  return result == 0 ? 0 : 1;
}
