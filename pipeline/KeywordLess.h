#pragma once
// Ordering of keywords without regard to ASCII case, length-aware so that
// text holding NUL bytes compares sanely. Transparent, so that a map keyed by
// lower-cased keywords can be searched with a token as it stands.

#include <cstddef>
#include <string>

namespace FileReaderPlugin {

struct KeywordLess {
  using is_transparent = void;

  static unsigned char fold(char c) {
    const unsigned char u = static_cast<unsigned char>(c);
    return (u >= 'A' && u <= 'Z') ? static_cast<unsigned char>(u + ('a' - 'A')) : u;
  }

  bool operator()(const std::string& a, const std::string& b) const {
    const std::size_t n = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < n; ++i) {
      const unsigned char x = fold(a[i]);
      const unsigned char y = fold(b[i]);
      if (x != y) return x < y;
    }
    return a.size() < b.size();
  }
};

}  // namespace FileReaderPlugin
