// The XML block of NTDS and attack records: sections looked up by name.

#include <cstring>

#include "core/TimeParse.h"
#include "importers/csv/CSVEvt.h"

namespace {

const char* const kNtdsSections[] = {"stamp", "rpttype", "cnttype", "cls",    "pickno", "radius", "dbrg",
                                     "width", "length",  "safetime", "wtype", "wno",    "excspd"};
const char* const kNtdsItems[] = {"item xsi:type=\"ns:lnch\"", "item xsi:type=\"ns:tgt\""};
const char* const kNtdsItemSections[] = {"lat", "lon", "alt", "ident"};

const char* const kAtkSections[] = {"impact_pt", "impact-pt", "stamp",   "title",      "no",       "dpyop",
                                    "update",    "weapon",    "atk",     "rn",         "depth-p",  "ceiling-p",
                                    "hats",      "stab",      "gyro",    "firing_brg", "lead_lag", "firing-rng",
                                    "tube",      "nro",       "circle",  "vla",        "snake",    "rpttype"};
const char* const kAtkItems[] = {
    "item xsi:type=\"ns:asw-hats\"",     "item xsi:type=\"ns:lnch\"",          "item xsi:type=\"ns:tgt\"",
    "item xsi:type=\"ns:tgtSpd\"",       "item xsi:type=\"ns:tgtCrs\"",        "item xsi:type=\"ns:aswWeapon\"",
    "item xsi:type=\"ns:brgTotgt\"",     "item xsi:type=\"ns:rngTotgt\"",      "item xsi:type=\"ns:asw-circle\"",
    "item xsi:type=\"ns:asw-svtt-nro\"", "item xsi:type=\"ns:asw-svtt-snake\"", "item xsi:type=\"ns:asw-rtt-vla\""};
const char* const kAtkItemSections[] = {"call xsi:type=\"ns:calls\"", "actual xsi:type=\"ns:calls\"",
                                        "delta xsi:type=\"ns:calls\"", "val", "crs", "spd", "lat", "lon", "alt",
                                        "ident"};

template <size_t N>
void readSections(std::map<std::string, std::string>& out, const std::string& text, const char* const (&names)[N],
                  const std::string& prefix = std::string()) {
  std::string value;
  for (const char* name : names)
    if (CSVEvt::extractXmlSection_(value, text, name)) out[prefix + name] = value;
}

template <size_t N, size_t M>
void readItems(std::map<std::string, std::string>& out, const std::string& text, const char* const (&items)[N],
               const char* const (&names)[M]) {
  std::string item;
  for (const char* name : items)
    if (CSVEvt::extractXmlSection_(item, text, name)) readSections(out, item, names, std::string(name) + "/");
}

}  // namespace

bool CSVEvt::extractXmlSection_(std::string& result, const std::string& text, const std::string& name) {
  result.clear();
  // A name with attributes ("item xsi:type=...") closes with its element name alone.
  const std::string element = name.substr(0, name.find(' '));
  size_t begin = text.find("<" + name + ">");
  if (begin != std::string::npos) {
    begin += name.size() + 2;
  } else {
    // "<name" followed by attributes, up to the end of the tag.
    const std::string open = "<" + name;
    size_t at = text.find(open);
    while (at != std::string::npos) {
      const char next = at + open.size() < text.size() ? text[at + open.size()] : '\0';
      if (next == ' ' || next == '\t' || next == '/' || next == '>') break;
      at = text.find(open, at + 1);
    }
    if (at == std::string::npos) return false;
    const size_t close = text.find('>', at);
    if (close == std::string::npos) return false;
    if (text[close - 1] == '/') return true;  // an empty element
    begin = close + 1;
  }
  const size_t end = text.find("</" + element + ">", begin);
  if (end == std::string::npos) return false;
  result.assign(text, begin, end - begin);
  return true;
}

double CSVEvt::convertXMLTime_(const std::string& text) { return UTILS::getSecondsSinceYearFromScoreTimeString(text); }

void CSVEvt::readXml_(const std::vector<std::string>& tokens, XmlEvent& event) {
  // The XML runs from field 21 to the end of the line; commas inside it split
  // it into fields, so they are joined again.
  event.xml = tokens[21];
  for (size_t i = 22; i < tokens.size(); ++i) event.xml += "," + tokens[i];
  const bool attack = dynamic_cast<AttackEvent*>(&event) != nullptr;
  if (attack) {
    readSections(event.sections, event.xml, kAtkSections);
    readItems(event.sections, event.xml, kAtkItems, kAtkItemSections);
  } else {
    readSections(event.sections, event.xml, kNtdsSections);
    readItems(event.sections, event.xml, kNtdsItems, kNtdsItemSections);
  }
  auto stamp = event.sections.find("stamp");
  if (stamp != event.sections.end()) event.stampTime = convertXMLTime_(stamp->second);
}
