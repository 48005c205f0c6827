#include "importers/oth/OTHSet.h"

#include <fox-1.6/fx.h>

#include <algorithm>
#include <cstring>

namespace OthLib {

namespace {

std::string sanitizeField(const std::string& text) {
  if (text.find_first_of("/\r\n") == std::string::npos) return text;
  FX::FXString clean(text.c_str(), static_cast<FX::FXint>(text.size()));
  clean.substitute('/', '-');
  clean.substitute('\r', ' ');
  clean.substitute('\n', ' ');
  return std::string(clean.text(), static_cast<size_t>(clean.length()));
}

}  // namespace

std::vector<std::string> splitFields(const std::string& text) {
  std::vector<std::string> fields;
  size_t start = 0;
  for (;;) {
    const size_t slash = text.find('/', start);
    if (slash == std::string::npos) {
      fields.push_back(text.substr(start));
      return fields;
    }
    fields.push_back(text.substr(start, slash - start));
    start = slash + 1;
  }
}

OTHSet::OTHSet(const char* name, size_t fieldCount, std::initializer_list<std::pair<size_t, const char*>> defaults)
    : name_(name), fields_(fieldCount > 0 ? fieldCount - 1 : 0, '/'), count_(static_cast<uint32_t>(fieldCount)) {
  for (const auto& entry : defaults) setField(entry.first, entry.second);
}

OTHSet::~OTHSet() = default;

std::pair<size_t, size_t> OTHSet::span_(size_t index) const {
  // A plain scan: fields are a few characters long, too short for find() to pay.
  const char* const begin = fields_.data();
  const char* const end = begin + fields_.size();
  const char* start = begin;
  for (size_t i = 0; i < index && start < end; ++start)
    if (*start == '/') ++i;
  const char* stop = start;
  while (stop < end && *stop != '/') ++stop;
  return {static_cast<size_t>(start - begin), static_cast<size_t>(stop - begin)};
}

std::string OTHSet::field(size_t index) const {
  if (index >= count_) return std::string();
  const auto span = span_(index);
  return fields_.substr(span.first, span.second - span.first);
}

void OTHSet::setField(size_t index, const std::string& text) {
  if (index >= count_) {
    fields_.append(index + 1 - count_ - (count_ == 0 ? 1 : 0), '/');
    count_ = static_cast<uint32_t>(index + 1);
  }
  const auto span = span_(index);
  fields_.replace(span.first, span.second - span.first, sanitizeField(text));
}

void OTHSet::replaceFields(size_t first, size_t removed, const std::vector<std::string>& texts) {
  std::vector<std::string> all = splitFields(fields_);
  if (count_ == 0) all.clear();
  if (first > all.size()) all.resize(first);
  const size_t last = std::min(all.size(), first + removed);
  all.erase(all.begin() + static_cast<long>(first), all.begin() + static_cast<long>(last));
  std::vector<std::string> clean;
  for (const std::string& text : texts) clean.push_back(sanitizeField(text));
  all.insert(all.begin() + static_cast<long>(first), clean.begin(), clean.end());
  fields_.clear();
  for (size_t i = 0; i < all.size(); ++i) {
    if (i > 0) fields_ += '/';
    fields_ += all[i];
  }
  count_ = static_cast<uint32_t>(all.size());
}

int OTHSet::unpack(const std::string& line) {
  FX::FXString text(line.c_str(), static_cast<FX::FXint>(line.size()));
  text.trim();
  if (text.empty()) return 1;
  const FX::FXint slash = text.find('/');
  const FX::FXint nameLength = slash < 0 ? text.length() : slash;
  if (static_cast<size_t>(nameLength) != std::strlen(name_) || std::strncmp(text.text(), name_, nameLength) != 0)
    return 2;
  if (slash < 0) return 0;

  const std::string given(text.text() + slash + 1, static_cast<size_t>(text.length() - slash - 1));
  size_t givenCount = 1;
  for (char c : given) givenCount += c == '/' ? 1 : 0;
  if (givenCount >= count_) {
    fields_ = given;
    count_ = static_cast<uint32_t>(givenCount);
  } else {
    // The fields the line lacks keep their text.
    const auto rest = span_(givenCount);
    fields_ = given + '/' + fields_.substr(rest.first);
  }
  return 0;
}

std::string OTHSet::packToString() const {
  std::string line(name_);
  line += '/';
  line += fields_;
  return line;
}

}  // namespace OthLib
