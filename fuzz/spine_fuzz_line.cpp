// Fuzzes the rules of a line: any bytes, as one stripped line, must split
// without fault, and splitting into a vector that holds an earlier line's
// tokens must give the same result as splitting into an empty one.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "pipeline/AsiLine.h"

namespace {

bool isWhite(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string line(reinterpret_cast<const char*>(data), size);
  FileReaderPlugin::stripLineEnd(line);
  if (!line.empty() && isWhite(line.back())) std::abort();

  std::vector<std::string> fresh;
  FileReaderPlugin::tokenizeAsiLine(line, fresh);

  static std::vector<std::string> reused{"left", "over from an earlier and much longer line", "", "x"};
  FileReaderPlugin::tokenizeAsiLine(line, reused);
  if (reused != fresh) std::abort();

  std::size_t total = 0;
  for (const std::string& token : fresh) total += token.size();
  // Tokens are pieces of the line: together never longer than it.
  if (total > line.size()) std::abort();
  return 0;
}
