#include "importers/oth/OTHFrameSets.h"

#include <fox-1.6/fx.h>

#include "core/ValidNumber.h"

namespace OthLib {

OTHMsgID::OTHMsgID() : OTHSet("MSGID", 5) {}

int OTHMsgID::getSerialNumber() const {
  int number = 0;
  return orvCore::isValidNumber(field(SERIAL_NUMBER), number, false) && number >= 0 ? number : -1;
}

void OTHMsgID::setSerialNumber(int number) {
  FX::FXString text;
  text.format("%04d", ((number % 10000) + 10000) % 10000);
  setField(SERIAL_NUMBER, text.text());
}

void OTHMsgID::incrementMSN() {
  const int number = getSerialNumber();
  setSerialNumber(number < 0 ? 1 : number + 1);
}

OTHEndData::OTHEndData() : OTHSet("ENDAT", 2, {{CLASSIFICATION, "UNCLASS"}}) {}

OTHRemarks::OTHRemarks() : OTHSet("RMKS", 2) {}

int OTHRemarks::getAisMmsi(unsigned long& mmsi) const {
  FX::FXString text(getText().c_str());
  text.trim();
  if (getKeyword() != "AIS" || text.empty()) return 1;
  return orvCore::isValidNumber(std::string(text.text()), mmsi, false) ? 0 : 2;
}

OTHExpandedRadarData::OTHExpandedRadarData() : OTHSet("RADB", 9) {}

}  // namespace OthLib
