#pragma once
// Stands in for the error handler of orvNotify during a load. It collects
// text into whole lines and drops the lines of orvCore::TimeException: the
// read path reports bad times in its own words, so they would show twice.

#include <memory>
#include <string>

#include "core/Notify.h"

namespace FileReaderPlugin {

class NotifyFilterHandler : public orvNotify::NotifyHandler {
 public:
  // The start of the lines that are dropped.
  static const char* const DROPPED_PREFIX;  // "ERROR:  class orvCore::TimeException :"

  explicit NotifyFilterHandler(std::shared_ptr<orvNotify::NotifyHandler> wrapped) : wrapped_(std::move(wrapped)) {}
  ~NotifyFilterHandler() override;

  // Text without a line end waits in the buffer for the rest of its line.
  void notify(const std::string& text) override;

  const std::shared_ptr<orvNotify::NotifyHandler>& wrapped() const { return wrapped_; }
  const std::string& pending() const { return buffer_; }

 private:
  std::shared_ptr<orvNotify::NotifyHandler> wrapped_;
  std::string buffer_;
};

}  // namespace FileReaderPlugin
