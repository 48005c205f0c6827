#include "importers/csv/CSVEvt.h"

#include <cmath>
#include <iostream>

#include "core/TimeException.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"
#include "document/PlatformUD.h"
#include "importers/csv/CSVFields.h"
#include "importers/csv/CSVFile.h"

using namespace CSVFields;

namespace {

// A field that a record may leave out reads as empty.
const std::string& field(const std::vector<std::string>& tokens, size_t index) {
  static const std::string empty;
  return index < tokens.size() ? tokens[index] : empty;
}

// A participant from ten fields at `first`: source, id, latitude,
// longitude (degrees), X, Y (yards), Z (feet), course (degrees), speed
// (knots), call sign.
PlatData readPlatData(const std::vector<std::string>& tokens, size_t first) {
  PlatData plat;
  plat.id = UniqueID(field(tokens, first), toInt(field(tokens, first + 1)), 0);
  plat.lat = wrapPlusMinusPi(toDouble(field(tokens, first + 2)));
  plat.lon = wrapPlusMinusPi(toDouble(field(tokens, first + 3)));
  plat.x = toDouble(field(tokens, first + 4)) * YARDS_TO_METERS;
  plat.y = toDouble(field(tokens, first + 5)) * YARDS_TO_METERS;
  plat.z = toDouble(field(tokens, first + 6)) * FEET_TO_METERS;
  plat.course = wrapZeroTwoPi(toDouble(field(tokens, first + 7)));
  plat.speed = toDouble(field(tokens, first + 8)) * KNOTS_TO_MPS;
  plat.callsign = field(tokens, first + 9);
  return plat;
}

// The second and third participants of doppler, CPA and contact records.
void readOtherParties(const std::vector<std::string>& tokens, ThreePartyEvent& event) {
  event.second = readPlatData(tokens, 21);
  event.third = readPlatData(tokens, 31);
}

}  // namespace

CSVEvt::~CSVEvt() = default;

void CSVEvt::report_(const std::string& text) const {
  const std::string line = file_ ? "Line " + std::to_string(file_->lineNumber()) + " " : std::string();
  writeErrorStreamUD(line + "EVT: " + text + "\n");
}

void CSVEvt::_AddECP(const std::vector<std::string>& tokens, CommonEventPart* part, int dataFormat) {
  part->year = toInt(tokens[1]);
  part->time = recordTime(tokens);
  if (dataFormat == CSVFile::FORMAT_SCORE) {
    part->plat = readPlatData(tokens, 7);
    part->serial = tokens[17];
    part->type = tokens[18];
    part->mode = tokens[19];
    part->flag = truncateToInt(toDouble(tokens[20]));
  } else {
    part->plat.id = UniqueID("PMRF", toInt(tokens[7]), 0);
    part->type = tokens[12];
    part->plat.callsign = tokens[13];
    part->serial = tokens[14];
  }
}

template <typename Event>
Event* CSVEvt::keep_(std::vector<std::unique_ptr<Event>>& list, const std::vector<std::string>& tokens,
                     int dataFormat) {
  auto event = std::make_unique<Event>();
  _AddECP(tokens, event.get(), dataFormat);  // may throw: nothing is kept then
  // The text would land at no time (NaN), or before the year where generic
  // data can't go; a sonobuoy would have no state.
  if (!(std::isfinite(event->time) && event->time >= 0.0)) {
    report_(udErrorString(UD_BAD_TIME_VALUE));
    return nullptr;
  }
  list.push_back(std::move(event));
  return list.back().get();
}

template <typename Event>
int CSVEvt::keepTokens_(std::vector<std::unique_ptr<Event>>& list, const std::vector<std::string>& tokens,
                        int dataFormat, const char* name) {
  // Minex, geometry and fixed points: the call sign is field 21.
  if (tokens.size() < 21) {
    std::cout << name << " size = " << tokens.size() << "\n";
    return 1;
  }
  Event* event = keep_(list, tokens, dataFormat);
  if (event == nullptr) return 1;
  event->tokens = tokens;
  event->plat.callsign = field(tokens, 21);
  return 0;
}

void CSVEvt::AddEVT(const std::vector<std::string>& tokens, int dataFormat) {
  const bool score = dataFormat == CSVFile::FORMAT_SCORE;
  if (tokens.size() < (score ? 21u : 15u)) return;
  const std::string& kind = tokens[score ? 18 : 12];
  try {
    if (kind == "DEP" || kind == "BUOY") _AddDEP(tokens, dataFormat);
    else if (kind == "DOP") _AddDOP(tokens, dataFormat);
    else if (kind == "CPA") _AddCPA(tokens, dataFormat);
    else if (kind == "NOT") _AddNOT(tokens, dataFormat);
    else if (kind == "MIN") _AddMIN(tokens, dataFormat);
    else if (kind == "GEO") _AddGEO(tokens, dataFormat);
    else if (kind == "FP") _AddFP(tokens, dataFormat);
    else if (kind == "ATK" || kind == "XML-ATK") _AddATK(tokens, dataFormat);
    else if (kind == "NTDS" || kind == "XML-NTDS") _AddNTDS(tokens, dataFormat);
    else _AddCON(tokens, dataFormat);
  } catch (const orvCore::TimeException& e) {
    report_(e.what());
  }
}

int CSVEvt::_AddDEP(const std::vector<std::string>& tokens, int dataFormat) {
  const bool score = dataFormat == CSVFile::FORMAT_SCORE;
  if (tokens.size() < (score ? 31u : 15u)) return 1;
  DeploymentEvent* event = keep_(deployments_, tokens, dataFormat);
  if (event == nullptr) return 1;
  if (score) {
    event->annotation = tokens[30];
    if (tokens.size() >= 41) event->second = tokens[40];
    if (tokens.size() >= 42) event->life = toDouble(tokens[41]);
  } else {
    event->annotation = tokens[7];
  }
  event->depth = toDouble(tokens[13]);
  return 0;
}

int CSVEvt::_AddDOP(const std::vector<std::string>& tokens, int dataFormat) {
  if (tokens.size() < 43) return 1;
  DopplerEvent* event = keep_(dopplers_, tokens, dataFormat);
  if (event == nullptr) return 1;
  readOtherParties(tokens, *event);
  event->doppler = tokens[41];
  event->actualDoppler = tokens[42];
  event->third3 = field(tokens, 43);
  return 0;
}

int CSVEvt::_AddCPA(const std::vector<std::string>& tokens, int dataFormat) {
  if (tokens.size() < 44) return 1;
  CPAEvent* event = keep_(cpas_, tokens, dataFormat);
  if (event == nullptr) return 1;
  readOtherParties(tokens, *event);
  event->cpa = tokens[41];
  event->activeCpa = tokens[42];
  event->activeCpaTime = tokens[43];
  return 0;
}

int CSVEvt::_AddCON(const std::vector<std::string>& tokens, int dataFormat) {
  if (tokens.size() < 48) return 1;
  ContactEvent* event = keep_(contacts_, tokens, dataFormat);
  if (event == nullptr) return 1;
  readOtherParties(tokens, *event);
  event->bearing = tokens[41];
  event->range = tokens[42];
  event->actualBearing = tokens[43];
  event->actualRange = tokens[44];
  event->angle = tokens[45];
  event->speed = tokens[46];
  event->initialRange = tokens[47];
  return 0;
}

int CSVEvt::_AddNOT(const std::vector<std::string>& tokens, int dataFormat) {
  if (tokens.size() < 22) {
    std::cout << "AddNOT size = " << tokens.size() << "\n";
    return 1;
  }
  NoteEvent* event = keep_(notes_, tokens, dataFormat);
  if (event == nullptr) return 1;
  event->note = tokens[21];
  return 0;
}

int CSVEvt::_AddMIN(const std::vector<std::string>& tokens, int dataFormat) {
  return keepTokens_(minex_, tokens, dataFormat, "AddMIN");
}

int CSVEvt::_AddGEO(const std::vector<std::string>& tokens, int dataFormat) {
  return keepTokens_(geometry_, tokens, dataFormat, "AddGEO");
}

int CSVEvt::_AddFP(const std::vector<std::string>& tokens, int dataFormat) {
  return keepTokens_(fixedPoints_, tokens, dataFormat, "AddFP");
}

int CSVEvt::_AddNTDS(const std::vector<std::string>& tokens, int dataFormat) {
  if (tokens.size() < 22) {
    std::cout << "AddNTDS size = " << tokens.size() << "\n";
    return 1;
  }
  NTDSEvent* event = keep_(ntds_, tokens, dataFormat);
  if (event == nullptr) return 1;
  readXml_(tokens, *event);
  return 0;
}

int CSVEvt::_AddATK(const std::vector<std::string>& tokens, int dataFormat) {
  if (tokens.size() < 22) {
    std::cout << "AddAtk size = " << tokens.size() << "\n";
    return 1;
  }
  AttackEvent* event = keep_(attacks_, tokens, dataFormat);
  if (event == nullptr) return 1;
  readXml_(tokens, *event);
  const std::string& kind = event->sections["rpttype"];
  event->reportKind = kind == "ASWCLEAR" || kind == "ASWDPY" || kind == "ASWFINAL" ? kind : "unknown";
  return 0;
}
