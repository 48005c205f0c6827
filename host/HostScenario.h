#pragma once
// The reference host's scenario: objects with their headers and data, data
// tables, and the scenario-wide settings and clock. It knows nothing of the
// door's records; the dispatch decodes requests into these calls. Every
// operation that can fail answers false (or 0) and leaves the state alone.

#include <array>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/Series.h"
#include "host/StringPool.h"

namespace RefHost {

// Kind masks, which are also the object types that getObjectType answers.
enum ObjectKind : std::uint32_t {
  KIND_NONE = 0,
  KIND_PLATFORM = 1,
  KIND_BEAM = 2,
  KIND_GATE = 4,
  KIND_GENERIC_DATA = 16,
  KIND_LASER = 32,
  KIND_LOB = 64,
  KIND_PROJECTOR = 128,
  KIND_CUSTOM_RENDERING = 256
};

const char* kindName(std::uint32_t kind);

// The union of the header fields of every kind; each kind uses its own.
struct ObjectHeader {
  std::string name;
  std::string icon;      // platform
  std::string renderer;  // custom rendering
  double azimuthOffset = -999999999.0;  // beam
  double elevationOffset = -999999999.0;
  double horizontalWidth = -999999999.0;
  double verticalWidth = -999999999.0;
  std::int32_t beamType = 0;
  bool missileOffset = false;
  std::int32_t gateType = 0;  // gate
  std::int32_t lobType = 1;   // LOB: 1 absolute, 2 relative
  std::uint32_t frame = 0;    // laser: index into the frame pool
  bool body = false;          // laser
};

// The data series of an object, each one record per call.
enum SeriesId : unsigned {
  SERIES_POINTS,          // platform, beam, gate, LOB points; laser orientation
  SERIES_STATUS,          // time, status
  SERIES_COLOR,           // time, colour
  SERIES_TARGET,          // time, target unique id
  SERIES_GENERIC,         // time, expiration, tag, value (pool indices), entry id
  SERIES_CATEGORY,        // time, name, value (pool indices)
  SERIES_LASER_OFFSET,    // time, x, y, z
  SERIES_LASER_MAX_RANGE, // time, range
  SERIES_LASER_WIDTH,     // time, width
  SERIES_LOB_DRAW_STYLE,  // time, colour 1, colour 2, stipple 1, stipple 2, width
  SERIES_PROJECTOR_FOV,   // time, field of view
  SERIES_COUNT
};

const char* seriesName(unsigned series);
// Names of the values of a series' records, for the dump; the points'
// names depend on the object's kind.
std::vector<const char*> seriesFields(unsigned series, std::uint32_t kind);

struct HostObject {
  std::uint64_t id = 0;
  std::uint32_t kind = KIND_NONE;
  std::uint64_t parent = 0;
  std::uint64_t originalId = 0;
  ObjectHeader header;
  std::array<Series, SERIES_COUNT> series;
  // Settings that are not time-tagged: offsets, flags, file names, antenna.
  nlohmann::json settings = nlohmann::json::object();

  Series& data(SeriesId s) { return series[s]; }
  const Series& data(SeriesId s) const { return series[s]; }
};

// Widths of the records of a series (the points' width depends on the kind).
unsigned seriesStride(unsigned series, std::uint32_t kind);

enum CellKind : std::uint8_t { CELL_SIGNED, CELL_UNSIGNED, CELL_DOUBLE, CELL_STRING };

struct TableCell {
  std::int64_t column = 0;
  CellKind kind = CELL_DOUBLE;
  std::int32_t type = 0;  // the column type the client gave the cell
  union {
    std::int64_t i;
    std::uint64_t u;
    double d;
    std::uint32_t s;  // string pool index
  };
  TableCell() : i(0) {}
};

struct TableColumn {
  std::int64_t id = 0;
  std::string name;
  std::int32_t type = 0;
  std::int32_t unit = 0;
};

struct DataTable {
  std::int64_t id = 0;
  std::uint64_t owner = 0;
  std::string name;
  std::vector<TableColumn> columns;
  std::int64_t nextColumnId = 1;
  // Rows: their times in a series (counts and span), their cells flat with
  // an offset per row.
  Series rowTimes{1};
  std::vector<TableCell> cells;
  std::vector<std::uint32_t> rowStart;
};

struct ScenarioSettings {
  bool initialized = false;
  std::string name;
  std::int64_t port = 0;
  std::int64_t protocol = 0;
  bool flag = false;
  std::string fileName;
  int referenceYear = 1970;
  std::optional<std::array<double, 3>> originLLA;
  std::optional<std::array<double, 3>> tangentPlaneOffsets;
  std::string classification;
  std::optional<std::uint32_t> classificationColor;
  std::string description;
  std::optional<double> windSpeed;
  std::optional<double> windDirection;
};

struct Clock {
  double begin = 0.0;
  double end = 0.0;
  double time = 0.0;
  double setTimeSecond = 0.0;  // second argument of the last clockSetTime
  std::optional<std::int64_t> timeFormat;
};

class HostScenario {
 public:
  explicit HostScenario(bool noData = false, int defaultReferenceYear = 1970);
  HostScenario(const HostScenario&) = delete;
  HostScenario& operator=(const HostScenario&) = delete;

  bool noData() const { return noData_; }

  // Scenario state.
  void initialize(const std::string& name, std::int64_t port, std::int64_t protocol, bool flag);
  // Removes objects, tables and settings; unique ids are never issued twice.
  void deleteScenario();
  ScenarioSettings& settings() { return settings_; }
  const ScenarioSettings& settings() const { return settings_; }
  Clock& clock() { return clock_; }
  const Clock& clock() const { return clock_; }
  // Sets the clock's span from the data; false when there is no timed data.
  bool autoConfigureClock();

  // Objects. create() checks the parent's kind: beams, LOBs and lasers hang
  // on platforms, gates on beams, projectors on platforms or beams, custom
  // rendering objects on platforms or nothing. Answers 0 on refusal.
  std::uint64_t create(std::uint32_t kind, std::uint64_t parent, const ObjectHeader& header,
                       std::uint64_t originalId);
  // Whether create() would take an object of `kind` under `parent`.
  bool canCreate(std::uint32_t kind, std::uint64_t parent) const;
  // A generic-data entry: the record goes to the owner's series (0 is the
  // scenario) and the entry gets an id of its own.
  std::uint64_t addGenericData(std::uint64_t owner, double time, double expiration, const std::string& tag,
                               const std::string& value);
  HostObject* find(std::uint64_t id);
  const HostObject* find(std::uint64_t id) const;
  // The object type of an id: its kind, 16 for a generic-data entry, 0 if none.
  std::uint32_t objectType(std::uint64_t id) const;
  std::uint64_t findByName(std::uint32_t kind, const std::string& name) const;
  // Ids of a kind in creation order; with a parent, only its children.
  std::vector<std::uint64_t> list(std::uint32_t kind, std::optional<std::uint64_t> parent) const;
  std::vector<std::uint64_t> findByOriginalId(std::uint64_t originalId) const;
  const std::vector<std::unique_ptr<HostObject>>& objects() const { return objects_; }
  // The scenario's own data (generic and category data on id 0).
  HostObject& scenarioObject() { return scenarioObject_; }
  const HostObject& scenarioObject() const { return scenarioObject_; }
  // The object or, for id 0, the scenario's own record.
  HostObject* owner(std::uint64_t id) { return id == 0 ? &scenarioObject_ : find(id); }

  // Adds a record to a series of an object, keeping it unless in no-data mode.
  bool addRecord(std::uint64_t id, SeriesId series, const double* record);
  // The same for an object already looked up.
  void addRecord(HostObject& object, SeriesId series, const double* record) {
    object.data(series).add(record, !noData_);
  }
  // Drops an object's data: type 0 all of it, 1 the timed records, 2 the
  // static ones.
  bool flush(std::uint64_t id, int type);

  // Data tables.
  std::int64_t addTable(std::uint64_t owner, const std::string& name, const std::vector<TableColumn>& columns);
  DataTable* table(std::int64_t id);
  const std::vector<std::unique_ptr<DataTable>>& tables() const { return tables_; }
  std::int64_t findTable(std::uint64_t owner, const std::string& name) const;
  std::int64_t addColumn(std::int64_t tableId, const std::string& name, std::int32_t type, std::int32_t unit);
  bool addRow(std::int64_t tableId, double time, const std::vector<TableCell>& cells);

  StringPool& strings() { return strings_; }
  const StringPool& strings() const { return strings_; }
  // Coordinate frames are interned as their JSON text.
  StringPool& frames() { return frames_; }
  const StringPool& frames() const { return frames_; }

  std::uint64_t nextId() const { return nextId_; }
  // Heap taken by the series and tables, for the statistics of the dump.
  std::size_t dataBytes() const;

  // The whole scenario as JSON (see docs/reference-host.md), streamed so
  // that point data never needs a JSON tree; `extra`'s members are appended.
  void writeJson(std::ostream& out, const nlohmann::json& extra = nlohmann::json()) const;
  // The same as a JSON value (parses what writeJson writes; for small scenarios).
  nlohmann::json toJson() const;

 private:
  bool noData_;
  int defaultReferenceYear_;
  std::uint64_t nextId_ = 1;
  std::int64_t nextTableId_ = 1;
  ScenarioSettings settings_;
  Clock clock_;
  HostObject scenarioObject_;
  std::vector<std::unique_ptr<HostObject>> objects_;
  std::unordered_map<std::uint64_t, HostObject*> byId_;
  // Generic-data entries: (entry id, owner id), in increasing id order.
  std::vector<std::pair<std::uint64_t, std::uint64_t>> genericEntries_;
  std::vector<std::unique_ptr<DataTable>> tables_;
  StringPool strings_;
  StringPool frames_;
};

}  // namespace RefHost
