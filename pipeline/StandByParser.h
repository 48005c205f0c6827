#pragma once
// A keyword table in which every known keyword stays a stand-by command: a
// read through it checks the version line and the rules of a line, counts
// unknown keywords, and sends nothing to any host. The benchmark of the read
// spine and the engine fuzzer run on it.

#include "pipeline/AsiParserAdapter.h"

#include <string>
#include <vector>

namespace FileReaderPlugin {

class StandByParser : public AsiParserAdapter {
 public:
  void populateCommands(int version) override { initializeNullCommands_(version); }
  CommandParser* getCommand(const std::vector<std::string>& tokens) override {
    return tokens.empty() ? nullptr : findCommand_(tokens[0]);
  }
  int didComplete(MessageManager&) override { return 0; }
  void initializeScenario(const std::string&) override {}
};

}  // namespace FileReaderPlugin
