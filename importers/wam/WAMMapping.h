#pragma once
// The mapping file wamModel.map: icons by name, the limits of the WAM point
// filters, and the classification of a loaded scenario. The WAM and the OTG
// readers share it.

#include <iosfwd>
#include <map>
#include <string>

namespace WAMLib {

class WAMMapping {
 public:
  // The mapping file that the environment names: $ORVIDE_USER_DIR/wamModel.map,
  // else $ORVIDE_DIR/wamModel.map, else $ORVIDE_HOME/config/ORVIDE/wamModel.map;
  // the first that exists, or "" when none does.
  static std::string findMappingFile();

  // Finds and reads the mapping file, telling "Loading WAM mapping file:" on
  // `out`. False when there is none or it can't be read.
  bool load(std::ostream& out, std::ostream& errors);
  // Reads a mapping file. Behind "#" or "//" a line is comment; tokens are
  // runs of non-blanks or quoted runs. A key line sets its value; any other
  // line of two tokens maps a name to an icon. Faulty lines are told on
  // `errors` with their number and skipped. False if the file can't be opened.
  bool read(const std::string& path, std::ostream& errors);
  bool read(std::istream& in, std::ostream& errors);

  // The icon of a name (compared without regard to case), or `fallback`.
  std::string icon(const std::string& name, const std::string& fallback) const;
  size_t iconCount() const { return icons_.size(); }

  // Points faster than this (knots) are dropped; negative when not set.
  double maximumSpeedFilter() const { return maximumSpeed_; }
  bool useCalculatedSpeedFilter() const { return useCalculatedSpeed_; }
  // Points at or below this local track quality are dropped; negative when not set.
  double rejectLocalTrackQuality() const { return rejectQuality_; }
  bool ignoreDuplicatePosition() const { return ignoreDuplicates_; }
  const std::string& classification() const { return classification_; }
  // As written in the file, 0xAABBGGRR; 0 when not set.
  unsigned int classificationColor() const { return classificationColor_; }

 private:
  bool readLine_(const std::string& line, unsigned long number, std::ostream& errors);

  std::map<std::string, std::string> icons_;  // by lower-case name
  double maximumSpeed_ = -1.0;
  bool useCalculatedSpeed_ = false;
  double rejectQuality_ = -1.0;
  bool ignoreDuplicates_ = false;
  std::string classification_ = "UNCLASSIFIED";
  unsigned int classificationColor_ = 0;
};

}  // namespace WAMLib
