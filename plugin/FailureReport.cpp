#include "plugin/FailureReport.h"

#include "core/Failure.h"
#include "hostapi/PICommon.h"

namespace FileReaderPlugin {

namespace {

void tell(const char* action, const std::string& subject, const char* why) noexcept {
  try {
    std::string text(action);
    if (!subject.empty()) text += " " + subject;
    PICommon::notify(text + " failed: " + why + "\n", PICommon::PI_NOTIFY_FATAL, "");
  } catch (...) {
    // Nothing more can be done without memory; the caller still answers.
  }
}

}  // namespace

void tellFailure(const char* action, const std::string& subject) noexcept {
  const char* why = orvCore::currentFailure();
  try {
    tell(action, subject.empty() ? subject : "\"" + subject + "\"", why);
  } catch (...) {
    // Quoting the subject took the last memory; nothing is told.
  }
}

void tellFailure(const char* action, long number) noexcept {
  const char* why = orvCore::currentFailure();
  try {
    tell(action, std::to_string(number), why);
  } catch (...) {
    // As above.
  }
}

}  // namespace FileReaderPlugin
