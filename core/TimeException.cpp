#include "core/TimeException.h"

namespace orvCore {

Exception::Exception(const std::string& message, const std::string& source, int line)
    : message_(message), source_(source), line_(line), what_(message) {
  if (!source_.empty())
    what_ += " at line " + std::to_string(line_);
}

Exception::~Exception() = default;

const char* Exception::what() const noexcept { return what_.c_str(); }

TimeException::TimeException(int code, const std::string& message, const std::string& source, int line)
    : Exception(message, source, line), code_(code) {}

TimeException::~TimeException() = default;

}  // namespace orvCore
