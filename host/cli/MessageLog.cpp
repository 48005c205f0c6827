#include "host/cli/MessageLog.h"

#include <cctype>
#include <iostream>

#include <nlohmann/json.hpp>

#include "host/TerminalText.h"

namespace RefHost {

std::string severityName(std::int64_t severity) {
  switch (severity) {
    case 0: return "always";
    case 1: return "fatal";
    case 2: return "error";
    case 3: return "warning";
    case 4: return "notice";
    case 5: return "info";
    case 6: return "debug";
    default: return "severity " + std::to_string(severity);
  }
}

MessageOrigin messageOrigin(const std::string& text) {
  // "Line <digits> <keyword>: ..." exactly; anything else has no origin.
  MessageOrigin origin;
  static const std::string head = "Line ";
  if (text.compare(0, head.size(), head) != 0) return origin;
  std::size_t at = head.size();
  const std::size_t digits = at;
  while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at]))) ++at;
  if (at == digits || at - digits > 18 || at >= text.size() || text[at] != ' ') return origin;
  const std::size_t keyword = ++at;
  while (at < text.size() && text[at] != ':' && text[at] != ' ' && text[at] != '\n') ++at;
  if (at == keyword || at + 1 >= text.size() || text[at] != ':' || text[at + 1] != ' ') return origin;
  origin.line = std::stoll(text.substr(digits, keyword - 1 - digits));
  origin.keyword = text.substr(keyword, at - keyword);
  return origin;
}

void MessageLog::clearBarLine_() const {
  if (clearBar_) std::cerr << "\r\033[K";
}

void MessageLog::onLogLine(const std::string& line) {
  nlohmann::json entry = nlohmann::json::parse(line, nullptr, false);
  if (entry.is_discarded() || !entry.is_object()) {
    if (file_) *file_ << line << '\n' << std::flush;
    return;
  }
  const std::int64_t severity = entry.value("severity", std::int64_t(0));
  const std::string text = entry.value("text", std::string());
  const std::string prefix = entry.value("prefix", std::string());
  const MessageOrigin origin = messageOrigin(text);
  const std::string name = severityName(severity);

  if (severity == 1 || severity == 2) ++errors_;
  else if (severity == 3) ++warnings_;
  else ++notes_;

  if (file_) {
    entry["file"] = currentFile_.empty() ? nlohmann::json(nullptr) : nlohmann::json(currentFile_);
    entry["line"] = origin.line ? nlohmann::json(*origin.line) : nlohmann::json(nullptr);
    entry["keyword"] = origin.keyword.empty() ? nlohmann::json(nullptr) : nlohmann::json(origin.keyword);
    entry["severityName"] = name;
    *file_ << entry.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n' << std::flush;
  }

  // FILE:LINE: SEVERITY: text, as compilers write it. The line prefix goes:
  // the location says it; the keyword stays in front of the text.
  std::string body = prefix + (origin.line ? text.substr(text.find(' ', 5) + 1) : text);
  while (!body.empty() && body.back() == '\n') body.pop_back();
  std::string location = currentFile_.empty() ? std::string("scenario-host") : currentFile_;
  if (origin.line) location += ":" + std::to_string(*origin.line);
  std::string shown = terminalSafe(location) + ": " + name + ": ";
  // Further lines of a text are indented under the first.
  const std::string safe = terminalSafe(body, true);
  for (char c : safe) shown += c == '\n' ? std::string("\n    ") : std::string(1, c);
  clearBarLine_();
  std::cerr << shown << '\n' << std::flush;
}

void MessageLog::echoMessageBox(const std::string& title, const std::string& text) {
  clearBarLine_();
  std::cerr << terminalSafe(title) << ": " << terminalSafe(text) << '\n' << std::flush;
}

void MessageLog::echoConsoleLine(const std::string& text) {
  clearBarLine_();
  std::string line = text;
  while (!line.empty() && line.back() == '\n') line.pop_back();
  std::cerr << terminalSafe(line, true) << '\n' << std::flush;
}

}  // namespace RefHost
