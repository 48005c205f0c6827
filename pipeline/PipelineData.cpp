#include "pipeline/PipelineData.h"

#include "pipeline/CommandParser.h"

namespace FileReaderPlugin {

PipelineData::~PipelineData() { delete parser; }

void PipelineData::releaseParser() {
  delete parser;
  parser = nullptr;
  endOfFile = false;
}

void PipelineData::releaseTokens() {
  std::vector<std::string>().swap(tokens);
  weight = 0;
}

}  // namespace FileReaderPlugin
