#include "importers/oth/OTHMessage.h"

#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>

#include "importers/oth/OthFields.h"

namespace OthLib {

namespace {

bool startsWith(const std::string& text, const char* prefix) {
  return text.compare(0, std::strlen(prefix), prefix) == 0;
}

std::string trimmed(const std::string& text) {
  static const char* const blanks = " \t\r\n\f\v";
  const size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return std::string();
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// True if the line, past its leading blanks, begins with `prefix`.
bool beginsWith(const std::string& line, const char* prefix) {
  const size_t first = line.find_first_not_of(" \t");
  return first != std::string::npos && line.compare(first, std::strlen(prefix), prefix) == 0;
}

// The set name of a line: the text before its first "/".
std::string nameOf(const std::string& line) { return line.substr(0, line.find('/')); }

// "at line N" when the line is known.
std::string where(unsigned long line) { return line > 0 ? " at line " + std::to_string(line) : std::string(); }

// Reads `line` into `set`, which stays as it was when the line is refused;
// a refused line makes the message fail.
bool unpackSet(OTHSet& set, const std::string& line, unsigned long lineNumber, OTHParseLog& log, bool& failed) {
  if (set.unpack(line) != 0) {
    log.out() << "Error in processing " << set.setName() << where(lineNumber) << ": " << line << '\n';
    log.countError();
    failed = true;
    return false;
  }
  set.setLineNumber(lineNumber);
  return true;
}

// The same into a new set at the back of `list`.
template <typename Set>
void unpackInto(std::vector<Set>& list, const std::string& line, unsigned long lineNumber, OTHParseLog& log,
                bool& failed) {
  list.emplace_back();
  if (!unpackSet(list.back(), line, lineNumber, log, failed)) list.pop_back();
}

void dropOrphan(const std::string& line, unsigned long lineNumber, const char* owner, OTHParseLog& log) {
  log.out() << nameOf(line) << " set" << where(lineNumber) << " has no " << owner
            << " set before it in its message and was dropped\n";
}

}  // namespace

int OTHMessage::parseMessage(const std::string& text, unsigned long firstLine, OTHParseLog* log) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  std::string line;
  while (std::getline(in, line)) lines.push_back(line);
  return parseMessage(lines, firstLine, log);
}

int OTHMessage::parseMessage(const std::vector<std::string>& lines, unsigned long firstLine, OTHParseLog* log) {
  OTHParseLog standardError(std::cerr);
  OTHParseLog& report = log != nullptr ? *log : standardError;

  // Every line of the group counts, blank ones too.
  if (lines.size() < 4) {
    report.out() << "Error in processing MSGID" << where(firstLine) << ": a message needs at least 4 lines, it has "
                 << lines.size() << '\n';
    report.countError();
    failed_ = true;
    return 1;
  }

  for (size_t i = 0; i < lines.size(); ++i) {
    std::string line = trimmed(lines[i]);
    if (line.empty()) continue;
    const unsigned long lineNumber = firstLine > 0 ? firstLine + i : 0;
    // Continuation lines: the line ends one character early and goes on in the next.
    while (i + 1 < lines.size()) {
      const std::string next = trimmed(lines[i + 1]);
      if (next.empty() || next[0] != '/') break;
      line.pop_back();
      line += next;
      ++i;
    }
    parseSet_(line, lineNumber, report);
  }
  return failed_ ? 1 : 0;
}

void OTHMessage::parseSet_(const std::string& line, unsigned long lineNumber, OTHParseLog& log) {
  if (startsWith(line, "MSGID")) {
    unpackSet(header_, line, lineNumber, log, failed_);
  } else if (startsWith(line, "ENDAT")) {
    unpackSet(endData_, line, lineNumber, log, failed_);
  } else if (startsWith(line, "CTC")) {
    unpackInto(contacts_, line, lineNumber, log, failed_);
  } else if (startsWith(line, "POS")) {
    if (contacts_.empty())
      dropOrphan(line, lineNumber, "CTC", log);
    else
      unpackInto(contacts_.back().positions(), line, lineNumber, log, failed_);
  } else if (startsWith(line, "XPOS")) {
    if (contacts_.empty())
      dropOrphan(line, lineNumber, "CTC", log);
    else
      unpackInto(contacts_.back().expandedPositions(), line, lineNumber, log, failed_);
  } else if (startsWith(line, "OVLY")) {
    unpackInto(overlays_, line, lineNumber, log, failed_);
  } else if (startsWith(line, "ARC") || startsWith(line, "LINE") || startsWith(line, "TEXT") ||
             startsWith(line, "CHART")) {
    std::unique_ptr<OTHOverlayDrawable> drawable;
    if (startsWith(line, "ARC"))
      drawable = std::make_unique<OTHArc>();
    else if (startsWith(line, "LINE"))
      drawable = std::make_unique<OTHLine>();
    else if (startsWith(line, "TEXT"))
      drawable = std::make_unique<OTHText>();
    else
      drawable = std::make_unique<OTHChart>();
    if (!unpackSet(*drawable, line, lineNumber, log, failed_)) return;
    if (overlays_.empty())
      dropOrphan(line, lineNumber, "OVLY", log);
    else
      overlays_.back().drawables().push_back(std::move(drawable));
  } else if (startsWith(line, "AREAM")) {
    unpackInto(areas_, line, lineNumber, log, failed_);
  } else if (startsWith(line, "RMKS")) {
    unpackInto(remarks_, line, lineNumber, log, failed_);
  } else if (startsWith(line, "RADB")) {
    unpackInto(radarData_, line, lineNumber, log, failed_);
  } else if (!startsWith(line, "DEL/")) {
    // Sets of other kinds are no fault of the message; each name is told once a file.
    const std::string name = nameOf(line);
    if (log.firstUnknown(name))
      log.out() << "Unknown set \"" << name << "\"" << where(lineNumber)
                << " passed over; later sets of that name are passed over silently\n";
  }
}

std::string OTHMessage::packToString() const {
  std::string out = header_.packToString() + '\n';
  for (const OTHContact& contact : contacts_) {
    out += contact.packToString() + '\n';
    for (const OTHPosition& position : contact.positions()) out += position.packToString() + '\n';
    for (const OTHExpandedPosition& position : contact.expandedPositions()) out += position.packToString() + '\n';
  }
  for (const OTHOverlay& overlay : overlays_) {
    out += overlay.packToString() + '\n';
    for (const auto& drawable : overlay.drawables()) out += drawable->packToString() + '\n';
  }
  for (const OTHAreaAmplification& area : areas_) out += area.packToString() + '\n';
  for (const OTHRemarks& remark : remarks_) out += remark.packToString() + '\n';
  for (const OTHExpandedRadarData& radar : radarData_) out += radar.packToString() + '\n';
  out += endData_.packToString() + '\n';
  return out;
}

void OTHMessage::startMessage_(bool xctc, std::string& out) {
  header_.incrementMSN();
  header_.setCommand(xctc ? "XCTC" : "GOLD");
  out = header_.packToString() + '\n';
}

std::string OTHMessage::createPositionMessage(bool xctc, bool withEnd) {
  std::string out;
  startMessage_(xctc, out);
  for (const OTHContact& contact : contacts_) {
    out += contact.packToString() + '\n';
    for (const OTHPosition& position : contact.positions()) out += position.packToString() + '\n';
    for (const OTHExpandedPosition& position : contact.expandedPositions()) out += position.packToString() + '\n';
  }
  if (withEnd) out += "ENDAT\n";
  return out;
}

std::string OTHMessage::createDeleteMessage(double time, int referenceYear, bool xctc, bool withEnd) {
  std::string out;
  startMessage_(xctc, out);
  std::string group, month;
  setDateTimeGroup(time, referenceYear, group, month);
  for (const OTHContact& contact : contacts_) out += "DEL/" + contact.getName() + "/" + group + "/" + month + "\n";
  if (withEnd) out += "ENDAT\n";
  return out;
}

int ParseOTHFile(const std::string& fileName, std::vector<OTHMessage>& messages, bool keepFailed) {
  return ParseOTHFile(fileName, messages, keepFailed, std::cerr);
}

int ParseOTHFile(const std::string& fileName, std::vector<OTHMessage>& messages, bool keepFailed,
                 std::ostream& errors, const std::function<bool(double)>& progress) {
  std::ifstream in(fileName, std::ios::binary);
  if (!in) {
    errors << "Unable to open OTH Gold file \"" << fileName << "\"\n";
    return -1;
  }
  in.seekg(0, std::ios::end);
  const double size = static_cast<double>(in.tellg());
  in.seekg(0, std::ios::beg);
  double bytesRead = 0.0;
  OTHParseLog log(errors);
  bool anyFailed = false;
  std::vector<std::string> group;
  unsigned long groupStart = 0;  // 0: no message open
  unsigned long strayStart = 0;
  unsigned long strayEnd = 0;

  auto finish = [&](bool complete) {
    if (!complete) {
      errors << "Message at line " << groupStart << " has no ENDAT line\n";
      log.countError();
      anyFailed = true;
    }
    if (complete || keepFailed) {
      OTHMessage message;
      const bool ok = message.parseMessage(group, groupStart, &log) == 0 && complete;
      if (!ok) anyFailed = true;
      if (ok || keepFailed) messages.push_back(std::move(message));
    }
    group.clear();
    groupStart = 0;
  };
  auto reportStray = [&]() {
    if (strayStart == 0) return;
    if (strayStart == strayEnd)
      errors << "Line " << strayStart << " lies outside any message (MSGID to ENDAT) and was passed over\n";
    else
      errors << "Lines " << strayStart << " to " << strayEnd
             << " lie outside any message (MSGID to ENDAT) and were passed over\n";
    strayStart = strayEnd = 0;
  };

  std::string line;
  unsigned long lineNumber = 0;
  while (std::getline(in, line)) {
    ++lineNumber;
    bytesRead += static_cast<double>(line.size()) + 1.0;
    // Every few thousand lines, so that the question costs nothing.
    if (progress && lineNumber % 4096 == 0 && progress(size > 0.0 ? bytesRead / size : 1.0)) return 2;
    if (beginsWith(line, "MSGID")) {
      reportStray();
      if (groupStart != 0) finish(false);
      groupStart = lineNumber;
    }
    if (groupStart != 0) {
      const bool end = beginsWith(line, "ENDAT");
      group.push_back(std::move(line));
      if (end) finish(true);
    } else if (line.find_first_not_of(" \t\r\n\f\v") != std::string::npos) {
      if (strayStart == 0) strayStart = lineNumber;
      strayEnd = lineNumber;
    }
  }
  reportStray();
  if (groupStart != 0) finish(false);
  return anyFailed ? 1 : 0;
}

}  // namespace OthLib
