#include "host/TerminalText.h"

#include <cstdio>

namespace RefHost {

namespace {

// Length of the well-formed UTF-8 sequence at `at`, or 0 if there is none
// (overlong forms, surrogates and values past U+10FFFF included).
std::size_t utf8Length(const std::string& text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  if (lead < 0x80) return 1;
  std::size_t length = 0;
  unsigned char low = 0x80, high = 0xBF;
  if (lead >= 0xC2 && lead <= 0xDF) length = 2;
  else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return 0;
  }
  if (at + length > text.size()) return 0;
  if (byte(at + 1) < low || byte(at + 1) > high) return 0;
  for (std::size_t i = 2; i < length; ++i)
    if (byte(at + i) < 0x80 || byte(at + i) > 0xBF) return 0;
  return length;
}

void appendEscape(std::string& out, unsigned char c) {
  char hex[5];
  std::snprintf(hex, sizeof hex, "\\x%02x", c);
  out += hex;
}

}  // namespace

std::string terminalSafe(const std::string& text, bool keepLineFeeds) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    const std::size_t length = utf8Length(text, i);
    if (length == 0) {
      appendEscape(out, c);
      ++i;
    } else if (length == 1) {
      const bool kept = (c == '\n' && keepLineFeeds) || c == '\t';
      if ((c < 0x20 || c == 0x7F) && !kept)
        appendEscape(out, c);
      else
        out += static_cast<char>(c);
      ++i;
    } else {
      // U+0080..U+009F are the C1 controls (CSI among them): C2 80..C2 9F.
      if (length == 2 && c == 0xC2 && static_cast<unsigned char>(text[i + 1]) <= 0x9F) {
        appendEscape(out, c);
        appendEscape(out, static_cast<unsigned char>(text[i + 1]));
      } else {
        out.append(text, i, length);
      }
      i += length;
    }
  }
  return out;
}

std::string validUtf8(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = utf8Length(text, i);
    if (length == 0) {
      out += "\xEF\xBF\xBD";
      ++i;
    } else {
      out.append(text, i, length);
      i += length;
    }
  }
  return out;
}

std::size_t displayWidth(const std::string& text) {
  std::size_t columns = 0;
  for (unsigned char c : text) columns += (c & 0xC0) != 0x80;
  return columns;
}

std::string fitWidth(const std::string& text, std::size_t columns) {
  if (displayWidth(text) <= columns) return text;
  const std::size_t keep = columns > 3 ? columns - 3 : 0;
  std::string out;
  std::size_t used = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    if ((c & 0xC0) != 0x80) {
      if (used == keep) break;
      ++used;
    }
    out += static_cast<char>(c);
  }
  return out + std::string("...").substr(0, columns - keep);
}

}  // namespace RefHost
