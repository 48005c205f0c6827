#pragma once
// The unit that travels between the read thread and the calling thread: one
// command line, or the end-of-file mark. Items are made once per read and
// recycled, so their token vectors keep their capacity from line to line.

#include <cstddef>
#include <string>
#include <vector>

namespace FileReaderPlugin {

class CommandParser;

class PipelineData {
 public:
  PipelineData() = default;
  virtual ~PipelineData();
  PipelineData(const PipelineData&) = delete;
  PipelineData& operator=(const PipelineData&) = delete;

  // Deletes the command of an earlier use and forgets the end mark; the
  // tokens are left for the next line to overwrite in place.
  void releaseParser();
  // Gives the memory of the tokens back; for items that carried a huge line.
  void releaseTokens();

  CommandParser* parser = nullptr;  // owned: the clone for this line
  std::vector<std::string> tokens;  // keyword first
  double percent = 0.0;             // share of the file consumed, 0 to 100
  bool endOfFile = false;
  // Bytes that the tokens hold, as the read thread measured them.
  std::size_t weight = 0;
};

}  // namespace FileReaderPlugin
