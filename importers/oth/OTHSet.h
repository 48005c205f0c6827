#pragma once
// The common frame of every OTH Gold set: a line "NAME/field/field/...".
// A set keeps the text of each field as it was read, so that fields whose
// meaning this program doesn't use still come back unchanged when the set
// is written again.

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace OthLib {

class OTHSet {
 public:
  virtual ~OTHSet();
  OTHSet(const OTHSet&) = default;
  OTHSet(OTHSet&&) noexcept = default;
  OTHSet& operator=(const OTHSet&) = default;
  OTHSet& operator=(OTHSet&&) noexcept = default;

  // The set name without its slash, e.g. "POS".
  const char* setName() const { return name_; }

  // Reads a line of this set: trims it, splits off the name at the first "/"
  // and takes the fields from the front; fields the line lacks keep their
  // present text, fields beyond the set's own are kept too. 0 on success;
  // 1 for an empty line; 2 for a line of another set.
  int unpack(const std::string& line);
  // "NAME/" and the fields joined by "/", without a line end.
  std::string packToString() const;

  // Fields from 0; at least the set's own count, more when a line carried more.
  size_t fieldCount() const { return count_; }
  // The text of a field; "" beyond the last.
  std::string field(size_t index) const;
  // Sets a field, adding empty fields up to it. A "/" would split the field
  // and a line end the set, so "/" becomes "-" and line ends become blanks.
  void setField(size_t index, const std::string& text);

  // The file line that the set came from; 0 when it wasn't read from a file.
  unsigned long lineNumber() const { return line_; }
  void setLineNumber(unsigned long line) { line_ = static_cast<uint32_t>(line); }

 protected:
  // A set of `fieldCount` fields, empty but for the given defaults.
  OTHSet(const char* name, size_t fieldCount, std::initializer_list<std::pair<size_t, const char*>> defaults = {});

  // Replaces the fields [first, first + removed) by `texts`.
  void replaceFields(size_t first, size_t removed, const std::vector<std::string>& texts);

 private:
  // Start and end of a field within fields_.
  std::pair<size_t, size_t> span_(size_t index) const;

  const char* name_;
  // The fields joined by "/": one string per set keeps a report at about
  // the size of its line.
  std::string fields_;
  uint32_t count_;
  uint32_t line_ = 0;
};

// The fields of a set line behind its name, split at every "/".
std::vector<std::string> splitFields(const std::string& text);

}  // namespace OthLib
