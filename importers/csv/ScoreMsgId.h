#pragma once
// Message sources of the SCORE range and the original ids built from them.

#include <cstdint>
#include <string>

namespace SCORE {

enum UmfMessageSource : int {
  LTS = 0,
  ETR = 1,
  IFF = 2,
  AIS = 3,
  PTA = 4,
  UWA = 5,
  UWB = 6,
  PMS = 7,
  SON = 8,
  SGPS = 9,
  SAT = 10,
  PCCU = 11,
  SNTC = 12,
  UAS = 13,
  LINK = 14,
  GTS = 15,
  CPOI = 16,
  RBI = 17,
  TCTS = 18,
  LATH = 19,
  TCTH = 20,
  TENA = 21,
  TETH = 22,
  JBUS = 23,
  LDTS = 9993,
  UCS_DSLM = 9994,
  DB = 9995,
  CAT = 9996,
  EVT = 9997,
  LEG = 9998,
  UNK = 9999
};

// Category-item XML names and the category texts of unified data.
extern const char* const CATEGORY_DATA_ITEMS;  // "categoryDataItems"
extern const char* const CATEGORY_DATA;         // "cd"
extern const char* const CATEGORY_SOURCE;       // "src"
extern const char* const CATEGORY_ID;           // "id"
extern const char* const CATEGORY_NAME;         // "n"
extern const char* const CATEGORY_VALUE;        // "v"
extern const char* const DATA_FORMAT_NAME;      // "Data Format"
extern const char* const DATA_FORMAT_UMF;       // "UMF"
extern const char* const CATEGORY_NAME_CATEGORY;  // "Category"
extern const char* const CATEGORY_UNIFIED_TSPI;   // "Unified TSPI"
extern const char* const CATEGORY_UNIFIED_EW;     // "Unified EW"
extern const char* const TENA_THREAT;             // "TENA_THREAT"

// "LTS", "ETR", ...; "UNK" for a value outside the list.
std::string toString(UmfMessageSource source);
// As toString, but "LINK16", "LTS_THREAT" and "TCTS_THREAT" for 14, 19, 20.
std::string toCategoryString(UmfMessageSource source);
// The source of a name, its text or one of its further names, case ignored;
// UNK for any other name.
UmfMessageSource convertScoreTrackingSource(const std::string& name);
// The source of a legacy message-format number; UNK when it has none.
UmfMessageSource toUmf(int legacyMessageFormat);

// Source in the high 32 bits, track id in the low 32.
uint64_t toOriginalID(UmfMessageSource source, uint32_t id);
// Either output may be null.
void fromOriginalID(uint64_t originalId, UmfMessageSource* source, uint32_t* id);

// At most `length` bytes of `text`, up to its first zero byte; "" for a
// null or empty text or a zero length.
void convertCharToString(const char* text, size_t length, std::string& result);

}  // namespace SCORE
