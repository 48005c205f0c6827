#include "host/cli/OutputFile.h"

#include <iostream>

#include "host/TerminalText.h"

namespace RefHost {

bool OutputFile::open() {
  if (!requested() || toStandardOutput()) return true;
  file_.open(path_, std::ios::out | std::ios::trunc | std::ios::binary);
  if (!file_) std::cerr << "scenario-host: cannot write \"" << terminalSafe(path_) << "\"\n";
  return static_cast<bool>(file_);
}

bool OutputFile::finish() {
  if (!requested()) return true;
  std::ostream& out = stream();
  out.flush();
  bool good = static_cast<bool>(out);
  if (!toStandardOutput() && file_.is_open()) {
    file_.close();
    good = good && !file_.fail();
  }
  if (!good)
    std::cerr << "scenario-host: writing \"" << (toStandardOutput() ? std::string("standard output") : terminalSafe(path_))
              << "\" failed\n";
  return good;
}

}  // namespace RefHost
