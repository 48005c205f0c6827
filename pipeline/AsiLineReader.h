#pragma once
// Reads the physical lines of an ASI file with a bound on their length, so
// that no line, however long, costs more memory than MAX_LINE_LENGTH. Every
// reader of ASI text goes through here: the version check, the format check,
// the scenario-identifier scan and the read thread.

#include <cstdint>
#include <istream>
#include <memory>
#include <string>

#include "pipeline/ReadLimits.h"

namespace FileReaderPlugin {

class AsiLineReader {
 public:
  enum Status {
    LINE,      // line() holds the next line, trailing white space cut
    TOO_LONG,  // the line was longer than the maximum; line() holds its start
    END,       // no more input
    FAILED     // the stream broke down (a read error)
  };

  explicit AsiLineReader(std::istream& stream, std::size_t maxLength = MAX_LINE_LENGTH);
  AsiLineReader(const AsiLineReader&) = delete;
  AsiLineReader& operator=(const AsiLineReader&) = delete;

  Status next();

  const std::string& line() const { return line_; }
  // Bytes taken from the stream so far, each line with one line end: a last
  // line without a line feed counts one byte more than the file holds.
  std::uint64_t consumed() const { return consumed_; }
  // The stream's size when the reader was made (seekable streams), else -1.
  std::int64_t size() const { return size_; }
  std::size_t maxLength() const { return maxLength_; }

 private:
  std::istream& stream_;
  std::size_t maxLength_;
  // Room for the longest line and its terminating null; left uninitialised so
  // that only the pages that long lines touch cost memory.
  std::unique_ptr<char[]> buffer_;
  std::string line_;
  std::uint64_t consumed_ = 0;
  std::int64_t size_ = -1;
};

}  // namespace FileReaderPlugin
