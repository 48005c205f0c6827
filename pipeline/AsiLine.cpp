#include "pipeline/AsiLine.h"

#include <cstring>

#include "core/Tokenizer.h"

namespace FileReaderPlugin {

namespace {

bool isQuote(char c) { return c == '\'' || c == '"'; }

// Byte classes for the scans below, which run for every byte of a file. The
// null byte has a class of its own: a std::string always ends with one, so
// the scans stop there without comparing every position with the size (a
// null inside the line is ordinary, and the scans step over it).
enum ByteClass : unsigned char { ORDINARY = 0, WHITE = 1, COMMENT_SIGN = 2, NULL_BYTE = 3 };

struct ByteClasses {
  unsigned char of[256];
  constexpr ByteClasses() : of{} {
    // The characters of orvCore::STR_WHITE_SPACE_CHARS.
    for (const char* c = orvCore::STR_WHITE_SPACE_CHARS; *c != '\0'; ++c)
      of[static_cast<unsigned char>(*c)] = WHITE;
    of[static_cast<unsigned char>('#')] = COMMENT_SIGN;
    of[static_cast<unsigned char>('/')] = COMMENT_SIGN;
    of[0] = NULL_BYTE;
  }
};

constexpr ByteClasses BYTES{};

unsigned char classOf(char c) { return BYTES.of[static_cast<unsigned char>(c)]; }

bool isWhite(char c) { return classOf(c) == WHITE; }

// Where an unquoted token that starts at `pos` ends (`end`), and where a
// comment inside it starts (`cut`, beyond the line if none; the token then
// ends there too): one pass over the bytes. `data[size]` must be a null.
void scanUnquoted(const char* data, std::size_t size, std::size_t pos, std::size_t& end,
                  std::size_t& cut) {
  std::size_t i = pos;
  while (true) {
    while (classOf(data[i]) == ORDINARY) ++i;
    const unsigned char kind = classOf(data[i]);
    if (kind == WHITE || i >= size) break;
    // "#" always starts a comment, "/" only when doubled.
    if (kind == COMMENT_SIGN && (data[i] == '#' || (i + 1 < size && data[i + 1] == '/'))) {
      cut = end = i;
      return;
    }
    ++i;  // a single "/" or a null inside the line
  }
  end = i;
  cut = size + 1;  // no comment
}

}  // namespace

void stripLineEnd(std::string& line) {
  std::size_t size = line.size();
  while (size > 0 && isWhite(line[size - 1])) --size;
  line.resize(size);
}

void tokenizeAsiLine(const std::string& line, std::vector<std::string>& tokens) {
  std::size_t count = 0;
  std::size_t pos = 0;
  const std::size_t size = line.size();
  const char* data = line.data();

  while (true) {
    while (isWhite(data[pos])) ++pos;  // stops at the null after the line
    if (pos >= size) break;

    const bool quoted = isQuote(data[pos]);
    std::size_t end;
    bool lastToken = false;
    if (quoted) {
      end = orvCore::getFirstCharPosAfterString(line, pos + 1,
                                                orvCore::getTerminateForStringPos(line, pos));
      if (end == std::string::npos || end > size) end = size;
    } else {
      // Any other token ends at white space, and a comment ("#" or "//")
      // anywhere in it ends the line.
      std::size_t cut;
      scanUnquoted(data, size, pos, end, cut);
      if (cut <= size) {
        if (cut == pos) break;
        lastToken = true;
      }
    }

    // Overwrite the strings of an earlier line in place to keep their buffers
    // (clear and append take a shorter way than assign).
    if (count < tokens.size()) {
      tokens[count].clear();
      tokens[count].append(data + pos, end - pos);
    } else {
      tokens.emplace_back(data + pos, end - pos);
    }
    std::string& token = tokens[count];
    ++count;
    // Quote removal changes only tokens that start with a quote.
    if (quoted && token.size() >= 2) token = orvCore::removeQuotes(token);

    if (lastToken || end >= size) break;
    pos = end;
  }
  tokens.resize(count);
}

}  // namespace FileReaderPlugin
