#include "pipeline/LineTooLong.h"

#include "pipeline/MessageManager.h"
#include "pipeline/ReadLimits.h"

namespace FileReaderPlugin {

LineTooLong::LineTooLong(unsigned long line, const std::string& keyword)
    : NullParser("LineTooLong"), line_(line), keyword_(keyword.substr(0, MAX_REPORTED_KEYWORD_LENGTH)) {}

std::string LineTooLong::text(unsigned long line, const std::string& keyword) {
  std::string text = "Line " + std::to_string(line);
  if (!keyword.empty()) text += " " + keyword.substr(0, MAX_REPORTED_KEYWORD_LENGTH);
  return text + ": the line is longer than " + std::to_string(MAX_LINE_LENGTH) + " characters and is skipped";
}

void LineTooLong::executeStage1(const std::vector<std::string>&) {
  reported_ = true;
  if (messages_ != nullptr) messages_->addMessage(PICommon::PI_NOTIFY_ERROR, text(line_, keyword_), line_);
}

}  // namespace FileReaderPlugin
