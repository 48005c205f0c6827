#pragma once
// The abstract reader: one per file family. The factory asks each reader in
// turn whether it can read a file and clones the one that can.

#include <iosfwd>
#include <map>
#include <string>

namespace AsiInterface {
class Resolver;
}

namespace FileReaderPlugin {

class FileReader {
 public:
  // Codes of canReadFile.
  enum CanReadCode {
    CAN_READ = 0,
    NOT_READABLE = 1,
    NO_COMMAND = 2,
    NO_VERSION = 3,
    NOT_THIS_FORMAT = 4,
    SEVERAL_TYPES = 5
  };

  // Outcome of the scenario-identifier scan of an ASI file.
  enum class IdentifierScan { FOUND_OR_NONE, CANNOT_OPEN, NO_COMMAND };

  virtual ~FileReader() = default;

  // The load result: 0 loaded, 1 canceled, 2 with errors, -1 failed, -2 too many errors.
  virtual int read(const std::string& path) = 0;
  virtual int canReadFile(const std::string& path) const = 0;
  // 0, or negative on failure.
  virtual int getScenarioIdentifier(const std::string& path, std::string& id) const = 0;
  virtual void setAppend(bool append, AsiInterface::Resolver* resolver) = 0;
  // A new copy, owned by the caller.
  virtual FileReader* clone() const = 0;
  // Pattern ("*.asi") to description.
  virtual void getSupportedFileExtensions(std::map<std::string, std::string>& extensions) const = 0;

  // Opens `path` for binary input if it is a regular file (or a link to one);
  // anything else is refused without being opened. False if not opened.
  static bool openRegularFile(const std::string& path, std::ifstream& stream);

  // 0 if the first command of the file is a well-formed Version command;
  // otherwise 1 (unreadable), 2 (no command) or 3 (first command not Version).
  static int canReadAsiFile(const std::string& path);

  // The identifier named by a "# Scenario Identifier:" comment above the
  // first command; `id` is empty when there is none. Reports nothing.
  static IdentifierScan scanAsiScenarioIdentifier(const std::string& path, std::string& id);

  // The scan above with its failures told to the user at error severity:
  // 0, or -1 when the file cannot be opened or holds no command.
  static int readAsiScenarioIdentifier(const std::string& path, std::string& id);
};

}  // namespace FileReaderPlugin
