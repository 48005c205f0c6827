#include "hostapi/PIData.h"

#include "hostapi/PIBase.h"

namespace PIData {

namespace {

// Sub-operations: PI_SCENARIO_INITIALIZE
constexpr int64_t kInitialize = 0;
constexpr int64_t kIsInitialized = 1;
// PI_SCENARIO_ORIGIN (in intValue)
constexpr int32_t kOriginLla = 0;
constexpr int32_t kTangentPlaneOffsets = 1;
// PI_SCENARIO_FILE_NAME
constexpr int64_t kGetFileName = 0;
constexpr int64_t kSetFileName = 1;
// PI_CLOCK
constexpr int64_t kClockSetTime = 4;
constexpr int64_t kClockAutoConfigure = 10;
constexpr int64_t kClockGetBegin = 12;
constexpr int64_t kClockGetEnd = 13;
constexpr int64_t kClockSetTimeFormat = 19;
// PI_GET_OBJECT_LIST (in intValue)
constexpr int32_t kListAll = 0;
constexpr int32_t kListChildren = 1;
// PI_LASER_DATA (in intValue)
constexpr int32_t kLaserOrientation = 0;
constexpr int32_t kLaserOffset = 1;
constexpr int32_t kLaserMaxRange = 2;
constexpr int32_t kLaserWidth = 3;
// PI_PROJECTOR (in intValue)
constexpr int32_t kProjectorFov = 0;
constexpr int32_t kProjectorRasterFile = 1;
constexpr int32_t kProjectorInterpolateFov = 2;
// PI_ORIENTATION_OFFSET (in intValue)
constexpr int32_t kSetOrientationOffset = 0;
constexpr int32_t kGetOrientationOffset = 1;
constexpr int32_t kSetPlatformOrientationOffset = 2;
// PI_BEAM_OFFSET (in intValue)
constexpr int32_t kAzimuthOffset = 0;
constexpr int32_t kElevationOffset = 1;
// PI_RCS_PATTERN_FILE (in intValue)
constexpr int32_t kSetRcsFile = 0;
constexpr int32_t kGetRcsFile = 1;
// PI_DATA_TABLE
constexpr int64_t kAddDataTable = 1;
constexpr int64_t kFindDataTable = 2;
constexpr int64_t kGetColumns = 3;
constexpr int64_t kGetColumnName = 4;
constexpr int64_t kAddColumn = 5;
constexpr int64_t kSetColumnUnits = 6;
constexpr int64_t kAddRow = 7;

int status(uint64_t answer) { return static_cast<int>(static_cast<int64_t>(answer)); }

// An integer slot of a mixed record after the call; `missing` when the host
// left the vector shorter than the request.
int64_t intAt(const PI_DATA_CATCHALL& params, size_t index, int64_t missing) {
  return index < params.ints.size() ? params.ints[index] : missing;
}

// A one-object record addressed at `id` with the given kind mask.
PI_DATA_STRUCT objectRecord(uint64_t id, uint32_t kind) {
  PI_DATA_STRUCT params;
  params.objectId = id;
  params.kindMask = kind;
  return params;
}

uint64_t create(uint64_t parent, uint32_t kind, const void* first, const void* second, int32_t intValue = 0) {
  PI_DATA_STRUCT params = objectRecord(parent, kind);
  params.pointer1 = const_cast<void*>(first);
  params.pointer2 = const_cast<void*>(second);
  params.intValue = intValue;
  handle(PI_CREATE_OBJECT, &params);
  return params.uniqueId;
}

int headerCall(PIServerFunctions_t code, uint64_t id, uint32_t kind, const void* header) {
  PI_DATA_STRUCT params = objectRecord(id, kind);
  params.pointer1 = const_cast<void*>(header);
  return status(handle(code, &params));
}

uint64_t findByName(const std::string& name, uint32_t kind) {
  PI_DATA_STRUCT params = objectRecord(0, kind);
  params.text = name;
  return handle(PI_FIND_OBJECT_BY_NAME, &params);
}

int list(uint32_t kind, int32_t scope, uint64_t parent, std::vector<uint64_t>& out) {
  PI_DATA_STRUCT params = objectRecord(parent, kind);
  params.intValue = scope;
  params.pointer1 = &out;
  return status(handle(PI_GET_OBJECT_LIST, &params));
}

int pointCall(PIServerFunctions_t code, uint64_t id, uint32_t kind, const void* point, int32_t sub = 0) {
  PI_DATA_STRUCT params = objectRecord(id, kind);
  params.pointer1 = const_cast<void*>(point);
  params.intValue = sub;
  return status(handle(code, &params));
}

int valuesCall(PIServerFunctions_t code, uint64_t id, int32_t sub, double v1, double v2 = PI_UNSET_DOUBLE,
               double v3 = PI_UNSET_DOUBLE) {
  PI_DATA_STRUCT params = objectRecord(id, 0);
  params.intValue = sub;
  params.value1 = v1;
  params.value2 = v2;
  params.value3 = v3;
  return status(handle(code, &params));
}

int textCall(PIServerFunctions_t code, uint64_t id, int32_t sub, const std::string& text) {
  PI_DATA_STRUCT params = objectRecord(id, 0);
  params.intValue = sub;
  params.text = text;
  return status(handle(code, &params));
}

template <typename T>
int scalarCall(PIServerFunctions_t code, T value) {
  return status(handle(code, &value));
}

int64_t clockCall(int64_t sub, void* first = nullptr, void* second = nullptr) {
  PI_DATA_CATCHALL params;
  params.ints = {sub};
  if (first) params.pointers.push_back(first);
  if (second) params.pointers.push_back(second);
  return static_cast<int64_t>(handle(PI_CLOCK, &params));
}

// A data-table request: sub-operation, result slot, then `args`.
PI_DATA_CATCHALL tableRecord(int64_t sub, std::initializer_list<int64_t> args) {
  PI_DATA_CATCHALL params;
  params.ints = {sub, 0};
  params.ints.insert(params.ints.end(), args);
  return params;
}

}  // namespace

// ---- Scenario state

int initializeScenario(const std::string& name, int port, PINetworkProtocol_t protocol, bool flag) {
  PI_DATA_CATCHALL params;
  params.ints = {kInitialize, port, protocol, flag ? 1 : 0};
  params.strings = {name};
  return status(handle(PI_SCENARIO_INITIALIZE, &params));
}

bool isScenarioInitialized() {
  PI_DATA_CATCHALL params;
  params.ints = {kIsInitialized};
  return handle(PI_SCENARIO_INITIALIZE, &params) != 0;
}

int deleteScenario() { return status(handle(PI_DELETE_SCENARIO, nullptr)); }

int setClassification(const std::string& text) { return scalarCall(PI_SET_CLASSIFICATION, text); }
int setClassificationColor(uint32_t color) { return scalarCall(PI_SET_CLASSIFICATION_COLOR, color); }

int getReferenceYear() {
  int32_t year = 0;
  handle(PI_GET_REFERENCE_YEAR, &year);
  return year;
}

int setReferenceYear(int year) { return scalarCall(PI_SET_REFERENCE_YEAR, static_cast<int32_t>(year)); }

int setOriginLLA(double lat, double lon, double alt) {
  return valuesCall(PI_SCENARIO_ORIGIN, 0, kOriginLla, lat, lon, alt);
}

int setTangentPlaneOffsets(double x, double y, double angle) {
  return valuesCall(PI_SCENARIO_ORIGIN, 0, kTangentPlaneOffsets, x, y, angle);
}

int setWindSpeed(double speed) { return scalarCall(PI_SET_WIND_SPEED, speed); }
int setWindDirection(double angle) { return scalarCall(PI_SET_WIND_DIRECTION, angle); }

std::string getScenarioFileName() {
  std::string name;
  PI_DATA_CATCHALL params;
  params.ints = {kGetFileName};
  params.pointers = {&name};
  handle(PI_SCENARIO_FILE_NAME, &params);
  return name;
}

int setScenarioFileName(const std::string& name) {
  PI_DATA_CATCHALL params;
  params.ints = {kSetFileName};
  params.strings = {name};
  return status(handle(PI_SCENARIO_FILE_NAME, &params));
}

int setDescription(const std::string& text) { return scalarCall(PI_SCENARIO_DESCRIPTION, text); }

// ---- Clock

double clockGetBegin() {
  double value = 0.0;
  clockCall(kClockGetBegin, &value);
  return value;
}

double clockGetEnd() {
  double value = 0.0;
  clockCall(kClockGetEnd, &value);
  return value;
}

int clockSetTime(double begin, double end) {
  return static_cast<int>(clockCall(kClockSetTime, &begin, &end));
}

int clockAutoConfigureBeginEnd() { return static_cast<int>(clockCall(kClockAutoConfigure)); }

int clockSetTimeFormat(PITimeFormat_t format) {
  PI_DATA_CATCHALL params;
  params.ints = {kClockSetTimeFormat, format};
  return status(handle(PI_CLOCK, &params));
}

// ---- Objects

uint64_t createPlatform(const PIPlatformHeader& header, const PIPlatformPoint& point) {
  return create(0, PI_OBJECT_PLATFORM, &header, &point);
}

uint64_t createBeam(uint64_t hostId, const PIBeamHeader& header, const PIBeamPoint* point, bool flag) {
  return create(hostId, PI_OBJECT_BEAM, &header, point, flag ? 1 : -1);
}

uint64_t createGate(uint64_t hostId, const PIGateHeader& header, const PIGatePoint* point, bool flag) {
  return create(hostId, PI_OBJECT_GATE, &header, point, flag ? 1 : -1);
}

uint64_t createLob(uint64_t hostId, const PILobHeader& header) {
  return create(hostId, PI_OBJECT_LOB, &header, nullptr);
}

uint64_t createLaser(uint64_t hostId, const PILaserHeader& header, uint64_t originalId) {
  return create(hostId, PI_OBJECT_LASER, &header, &originalId);
}

uint64_t createProjector(uint64_t hostId, const PIProjectorHeader& header) {
  return create(hostId, PI_OBJECT_PROJECTOR, &header, nullptr);
}

uint64_t createCustomRendering(uint64_t hostId, const PICustomRenderingHeader& header) {
  return create(hostId, PI_OBJECT_CUSTOM_RENDERING, &header, nullptr);
}

uint64_t createGenericData(uint64_t id, const PIGenericDataPoint& point) {
  return create(id, PI_OBJECT_GENERIC_DATA, &point, nullptr);
}

int updateHeader(uint64_t id, const PIPlatformHeader& h) { return headerCall(PI_UPDATE_HEADER, id, PI_OBJECT_PLATFORM, &h); }
int updateHeader(uint64_t id, const PIBeamHeader& h) { return headerCall(PI_UPDATE_HEADER, id, PI_OBJECT_BEAM, &h); }
int updateHeader(uint64_t id, const PIGateHeader& h) { return headerCall(PI_UPDATE_HEADER, id, PI_OBJECT_GATE, &h); }
int updateHeader(uint64_t id, const PILobHeader& h) { return headerCall(PI_UPDATE_HEADER, id, PI_OBJECT_LOB, &h); }
int updateHeader(uint64_t id, const PILaserHeader& h) { return headerCall(PI_UPDATE_HEADER, id, PI_OBJECT_LASER, &h); }
int updateHeader(uint64_t id, const PIProjectorHeader& h) {
  return headerCall(PI_UPDATE_HEADER, id, PI_OBJECT_PROJECTOR, &h);
}
int updateHeader(uint64_t id, const PICustomRenderingHeader& h) {
  return headerCall(PI_UPDATE_HEADER, id, PI_OBJECT_CUSTOM_RENDERING, &h);
}

bool getHeader(uint64_t id, PIPlatformHeader& h) { return headerCall(PI_GET_HEADER, id, PI_OBJECT_PLATFORM, &h) != 0; }
bool getHeader(uint64_t id, PIBeamHeader& h) { return headerCall(PI_GET_HEADER, id, PI_OBJECT_BEAM, &h) != 0; }
bool getHeader(uint64_t id, PIGateHeader& h) { return headerCall(PI_GET_HEADER, id, PI_OBJECT_GATE, &h) != 0; }
bool getHeader(uint64_t id, PILobHeader& h) { return headerCall(PI_GET_HEADER, id, PI_OBJECT_LOB, &h) != 0; }
bool getHeader(uint64_t id, PILaserHeader& h) { return headerCall(PI_GET_HEADER, id, PI_OBJECT_LASER, &h) != 0; }
bool getHeader(uint64_t id, PIProjectorHeader& h) { return headerCall(PI_GET_HEADER, id, PI_OBJECT_PROJECTOR, &h) != 0; }
bool getHeader(uint64_t id, PICustomRenderingHeader& h) {
  return headerCall(PI_GET_HEADER, id, PI_OBJECT_CUSTOM_RENDERING, &h) != 0;
}

uint64_t findPlatform(const std::string& name) { return findByName(name, PI_OBJECT_PLATFORM); }
uint64_t findBeam(const std::string& name) { return findByName(name, PI_OBJECT_BEAM); }

int getPlatformList(std::vector<uint64_t>& out) { return list(PI_OBJECT_PLATFORM, kListAll, 0, out); }
int getBeamList(std::vector<uint64_t>& out) { return list(PI_OBJECT_BEAM, kListAll, 0, out); }
int getBeamList(uint64_t parent, std::vector<uint64_t>& out) { return list(PI_OBJECT_BEAM, kListChildren, parent, out); }
int getGateList(std::vector<uint64_t>& out) { return list(PI_OBJECT_GATE, kListAll, 0, out); }
int getGateList(uint64_t parent, std::vector<uint64_t>& out) { return list(PI_OBJECT_GATE, kListChildren, parent, out); }
int getLobList(std::vector<uint64_t>& out) { return list(PI_OBJECT_LOB, kListAll, 0, out); }
int getLobList(uint64_t parent, std::vector<uint64_t>& out) { return list(PI_OBJECT_LOB, kListChildren, parent, out); }
int getLaserList(std::vector<uint64_t>& out) { return list(PI_OBJECT_LASER, kListAll, 0, out); }
int getLaserList(uint64_t parent, std::vector<uint64_t>& out) {
  return list(PI_OBJECT_LASER, kListChildren, parent, out);
}
int getProjectorList(std::vector<uint64_t>& out) { return list(PI_OBJECT_PROJECTOR, kListAll, 0, out); }
int getProjectorList(uint64_t parent, std::vector<uint64_t>& out) {
  return list(PI_OBJECT_PROJECTOR, kListChildren, parent, out);
}
int getCustomRenderingList(std::vector<uint64_t>& out) { return list(PI_OBJECT_CUSTOM_RENDERING, kListAll, 0, out); }
int getCustomRenderingList(uint64_t parent, std::vector<uint64_t>& out) {
  return list(PI_OBJECT_CUSTOM_RENDERING, kListChildren, parent, out);
}

uint32_t getObjectType(uint64_t id) {
  PI_DATA_STRUCT params = objectRecord(id, 0);
  return static_cast<uint32_t>(handle(PI_GET_OBJECT_TYPE, &params));
}

int findObjectsByOriginalID(uint64_t originalId, std::vector<uint64_t>& out) {
  PI_DATA_STRUCT params = objectRecord(0, 0);
  params.longValue = originalId;
  params.pointer1 = &out;
  return status(handle(PI_FIND_BY_ORIGINAL_ID, &params));
}

uint64_t getOriginalId(uint64_t id) {
  PI_DATA_STRUCT params = objectRecord(id, 0);
  return handle(PI_GET_ORIGINAL_ID, &params);
}

// ---- Data of objects

int addDataPoint(uint64_t id, const PIPlatformPoint& p) { return pointCall(PI_ADD_DATA_POINT, id, PI_OBJECT_PLATFORM, &p); }
int addDataPoint(uint64_t id, const PIBeamPoint& p) { return pointCall(PI_ADD_DATA_POINT, id, PI_OBJECT_BEAM, &p); }
int addDataPoint(uint64_t id, const PIGatePoint& p) { return pointCall(PI_ADD_DATA_POINT, id, PI_OBJECT_GATE, &p); }
int addDataPoint(uint64_t id, const PILobPoint& p) { return pointCall(PI_ADD_DATA_POINT, id, PI_OBJECT_LOB, &p); }

int addDataPoints(uint64_t id, const std::vector<PIPlatformPoint>& points) {
  return pointCall(PI_ADD_DATA_POINTS, id, PI_OBJECT_PLATFORM, &points);
}

int addLaserOriDataPoint(uint64_t id, const PILaserPoint& point) {
  return pointCall(PI_LASER_DATA, id, PI_OBJECT_LASER, &point, kLaserOrientation);
}

int addLaserOffsetDataPoint(uint64_t id, const PILaserOffset& offset) {
  return pointCall(PI_LASER_DATA, id, PI_OBJECT_LASER, &offset, kLaserOffset);
}

int addLaserMaxRangeDataPoint(uint64_t id, double value, double time) {
  PI_DATA_STRUCT params = objectRecord(id, PI_OBJECT_LASER);
  params.intValue = kLaserMaxRange;
  params.value1 = time;
  params.value2 = value;
  return status(handle(PI_LASER_DATA, &params));
}

int addLaserWidthDataPoint(uint64_t id, double time, int width) {
  PI_DATA_STRUCT params = objectRecord(id, PI_OBJECT_LASER);
  params.intValue = kLaserWidth;
  params.value1 = time;
  params.longValue = static_cast<uint64_t>(static_cast<int64_t>(width));
  return status(handle(PI_LASER_DATA, &params));
}

int addLobDrawStyle(uint64_t id, const PILobDrawStyle& style) {
  return pointCall(PI_ADD_LOB_DRAW_STYLE, id, PI_OBJECT_LOB, &style);
}

int addProjectorFOV(uint64_t id, double time, double fov) {
  PI_DATA_STRUCT params = objectRecord(id, PI_OBJECT_PROJECTOR);
  params.intValue = kProjectorFov;
  params.value1 = time;
  params.value2 = fov;
  return status(handle(PI_PROJECTOR, &params));
}

int setProjectorRasterFileName(uint64_t id, const std::string& name) {
  PI_DATA_STRUCT params = objectRecord(id, PI_OBJECT_PROJECTOR);
  params.intValue = kProjectorRasterFile;
  params.text = name;
  return status(handle(PI_PROJECTOR, &params));
}

int setProjectorInterpolateFov(uint64_t id, bool flag) {
  PI_DATA_STRUCT params = objectRecord(id, PI_OBJECT_PROJECTOR);
  params.intValue = kProjectorInterpolateFov;
  params.longValue = flag ? 1 : 0;
  return status(handle(PI_PROJECTOR, &params));
}

int setStatus(uint64_t id, PIVisibilityStatus_t visibility, double time) {
  PI_DATA_STRUCT params = objectRecord(id, 0);
  params.intValue = visibility;
  params.value1 = time;
  return status(handle(PI_SET_STATUS, &params));
}

int setColor(uint64_t id, uint32_t color, double time) {
  PI_DATA_STRUCT params = objectRecord(id, 0);
  params.longValue = color;
  params.value1 = time;
  return status(handle(PI_SET_COLOR, &params));
}

int setTarget(uint64_t id, uint64_t targetId, double time) {
  PI_DATA_STRUCT params = objectRecord(id, 0);
  params.longValue = targetId;
  params.value1 = time;
  return status(handle(PI_SET_TARGET, &params));
}

int setObjectOffset(uint64_t id, const PIPoint& p) { return valuesCall(PI_SET_OBJECT_OFFSET, id, 0, p.x, p.y, p.z); }

int setObjectOrientationOffset(uint64_t id, const PIPoint& p) {
  return valuesCall(PI_ORIENTATION_OFFSET, id, kSetOrientationOffset, p.x, p.y, p.z);
}

PIPoint getObjectOrientationOffset(uint64_t id) {
  PI_DATA_STRUCT params = objectRecord(id, 0);
  params.intValue = kGetOrientationOffset;
  params.value1 = params.value2 = params.value3 = 0.0;
  handle(PI_ORIENTATION_OFFSET, &params);
  return PIPoint{params.value1, params.value2, params.value3};
}

int setPlatformOrientationOffset(uint64_t id, const PIPoint& p) {
  return valuesCall(PI_ORIENTATION_OFFSET, id, kSetPlatformOrientationOffset, p.x, p.y, p.z);
}

int setAzimuthOffset(uint64_t id, double value) { return valuesCall(PI_BEAM_OFFSET, id, kAzimuthOffset, value); }
int setElevationOffset(uint64_t id, double value) { return valuesCall(PI_BEAM_OFFSET, id, kElevationOffset, value); }

int setPlatformInterpolate(uint64_t id, bool flag) {
  PI_DATA_STRUCT params = objectRecord(id, PI_OBJECT_PLATFORM);
  params.intValue = flag ? 1 : 0;
  return status(handle(PI_SET_INTERPOLATE, &params));
}

int setBeamInterpolatePosition(uint64_t id, bool flag) {
  PI_DATA_STRUCT params = objectRecord(id, PI_OBJECT_BEAM);
  params.intValue = flag ? 1 : 0;
  return status(handle(PI_SET_INTERPOLATE, &params));
}

int setGateInterpolatePosition(uint64_t id, bool flag) {
  PI_DATA_STRUCT params = objectRecord(id, PI_OBJECT_GATE);
  params.intValue = flag ? 1 : 0;
  return status(handle(PI_SET_INTERPOLATE, &params));
}

int setPlatformRCSPatternFileName(uint64_t id, const std::string& name) {
  return textCall(PI_RCS_PATTERN_FILE, id, kSetRcsFile, name);
}

std::string getPlatformRCSPatternFileName(uint64_t id) {
  PI_DATA_STRUCT params = objectRecord(id, PI_OBJECT_PLATFORM);
  params.intValue = kGetRcsFile;
  handle(PI_RCS_PATTERN_FILE, &params);
  return params.text;
}

int addCategoryData(uint64_t id, const PICategoryDataPoint& point) {
  PI_DATA_CATCHALL params;
  params.ints = {0, 0};
  params.pointers = {&id, const_cast<PICategoryDataPoint*>(&point)};
  handle(PI_ADD_CATEGORY_DATA, &params);
  return static_cast<int>(intAt(params, 1, -1));
}

int flushEntityData(uint64_t id, int type) {
  PI_DATA_STRUCT params = objectRecord(id, 0);
  params.intValue = type;
  return status(handle(PI_FLUSH_ENTITY_DATA, &params));
}

// ---- Data tables

int addDataTable(uint64_t id, const std::string& name, const std::vector<std::string>& columnNames,
                 const std::vector<UTILS::VariableType_t>& columnTypes,
                 const std::vector<UTILS::UnitType_t>& columnUnits, int64_t* tableId) {
  PI_DATA_CATCHALL params = tableRecord(kAddDataTable, {});
  params.strings = {name};
  params.pointers = {&id, const_cast<std::vector<std::string>*>(&columnNames),
                     const_cast<std::vector<UTILS::VariableType_t>*>(&columnTypes),
                     const_cast<std::vector<UTILS::UnitType_t>*>(&columnUnits)};
  handle(PI_DATA_TABLE, &params);
  const int64_t made = intAt(params, 1, 0);
  if (tableId) *tableId = made;
  return made != 0 ? 0 : 1;
}

int addDataTable(uint64_t id, const std::string& name, const std::vector<std::string>& columnNames,
                 const std::vector<UTILS::VariableType_t>& columnTypes, int64_t* tableId) {
  return addDataTable(id, name, columnNames, columnTypes, {}, tableId);
}

int findDataTable(uint64_t id, const std::string& name, int64_t* tableId) {
  PI_DATA_CATCHALL params = tableRecord(kFindDataTable, {});
  params.strings = {name};
  params.pointers = {&id};
  handle(PI_DATA_TABLE, &params);
  const int64_t found = intAt(params, 1, 0);
  if (tableId) *tableId = found;
  return found != 0 ? 0 : 1;
}

int getDataTableColumns(int64_t tableId, std::vector<int64_t>& out) {
  PI_DATA_CATCHALL params = tableRecord(kGetColumns, {tableId});
  params.pointers = {&out};
  handle(PI_DATA_TABLE, &params);
  return static_cast<int>(intAt(params, 1, -1));
}

int getDataTableColumnName(int64_t tableId, int64_t columnId, std::string& out) {
  PI_DATA_CATCHALL params = tableRecord(kGetColumnName, {tableId, columnId});
  params.pointers = {&out};
  handle(PI_DATA_TABLE, &params);
  return static_cast<int>(intAt(params, 1, -1));
}

int addDataTableColumn(int64_t tableId, int64_t* columnId, const std::string& name, UTILS::VariableType_t type,
                       UTILS::UnitType_t unit) {
  PI_DATA_CATCHALL params = tableRecord(kAddColumn, {tableId, type, unit, 0});
  params.strings = {name};
  handle(PI_DATA_TABLE, &params);
  if (columnId) *columnId = intAt(params, 5, 0);
  return static_cast<int>(intAt(params, 1, -1));
}

int setDataTableColumnUnits(int64_t tableId, const std::vector<UTILS::UnitType_t>& units) {
  PI_DATA_CATCHALL params = tableRecord(kSetColumnUnits, {tableId});
  params.pointers = {const_cast<std::vector<UTILS::UnitType_t>*>(&units)};
  handle(PI_DATA_TABLE, &params);
  return static_cast<int>(intAt(params, 1, -1));
}

int addDataTableRow(int64_t tableId, const DataTableRowT& row) {
  PI_DATA_CATCHALL params = tableRecord(kAddRow, {tableId});
  params.pointers = {const_cast<DataTableRowT*>(&row)};
  handle(PI_DATA_TABLE, &params);
  return static_cast<int>(intAt(params, 1, -1));
}

}  // namespace PIData
