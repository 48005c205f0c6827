#include "pipeline/MessageManager.h"

namespace FileReaderPlugin {

namespace {
const int SEVERITY_FATAL = 1;
const int SEVERITY_ERROR = 2;
const int SEVERITY_WARNING = 3;
const int SEVERITY_INFO = 5;
}  // namespace

void MessageManager::addMessage(PICommon::NotifySeverity severity, const std::string& text,
                                unsigned long line) {
  if (static_cast<int>(severity) == SEVERITY_FATAL) {
    // Fatal messages are never held back by the cap.
    write_(severity, text, line);
  } else if (numberOfMessages() < MAX_MESSAGES) {
    write_(severity, text, line);
  }
  // Counted even when not written, so that the engine's error limit keeps
  // working past the cap.
  count_(severity);

  // Equality, not "at least": the notice comes once, as the count arrives at
  // the cap (and again for an uncounted severity while it stands there).
  if (numberOfMessages() == MAX_MESSAGES) {
    writeMessage_(PICommon::PI_NOTIFY_ERROR,
                  "Maximum messages logged; any remaining messages are ignored.", 0);
  }
}

void MessageManager::write_(PICommon::NotifySeverity severity, const std::string& text, unsigned long line) {
  if (text.size() <= MAX_MESSAGE_LENGTH) return writeMessage_(severity, text, line);
  writeMessage_(severity,
                text.substr(0, MAX_MESSAGE_LENGTH) + "... (" + std::to_string(text.size() - MAX_MESSAGE_LENGTH) +
                    " more characters)",
                line);
}

void MessageManager::count_(PICommon::NotifySeverity severity) {
  switch (static_cast<int>(severity)) {
    case SEVERITY_FATAL:
      fatal_ = true;
      ++errors_;
      break;
    case SEVERITY_ERROR:
      ++errors_;
      break;
    case SEVERITY_WARNING:
      ++warnings_;
      break;
    case SEVERITY_INFO:
      ++infos_;
      break;
    default:
      break;
  }
}

void MessageManager::writeMessage_(PICommon::NotifySeverity severity, const std::string& text,
                                   unsigned long /*line*/) {
  // The line number already stands in the text of a command's message.
  PICommon::notify(text + "\n", severity, "");
}

}  // namespace FileReaderPlugin
