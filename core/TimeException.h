#pragma once
// The exceptions of the calendar layer. Time is the one part of the core that
// throws: a malformed time text or an impossible date cannot be answered with
// a value, so it becomes a TimeException whose code says what was wrong and
// whose message is shown to the user by whoever reads the file.

#include <exception>
#include <string>

namespace orvCore {

// A message with an optional source name and line.
class Exception : public std::exception {
 public:
  explicit Exception(const std::string& message, const std::string& source = "", int line = 0);
  ~Exception() override;

  // The message, followed by " at line <n>" when a source is known.
  const char* what() const noexcept override;

  const std::string& message() const { return message_; }
  const std::string& source() const { return source_; }
  int line() const { return line_; }

 private:
  std::string message_;
  std::string source_;
  int line_;
  std::string what_;
};

class TimeException : public Exception {
 public:
  // The codes that callers test for.
  enum Code {
    BAD_FORMAT = 1,
    BAD_MONTH = 4,
    BAD_MONTH_DAY = 5,
    BAD_YEAR = 7,
    BAD_REFERENCE_YEAR = 10,
    BAD_SECONDS = 11,
    BAD_YEAR_DAY = 13
  };

  TimeException(int code, const std::string& message, const std::string& source = "", int line = 0);
  ~TimeException() override;

  int code() const { return code_; }

 private:
  int code_;
};

}  // namespace orvCore
