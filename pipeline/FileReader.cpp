#include "pipeline/FileReader.h"

#include <fstream>
#include <vector>

#include "core/FileUtils.h"
#include "core/ValidNumber.h"
#include "hostapi/PICommon.h"
#include "pipeline/AsiLine.h"
#include "pipeline/AsiLineReader.h"
#include "pipeline/KeywordLess.h"

namespace FileReaderPlugin {

namespace {
const char SCENARIO_IDENTIFIER_KEY[] = "# Scenario Identifier:";
}  // namespace

bool FileReader::openRegularFile(const std::string& path, std::ifstream& stream) {
  // Anything else is refused before it is opened: opening a named pipe
  // blocks until a writer comes, and a device may never end.
  if (!UTILS::fileIsFile(path)) return false;
  stream.open(path, std::ios::in | std::ios::binary);
  return stream.is_open();
}

int FileReader::canReadAsiFile(const std::string& path) {
  std::ifstream stream;
  if (!openRegularFile(path, stream)) return NOT_READABLE;

  AsiLineReader lines(stream);
  std::vector<std::string> tokens;
  for (AsiLineReader::Status status; (status = lines.next()) == AsiLineReader::LINE ||
                                     status == AsiLineReader::TOO_LONG;) {
    // An overlong line is no command; the read reports it.
    if (status == AsiLineReader::TOO_LONG) continue;
    tokenizeAsiLine(lines.line(), tokens);
    if (tokens.empty()) continue;

    const std::string keyword("Version");
    KeywordLess less;
    if (less(tokens[0], keyword) || less(keyword, tokens[0])) return NO_VERSION;
    // The value itself is judged by the read engine, not here.
    long version = 0;
    if (tokens.size() == 2 && orvCore::isValidNumber(tokens[1], version, false)) return CAN_READ;
    return NO_VERSION;
  }
  return NO_COMMAND;
}

FileReader::IdentifierScan FileReader::scanAsiScenarioIdentifier(const std::string& path,
                                                                 std::string& id) {
  id.clear();
  std::ifstream stream;
  if (!openRegularFile(path, stream)) return IdentifierScan::CANNOT_OPEN;

  const std::string key(SCENARIO_IDENTIFIER_KEY);
  AsiLineReader lines(stream);
  std::vector<std::string> tokens;
  for (AsiLineReader::Status status; (status = lines.next()) == AsiLineReader::LINE ||
                                     status == AsiLineReader::TOO_LONG;) {
    if (status == AsiLineReader::TOO_LONG) continue;
    const std::string& line = lines.line();
    tokenizeAsiLine(line, tokens);
    // The first command ends the search: an identifier stands above it.
    if (!tokens.empty()) return IdentifierScan::FOUND_OR_NONE;
    if (line.size() > key.size() && line.compare(0, key.size(), key) == 0) {
      id = line.substr(key.size());
      return IdentifierScan::FOUND_OR_NONE;
    }
  }
  return IdentifierScan::NO_COMMAND;
}

int FileReader::readAsiScenarioIdentifier(const std::string& path, std::string& id) {
  switch (scanAsiScenarioIdentifier(path, id)) {
    case IdentifierScan::CANNOT_OPEN:
      PICommon::notify("Could not open file \"" + path + "\"\n", PICommon::PI_NOTIFY_ERROR, "");
      return -1;
    case IdentifierScan::NO_COMMAND:
      PICommon::notify("Could not read file \"" + path + "\"\n", PICommon::PI_NOTIFY_ERROR, "");
      return -1;
    case IdentifierScan::FOUND_OR_NONE:
      break;
  }
  return 0;
}

}  // namespace FileReaderPlugin
