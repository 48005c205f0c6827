#pragma once
// An output stream that hands each finished line to a function, so that the
// host's line-by-line logs can be echoed and copied as they are written.

#include <functional>
#include <ostream>
#include <streambuf>
#include <string>

namespace RefHost {

class LineSinkBuffer : public std::streambuf {
 public:
  explicit LineSinkBuffer(std::function<void(const std::string&)> onLine) : onLine_(std::move(onLine)) {}

 protected:
  int_type overflow(int_type c) override {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    const char ch = traits_type::to_char_type(c);
    if (ch == '\n') {
      onLine_(line_);
      line_.clear();
    } else {
      line_ += ch;
    }
    return c;
  }

 private:
  std::function<void(const std::string&)> onLine_;
  std::string line_;
};

class LineSinkStream : public std::ostream {
 public:
  explicit LineSinkStream(std::function<void(const std::string&)> onLine)
      : std::ostream(nullptr), buffer_(std::move(onLine)) {
    rdbuf(&buffer_);
  }

 private:
  LineSinkBuffer buffer_;
};

}  // namespace RefHost
