#pragma once
// A command that does nothing: the stand-by of every keyword that has no
// class (yet), and under the name "Null" the carrier of the end-of-file item.

#include "pipeline/CommandParser.h"

namespace FileReaderPlugin {

class NullParser : public CommandParser {
 public:
  explicit NullParser(const std::string& name) : name_(name) {}

  CommandParser* clone() const override { return new NullParser(name_); }
  std::string name() const override { return name_; }
  void setMessageManager(MessageManager*) override {}
  void executeStage1(const std::vector<std::string>&) override {}
  void transmit() override {}
  bool hasError() override { return false; }
  bool hasWarning() override { return false; }
  unsigned long lineNumber() const override { return 0; }
  void setLineNumber(unsigned long) override {}
  void setMessage(PICommon::NotifySeverity, const std::string&) override {}
  void setMessage(PICommon::NotifySeverity, const std::string&, unsigned long) override {}

 private:
  std::string name_;
};

}  // namespace FileReaderPlugin
