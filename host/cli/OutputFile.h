#pragma once
// An output that the user named: a file, or standard output for "-". A write
// that fails (a full disk, /dev/full) is noticed at the end, so that the run
// can end with the status of an unwritable output instead of success.

#include <fstream>
#include <iostream>
#include <ostream>
#include <string>

namespace RefHost {

class OutputFile {
 public:
  // Nothing is opened for an empty path.
  explicit OutputFile(std::string path = std::string()) : path_(std::move(path)) {}
  bool requested() const { return !path_.empty(); }
  bool toStandardOutput() const { return path_ == "-"; }
  const std::string& path() const { return path_; }

  // Opens (truncates) the file; false, with a message on stderr, when it
  // cannot be written.
  bool open();
  std::ostream& stream() { return toStandardOutput() ? static_cast<std::ostream&>(std::cout) : file_; }
  // Flushes and closes; false, with a message on stderr, when anything
  // written to it was lost.
  bool finish();

 private:
  std::string path_;
  std::ofstream file_;
};

}  // namespace RefHost
