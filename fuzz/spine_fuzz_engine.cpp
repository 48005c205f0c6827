// Fuzzes the read engine on arbitrary file contents, every keyword a
// stand-by command. An odd first byte puts a Version line in front, so that
// most inputs get past the version check into the read thread.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "pipeline/AsiParserAdapter.h"
#include "pipeline/FileReaderEngine.h"
#include "pipeline/FileReaderProgress.h"
#include "pipeline/MessageManager.h"
#include "pipeline/StandByParser.h"

namespace {

using FileReaderPlugin::StandByParser;

class QuietMessages : public FileReaderPlugin::MessageManager {
 public:
  std::size_t written = 0;

 protected:
  void writeMessage_(PICommon::NotifySeverity, const std::string&, unsigned long) override {
    ++written;
  }
};

const std::string& scratchPath() {
  static const std::string path = "/tmp/spine_fuzz_engine_" + std::to_string(getpid()) + ".asi";
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string content;
  if (size > 0 && (data[0] & 1)) content = "Version 3\n";
  content.append(reinterpret_cast<const char*>(data), size);

  std::FILE* out = std::fopen(scratchPath().c_str(), "wb");
  if (out == nullptr) return 0;
  std::fwrite(content.data(), 1, content.size(), out);
  std::fclose(out);

  StandByParser parser;
  QuietMessages messages;
  FileReaderPlugin::NullFileReaderProgress progress;
  FileReaderPlugin::FileReaderEngine engine(parser);
  const int result = engine.execute(scratchPath(), messages, progress);
  // Nothing stays behind, whichever way the run ends.
  std::remove(scratchPath().c_str());
  // Stand-by commands report nothing: only a clean read or a refused file.
  if (result != 0 && result != -1) std::abort();
  if (messages.numberOfErrors() > 1) std::abort();
  return 0;
}
