#pragma once
// Stands in the pipeline for a line longer than MAX_LINE_LENGTH, so that the
// calling thread reports it in its place among the file's messages. The line
// itself is skipped: nothing of it is executed.

#include <string>

#include "pipeline/NullParser.h"

namespace FileReaderPlugin {

class LineTooLong : public NullParser {
 public:
  // `keyword` is the first token of the line's start, empty if it had none.
  LineTooLong(unsigned long line, const std::string& keyword);

  // "Line <n> <keyword>: the line is longer than <max> characters and is skipped".
  static std::string text(unsigned long line, const std::string& keyword);

  CommandParser* clone() const override { return new LineTooLong(*this); }
  void setMessageManager(MessageManager* manager) override { messages_ = manager; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  bool hasError() override { return reported_; }
  unsigned long lineNumber() const override { return line_; }

 private:
  unsigned long line_;
  std::string keyword_;
  MessageManager* messages_ = nullptr;
  bool reported_ = false;
};

}  // namespace FileReaderPlugin
