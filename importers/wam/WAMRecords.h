#pragma once
// The three records of a WAM log, each read from one line whose fields are
// separated by backslashes; the leading keyword is not among the tokens.
// Fields in order:
//
//   TRACK: source, unit, track, name, unit type, platform type, country,
//          mission, exercise, taxonomy, truth, data source, remarks.
//   POINT: yyyymmdd, hhmmss, msec, lat, N|S, lon, E|W, altitude, course,
//          speed, unit, track, local TQ, remote TQ, source, track type,
//          category, callsign, identity, link, status, threat, colour,
//          mode 2, mode 3, mode 4, raid size, origin source, ID marker,
//          ID amplification, reporting unit, other track num type,
//          other track num, platform, activity, specific type.
//   ACTION: unit, track, then 146 more (148 fields).
//
// A TRACK needs 3 fields, a POINT 8, an ACTION exactly 148; later fields
// of TRACK and POINT may be left out. Latitude and longitude are degrees,
// altitude metres, course degrees, speed knots.

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace WAMLib {

enum WAMDataType { WAM_TRACK = 0, WAM_POINT = 1, WAM_ACTION = 2 };

using Tokens = std::vector<std::string>;

// Takes the next token into `result` and moves on; non-zero when the tokens
// have ended (then `result` is emptied).
int parseField(Tokens::const_iterator& it, const Tokens& tokens, std::string& result);

// Seconds since the start of the year of `date` (yyyymmdd), from hhmmss and
// milliseconds. False, with the reason on `errors`, for a field that can't
// be read.
bool parseTime(int year, const std::string& date, const std::string& time, const std::string& milliseconds,
               double& seconds, std::ostream& errors);

class WAMBaseData {
 public:
  virtual ~WAMBaseData() = default;
  virtual WAMDataType getDataType() const = 0;
  // Reads the fields; false (with the reason on `errors`) when too few.
  virtual bool parseLine(const Tokens& tokens, std::ostream& errors) = 0;
  // Unit and track joined with "_".
  std::string unitTrackID() const { return unit + "_" + track; }

  std::string unit;
  std::string track;
};

class WAMTrack : public WAMBaseData {
 public:
  WAMDataType getDataType() const override { return WAM_TRACK; }
  bool parseLine(const Tokens& tokens, std::ostream& errors) override;

  std::string source, name, unitType, platformType, country, mission, exercise, taxonomy, truth, dataSource,
      remarks;
};

class WAMPoint : public WAMBaseData {
 public:
  WAMDataType getDataType() const override { return WAM_POINT; }
  bool parseLine(const Tokens& tokens, std::ostream& errors) override;

  // The optional text fields from the source on, in line order, with the
  // category name that each is shown under ("" for those not shown).
  enum Text {
    SOURCE, TRACK_TYPE, CATEGORY, CALLSIGN, IDENTITY, LINK, STATUS, THREAT, COLOUR, MODE2, MODE3, MODE4,
    RAID_SIZE, ORIGIN_SOURCE, ID_MARKER, ID_AMPLIFICATION, REPORTING_UNIT, OTHER_TRACK_NUM_TYPE, OTHER_TRACK_NUM,
    PLATFORM, ACTIVITY, SPECIFIC_TYPE, TEXT_COUNT
  };
  static const char* categoryName(Text field);

  std::string date;
  int year = 0;
  double time = 0.0;  // seconds since the start of `year`
  double latitude = 0.0, longitude = 0.0;
  double altitude = 0.0, course = 0.0, speed = 0.0;
  bool hasAltitude = false, hasCourse = false, hasSpeed = false;
  // Track qualities: `carries...` when the line reached the field, `has...`
  // when it holds a value.
  double localTQ = 0.0, remoteTQ = 0.0;
  bool carriesLocalTQ = false, carriesRemoteTQ = false, hasLocalTQ = false, hasRemoteTQ = false;
  std::string localTQText, remoteTQText;
  // The text fields; `carried[i]` when the line reached field i.
  std::string text[TEXT_COUNT];
  bool carried[TEXT_COUNT] = {};
  int category = 6, identity = 2, threat = 4, colour = 4, mode4 = 0;
};

class WAMAction : public WAMBaseData {
 public:
  static constexpr size_t kFieldCount = 148;
  WAMDataType getDataType() const override { return WAM_ACTION; }
  bool parseLine(const Tokens& tokens, std::ostream& errors) override;

  Tokens fields;  // every field, unit and track first
};

// The letter codes of a point's fields.
int parseCategory(const std::string& letter);
int parseFHN(const std::string& letter);
int parseThreat(const std::string& letter);
int parseColor(const std::string& letter);
int parseMode4(const std::string& letter);
// "Air", "Surface", ... of a category letter; "Not Found" for an empty one.
std::string domainText(const std::string& letter);

}  // namespace WAMLib
