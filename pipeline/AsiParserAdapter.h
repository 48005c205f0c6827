#pragma once
// The keyword table of the ASI language behind a FileReaderParser: every
// known keyword starts as a NullParser, so that a keyword is safe to name
// before the class that serves it exists, and is then replaced by its command.

#include <map>
#include <string>

#include "pipeline/FileReaderParser.h"
#include "pipeline/KeywordLess.h"

namespace FileReaderPlugin {

class AsiParserAdapter : public FileReaderParser {
 public:
  AsiParserAdapter() = default;
  ~AsiParserAdapter() override;
  AsiParserAdapter(const AsiParserAdapter&) = delete;
  AsiParserAdapter& operator=(const AsiParserAdapter&) = delete;

 protected:
  // Enters `command` under its lower-cased name; meant for the empty table,
  // an entry it overwrites is not deleted.
  void addCommand_(CommandParser* command);
  // Enters `command` under its lower-cased name, deleting the command it replaces.
  void replaceCommand_(CommandParser* command);
  // Fills the table with a NullParser for each of the 120 known keywords.
  // The version plays no part.
  void initializeNullCommands_(int version);
  // The table's command for a keyword in any case, or null. No allocation:
  // safe and cheap on the read thread.
  CommandParser* findCommand_(const std::string& keyword) const;

  // Lower-cased keyword to owned command.
  std::map<std::string, CommandParser*, KeywordLess> commands_;
};

}  // namespace FileReaderPlugin
