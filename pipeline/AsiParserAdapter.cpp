#include "pipeline/AsiParserAdapter.h"

#include "pipeline/AsiKeywords.h"
#include "pipeline/CommandParser.h"
#include "pipeline/NullParser.h"

namespace FileReaderPlugin {

namespace {
std::string lowered(const std::string& text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(KeywordLess::fold(c));
  return result;
}
}  // namespace

AsiParserAdapter::~AsiParserAdapter() {
  for (auto& entry : commands_) delete entry.second;
}

void AsiParserAdapter::addCommand_(CommandParser* command) {
  if (command == nullptr) return;
  commands_[lowered(command->name())] = command;
}

void AsiParserAdapter::replaceCommand_(CommandParser* command) {
  if (command == nullptr) return;
  const std::string key = lowered(command->name());
  auto found = commands_.find(key);
  if (found == commands_.end()) {
    commands_.emplace(key, command);
    return;
  }
  if (found->second != command) delete found->second;
  found->second = command;
}

void AsiParserAdapter::initializeNullCommands_(int /*version*/) {
  for (const char* keyword : ASI_KEYWORDS) addCommand_(new NullParser(keyword));
}

CommandParser* AsiParserAdapter::findCommand_(const std::string& keyword) const {
  auto found = commands_.find(keyword);
  return found == commands_.end() ? nullptr : found->second;
}

}  // namespace FileReaderPlugin
