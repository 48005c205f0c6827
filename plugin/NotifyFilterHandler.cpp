#include "plugin/NotifyFilterHandler.h"

namespace FileReaderPlugin {

const char* const NotifyFilterHandler::DROPPED_PREFIX = "ERROR:  class orvCore::TimeException :";

// A line still without its end is not passed on: it was never finished.
NotifyFilterHandler::~NotifyFilterHandler() = default;

void NotifyFilterHandler::notify(const std::string& text) {
  buffer_ += text;
  const std::string dropped(DROPPED_PREFIX);
  std::string::size_type end;
  while ((end = buffer_.find('\n')) != std::string::npos) {
    const std::string line = buffer_.substr(0, end + 1);
    buffer_.erase(0, end + 1);
    if (line.compare(0, dropped.size(), dropped) == 0) continue;
    if (!wrapped_) continue;
    wrapped_->setSeverity(orvNotify::ERROR_LEVEL);
    wrapped_->notify(line);
  }
}

}  // namespace FileReaderPlugin
