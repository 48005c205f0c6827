#include "importers/csv/ScoreMsgId.h"

#include <cstring>

#include "core/StringUtils.h"

namespace SCORE {

const char* const CATEGORY_DATA_ITEMS = "categoryDataItems";
const char* const CATEGORY_DATA = "cd";
const char* const CATEGORY_SOURCE = "src";
const char* const CATEGORY_ID = "id";
const char* const CATEGORY_NAME = "n";
const char* const CATEGORY_VALUE = "v";
const char* const DATA_FORMAT_NAME = "Data Format";
const char* const DATA_FORMAT_UMF = "UMF";
const char* const CATEGORY_NAME_CATEGORY = "Category";
const char* const CATEGORY_UNIFIED_TSPI = "Unified TSPI";
const char* const CATEGORY_UNIFIED_EW = "Unified EW";
const char* const TENA_THREAT = "TENA_THREAT";

namespace {

struct SourceName {
  UmfMessageSource source;
  const char* text;
  const char* aliases[3];
};

const SourceName kSources[] = {
    {LTS, "LTS", {"LATR"}},
    {ETR, "ETR", {"NCT", "NCTS-ETR"}},
    {IFF, "IFF", {"RER2", "RER", "PTB"}},
    {AIS, "AIS", {}},
    {PTA, "PTA", {}},
    {UWA, "UWA", {}},
    {UWB, "UWB", {}},
    {PMS, "PMS", {}},
    {SON, "SON", {"STS"}},
    {SGPS, "SGPS", {}},
    {SAT, "SAT", {}},
    {PCCU, "PCCU", {"PCC"}},
    {SNTC, "SNTC", {}},
    {UAS, "UAS", {}},
    {LINK, "LINK", {}},
    {GTS, "GTS", {}},
    {CPOI, "CPOI", {}},
    {RBI, "RBI", {"EWAB"}},
    {TCTS, "TCTS", {}},
    {LATH, "LATH", {}},
    {TCTH, "TCTH", {}},
    {TENA, "TENA", {}},
    {TETH, "TETH", {}},
    {JBUS, "JBUS", {}},
    {LDTS, "LDTS", {}},
    {UCS_DSLM, "UCS/DSLM", {}},
    {DB, "DB", {}},
    {CAT, "CAT", {}},
    {EVT, "EVT", {}},
    {LEG, "LEG", {}},
    {UNK, "UNK", {}},
};

}  // namespace

std::string toString(UmfMessageSource source) {
  for (const SourceName& entry : kSources)
    if (entry.source == source) return entry.text;
  return "UNK";
}

std::string toCategoryString(UmfMessageSource source) {
  switch (source) {
    case LINK: return "LINK16";
    case LATH: return "LTS_THREAT";
    case TCTH: return "TCTS_THREAT";
    // TENA_THREAT is never given here: TENA keeps its plain text.
    default: return toString(source);
  }
}

UmfMessageSource convertScoreTrackingSource(const std::string& name) {
  for (const SourceName& entry : kSources) {
    if (orvCore::caseCompare(name, entry.text) == 0) return entry.source;
    for (const char* alias : entry.aliases)
      if (alias != nullptr && orvCore::caseCompare(name, alias) == 0) return entry.source;
  }
  return UNK;
}

UmfMessageSource toUmf(int format) {
  switch (format) {
    case 401: return LTS;
    case 8:
    case 402:
    case 90: return ETR;
    case 119:
    case 129:
    case 139: return IFF;
    case 177: return AIS;
    case 77: return PTA;
    case 21: return UWA;
    case 22: return UWB;
    case 80: return PMS;
    case 149: return SON;
    case 100009: return SGPS;
    case 100010: return SAT;
    case 403: return PCCU;
    case 100012: return SNTC;
    case 100013: return UAS;
    case 100014: return LINK;
    case 100015: return GTS;
    case 501: return CPOI;
    case 502: return RBI;
    case 999: return EVT;
    case 998: return LEG;
    default: return UNK;
  }
}

uint64_t toOriginalID(UmfMessageSource source, uint32_t id) {
  return (static_cast<uint64_t>(static_cast<uint32_t>(source)) << 32) | id;
}

void fromOriginalID(uint64_t originalId, UmfMessageSource* source, uint32_t* id) {
  if (source != nullptr) *source = static_cast<UmfMessageSource>(static_cast<int>(originalId >> 32));
  if (id != nullptr) *id = static_cast<uint32_t>(originalId & 0xFFFFFFFFu);
}

void convertCharToString(const char* text, size_t length, std::string& result) {
  result.clear();
  if (text == nullptr || length == 0) return;
  result.assign(text, strnlen(text, length));
}

}  // namespace SCORE
