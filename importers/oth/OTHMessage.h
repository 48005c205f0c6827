#pragma once
// One OTH Gold message, from its "MSGID/" line to its "ENDAT" line, and the
// reading of a file of them.

#include <functional>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

#include "importers/oth/OTHContactSets.h"
#include "importers/oth/OTHFrameSets.h"
#include "importers/oth/OTHOverlaySets.h"

namespace OthLib {

// Where the faults of a read go, with what has been said once already.
class OTHParseLog {
 public:
  explicit OTHParseLog(std::ostream& out) : out_(out) {}
  std::ostream& out() { return out_; }
  // True the first time a set name is met that the reader doesn't know.
  bool firstUnknown(const std::string& name) { return unknownNames_.insert(name).second; }
  // Faults that made a message fail.
  unsigned long errors() const { return errors_; }
  void countError() { ++errors_; }

 private:
  std::ostream& out_;
  std::set<std::string> unknownNames_;
  unsigned long errors_ = 0;
};

class OTHMessage {
 public:
  // Reads the lines of one message; `firstLine` is the file line of the
  // first (0 when unknown), for the messages. A line that begins with "/"
  // continues the line before it, which loses its last character. A list of
  // fewer than 4 lines fails, as does any set that can't be read; sets of
  // other names are passed over, and a POS, XPOS or drawable with no
  // contact or overlay to belong to is dropped. 0 on success, else 1.
  int parseMessage(const std::vector<std::string>& lines, unsigned long firstLine = 0,
                   OTHParseLog* log = nullptr);
  // The same over a text, split at its line ends.
  int parseMessage(const std::string& text, unsigned long firstLine = 0, OTHParseLog* log = nullptr);
  // True once a parse of this message failed.
  bool failed() const { return failed_; }

  // Every set of the message, one line each: MSGID, each contact with its
  // POS and XPOS reports, each overlay with its drawables, the areas,
  // remarks and radar data, ENDAT.
  std::string packToString() const;
  // A new serial number and the type "XCTC" or "GOLD", then MSGID, each
  // contact with its reports, and "ENDAT" with withEnd.
  std::string createPositionMessage(bool xctc, bool withEnd);
  // As createPositionMessage, with a line "DEL/<track name>/<date-time group>/<month>"
  // per contact in place of its sets.
  std::string createDeleteMessage(double time, int referenceYear, bool xctc, bool withEnd);

  OTHMsgID& header() { return header_; }
  const OTHMsgID& header() const { return header_; }
  std::vector<OTHContact>& contacts() { return contacts_; }
  const std::vector<OTHContact>& contacts() const { return contacts_; }
  std::vector<OTHOverlay>& overlays() { return overlays_; }
  const std::vector<OTHOverlay>& overlays() const { return overlays_; }
  std::vector<OTHAreaAmplification>& areas() { return areas_; }
  const std::vector<OTHAreaAmplification>& areas() const { return areas_; }
  std::vector<OTHRemarks>& remarks() { return remarks_; }
  const std::vector<OTHRemarks>& remarks() const { return remarks_; }
  std::vector<OTHExpandedRadarData>& radarData() { return radarData_; }
  const std::vector<OTHExpandedRadarData>& radarData() const { return radarData_; }
  OTHEndData& endData() { return endData_; }
  const OTHEndData& endData() const { return endData_; }

 private:
  void parseSet_(const std::string& line, unsigned long lineNumber, OTHParseLog& log);
  void startMessage_(bool xctc, std::string& out);

  OTHMsgID header_;
  std::vector<OTHContact> contacts_;
  std::vector<OTHOverlay> overlays_;
  std::vector<OTHAreaAmplification> areas_;
  std::vector<OTHRemarks> remarks_;
  std::vector<OTHExpandedRadarData> radarData_;
  OTHEndData endData_;
  bool failed_ = false;
};

// Reads a file and parses each group of lines from an "MSGID" line to the
// next "ENDAT" line, appending the messages. A message that fails is
// reported and left out unless keepFailed; a message cut off by the next
// MSGID or the end of the file fails. Faults go to `errors`. `progress`,
// when given, hears the share of the file read (0 to 1) now and then and
// stops the read by answering true. 0 on success; -1 when the file can't be
// opened; 1 when a message failed; 2 when stopped.
int ParseOTHFile(const std::string& fileName, std::vector<OTHMessage>& messages, bool keepFailed = false);
int ParseOTHFile(const std::string& fileName, std::vector<OTHMessage>& messages, bool keepFailed,
                 std::ostream& errors, const std::function<bool(double)>& progress = nullptr);

}  // namespace OthLib
