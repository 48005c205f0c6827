#pragma once
// The sets that frame a message: the header "MSGID/" and the end "ENDAT/",
// and the sets that stand on their own in it: remarks "RMKS/" and expanded
// radar data "RADB/".

#include <string>

#include "importers/oth/OTHSet.h"

namespace OthLib {

class OTHMsgID : public OTHSet {
 public:
  // Further fields behind the month are kept as text.
  enum Field : size_t { COMMAND = 0, ORIGINATOR = 1, ORIGINATOR_DETAIL = 2, SERIAL_NUMBER = 3, MONTH = 4 };
  OTHMsgID();

  // The message type: "GOLD", "XCTC", ...
  std::string getCommand() const { return field(COMMAND); }
  void setCommand(const std::string& command) { setField(COMMAND, command); }
  // The message serial number (MSN); -1 when the field holds no number.
  int getSerialNumber() const;
  // Written "%04d", of the number's last four digits.
  void setSerialNumber(int number);
  // The next serial number, 9999 going on with 0000; a field without a
  // number starts the count at 0001.
  void incrementMSN();
};

class OTHEndData : public OTHSet {
 public:
  enum Field : size_t { CLASSIFICATION = 0 };
  OTHEndData();
  std::string getClassification() const { return field(CLASSIFICATION); }
};

class OTHRemarks : public OTHSet {
 public:
  enum Field : size_t { KEYWORD = 0, TEXT = 1 };
  OTHRemarks();
  std::string getKeyword() const { return field(KEYWORD); }
  std::string getText() const { return field(TEXT); }
  // The MMSI of a remark "AIS/<number>". 1: another keyword or an empty
  // text; 2: a text that is no number.
  int getAisMmsi(unsigned long& mmsi) const;
};

class OTHExpandedRadarData : public OTHSet {
 public:
  OTHExpandedRadarData();
};

}  // namespace OthLib
