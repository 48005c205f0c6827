#pragma once
// The command table behind one read: the engine fills it for the file's
// version, asks it for the command of each line and lets it check the end.

#include <string>
#include <vector>

namespace FileReaderPlugin {

class CommandParser;
class MessageManager;

class FileReaderParser {
 public:
  virtual ~FileReaderParser() = default;

  virtual void populateCommands(int version) = 0;
  // The prototype for the line's keyword, still owned by the table, or null
  // for an unknown keyword. Called from the read thread: must not change the
  // table. The answer depends on the keyword (the first token) alone, so the
  // read thread may reuse it for the next line with the same keyword.
  virtual CommandParser* getCommand(const std::vector<std::string>& tokens) = 0;
  // Negative on failure.
  virtual int didComplete(MessageManager& messages) = 0;
  virtual void initializeScenario(const std::string& path) = 0;
};

}  // namespace FileReaderPlugin
