#include "core/Tokenizer.h"

#include <stdexcept>

namespace orvCore {

namespace {

bool isQuote(char c) { return c == '"' || c == '\''; }

void checkStart(const std::string& text, size_t start, const char* who) {
  if (start > text.size()) throw std::out_of_range(std::string(who) + ": position beyond the text");
}

}  // namespace

size_t stringTokenizer(std::vector<std::string>& tokens, const std::string& text, const std::string& delimiters,
                       bool clearFirst, bool skipEmpty) {
  if (clearFirst) tokens.clear();
  if (skipEmpty) {
    size_t begin = text.find_first_not_of(delimiters);
    while (begin != std::string::npos) {
      const size_t end = text.find_first_of(delimiters, begin);
      tokens.push_back(text.substr(begin, end == std::string::npos ? std::string::npos : end - begin));
      if (end == std::string::npos) break;
      begin = text.find_first_not_of(delimiters, end);
    }
    return tokens.size();
  }
  size_t begin = 0;
  while (true) {
    const size_t end = text.find_first_of(delimiters, begin);
    if (end == std::string::npos) {
      tokens.push_back(text.substr(begin));
      break;
    }
    tokens.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return tokens.size();
}

bool getStrippedLine(std::istream& stream, std::string& line) {
  if (!std::getline(stream, line)) {
    line.clear();
    return false;
  }
  const size_t last = line.find_last_not_of(STR_WHITE_SPACE_CHARS);
  line.erase(last == std::string::npos ? 0 : last + 1);
  return true;
}

bool getTokens(std::istream& stream, std::vector<std::string>& tokens, size_t minimumCount,
               const std::string& delimiters, bool clearFirst) {
  std::string line;
  if (!getStrippedLine(stream, line)) return false;
  stringTokenizer(tokens, line, delimiters, clearFirst, true);
  return tokens.size() >= minimumCount;
}

std::string extractWord(const std::string& text, size_t& end, size_t start) {
  checkStart(text, start, "extractWord");
  end = text.find_first_of(" \t", start);
  return text.substr(start, end == std::string::npos ? std::string::npos : end - start);
}

std::string extractWordWithQuotes(const std::string& text, size_t& end, size_t start) {
  checkStart(text, start, "extractWordWithQuotes");
  const bool quoted = start < text.size() && text[start] == '"';
  if (quoted && start + 1 == text.size()) {
    end = std::string::npos;
    return "\"";
  }
  const size_t found = quoted ? text.find('"', start + 1) : text.find_first_of(" \t\"", start);
  if (found == std::string::npos) {
    end = std::string::npos;
    return text.substr(start);
  }
  if (text[found] != '"') {
    end = found;
    return text.substr(start, found - start);
  }
  size_t last = found;
  if (!quoted && found + 1 < text.size()) {
    // A quoted part inside an unquoted word belongs to the word.
    last = text.find('"', found + 1);
    if (last == std::string::npos) {
      end = std::string::npos;
      return text.substr(start);
    }
  }
  end = last + 1;
  return text.substr(start, last + 1 - start);
}

std::string getTerminateForStringPos(const std::string& text, size_t pos) {
  const char c = text.at(pos);
  if (c == '\'') return "'";
  if (c != '"') return std::string();
  if (text.compare(pos, 3, "\"\"\"") == 0 && (pos + 3 >= text.size() || text[pos + 3] != '"'))
    return "\"\"\"";
  return "\"";
}

size_t getFirstCharPosAfterString(const std::string& text, size_t pos, const std::string& terminator) {
  if (terminator.empty()) return text.find_first_of(STR_WHITE_SPACE_CHARS, pos);
  const bool escapable = terminator == "\"";
  size_t found = text.find(terminator, pos);
  while (found != std::string::npos && escapable) {
    size_t backslashes = 0;
    while (backslashes < found && text[found - 1 - backslashes] == '\\') ++backslashes;
    if (backslashes % 2 == 0) break;
    found = text.find(terminator, found + 1);
  }
  return found == std::string::npos ? std::string::npos : found + terminator.size();
}

std::string removeQuotes(const std::string& text) {
  if (text.size() < 2 || !isQuote(text[0])) return text;
  const char quote = text[0];
  size_t first = 0;
  size_t last = text.size();  // one past the kept part
  while (last - first >= 2 && text[first] == quote && text[last - 1] == quote) {
    ++first;
    --last;
  }
  return text.substr(first, last - first);
}

void removeQuotes(std::vector<std::string>& tokens) {
  for (std::string& token : tokens) token = removeQuotes(token);
}

std::string getNameAndValueFromToken(const std::string& token, std::string& name, std::string& value) {
  const size_t equals = token.find('=');
  if (equals == std::string::npos) return "(" + token + ") Incorrect Token Format (pattern format: name=value)";
  name = token.substr(0, equals);
  value = removeQuotes(token.substr(equals + 1));
  return std::string();
}

}  // namespace orvCore

namespace UTILS {

std::string removeOneLayerOfQuotes(const std::string& text) {
  if (text.size() < 2) return text;
  const char quote = text.front();
  if ((quote != '"' && quote != '\'') || text.back() != quote) return text;
  return text.substr(1, text.size() - 2);
}

void removeOneLayerOfQuotes(std::vector<std::string>& tokens) {
  for (std::string& token : tokens) token = removeOneLayerOfQuotes(token);
}

}  // namespace UTILS
