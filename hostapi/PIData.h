#pragma once
// PIData: the scenario operations of the host. Each is a thin wrapper that
// fills a parameter record and passes it through handle(); the record layout
// of every operation is listed in docs/host-door.md.
//
// Conventions: unique ids are the host's (0 = none); create and find
// operations answer the id, 0 on failure; data operations answer 0 on
// success and non-zero when the host refused.

#include <cstdint>
#include <string>
#include <vector>

#include "core/UnitTypes.h"
#include "core/VariableType.h"
#include "hostapi/DataTableRow.h"
#include "hostapi/PIDataRecords.h"

namespace PIData {

// Scenario state
int initializeScenario(const std::string& name, int port, PINetworkProtocol_t protocol, bool flag);
bool isScenarioInitialized();
int deleteScenario();
int setClassification(const std::string& text);
int setClassificationColor(uint32_t color);
int getReferenceYear();
int setReferenceYear(int year);
int setOriginLLA(double lat, double lon, double alt);
int setTangentPlaneOffsets(double x, double y, double angle);
int setWindSpeed(double speed);
int setWindDirection(double angle);
std::string getScenarioFileName();
int setScenarioFileName(const std::string& name);
int setDescription(const std::string& text);

// Clock
double clockGetBegin();
double clockGetEnd();
int clockSetTime(double begin, double end);
int clockAutoConfigureBeginEnd();
int clockSetTimeFormat(PITimeFormat_t format);

// Objects
uint64_t createPlatform(const PIPlatformHeader& header, const PIPlatformPoint& point);
// `point` may be null for a beam or gate without a first point.
uint64_t createBeam(uint64_t hostId, const PIBeamHeader& header, const PIBeamPoint* point, bool flag);
uint64_t createGate(uint64_t hostId, const PIGateHeader& header, const PIGatePoint* point, bool flag);
uint64_t createLob(uint64_t hostId, const PILobHeader& header);
uint64_t createLaser(uint64_t hostId, const PILaserHeader& header, uint64_t originalId);
uint64_t createProjector(uint64_t hostId, const PIProjectorHeader& header);
uint64_t createCustomRendering(uint64_t hostId, const PICustomRenderingHeader& header);
uint64_t createGenericData(uint64_t id, const PIGenericDataPoint& point);

int updateHeader(uint64_t id, const PIPlatformHeader& header);
int updateHeader(uint64_t id, const PIBeamHeader& header);
int updateHeader(uint64_t id, const PIGateHeader& header);
int updateHeader(uint64_t id, const PILobHeader& header);
int updateHeader(uint64_t id, const PILaserHeader& header);
int updateHeader(uint64_t id, const PIProjectorHeader& header);
int updateHeader(uint64_t id, const PICustomRenderingHeader& header);
bool getHeader(uint64_t id, PIPlatformHeader& header);
bool getHeader(uint64_t id, PIBeamHeader& header);
bool getHeader(uint64_t id, PIGateHeader& header);
bool getHeader(uint64_t id, PILobHeader& header);
bool getHeader(uint64_t id, PILaserHeader& header);
bool getHeader(uint64_t id, PIProjectorHeader& header);
bool getHeader(uint64_t id, PICustomRenderingHeader& header);

uint64_t findPlatform(const std::string& name);
uint64_t findBeam(const std::string& name);

// Lists of unique ids: every object of the class, or the children of `parent`.
int getPlatformList(std::vector<uint64_t>& out);
int getBeamList(std::vector<uint64_t>& out);
int getBeamList(uint64_t parent, std::vector<uint64_t>& out);
int getGateList(std::vector<uint64_t>& out);
int getGateList(uint64_t parent, std::vector<uint64_t>& out);
int getLobList(std::vector<uint64_t>& out);
int getLobList(uint64_t parent, std::vector<uint64_t>& out);
int getLaserList(std::vector<uint64_t>& out);
int getLaserList(uint64_t parent, std::vector<uint64_t>& out);
int getProjectorList(std::vector<uint64_t>& out);
int getProjectorList(uint64_t parent, std::vector<uint64_t>& out);
int getCustomRenderingList(std::vector<uint64_t>& out);
int getCustomRenderingList(uint64_t parent, std::vector<uint64_t>& out);

// The object's kind mask (a PIObjectType_t value); 0 for an unknown id.
uint32_t getObjectType(uint64_t id);
int findObjectsByOriginalID(uint64_t originalId, std::vector<uint64_t>& out);
uint64_t getOriginalId(uint64_t id);

// Data of objects
int addDataPoint(uint64_t id, const PIPlatformPoint& point);
int addDataPoint(uint64_t id, const PIBeamPoint& point);
int addDataPoint(uint64_t id, const PIGatePoint& point);
int addDataPoint(uint64_t id, const PILobPoint& point);
int addDataPoints(uint64_t id, const std::vector<PIPlatformPoint>& points);
int addLaserOriDataPoint(uint64_t id, const PILaserPoint& point);
int addLaserOffsetDataPoint(uint64_t id, const PILaserOffset& offset);
int addLaserMaxRangeDataPoint(uint64_t id, double value, double time);
int addLaserWidthDataPoint(uint64_t id, double time, int width);
int addLobDrawStyle(uint64_t id, const PILobDrawStyle& style);
int addProjectorFOV(uint64_t id, double time, double fov);
int setProjectorRasterFileName(uint64_t id, const std::string& name);
int setProjectorInterpolateFov(uint64_t id, bool flag);
int setStatus(uint64_t id, PIVisibilityStatus_t status, double time);
int setColor(uint64_t id, uint32_t color, double time);
int setTarget(uint64_t id, uint64_t targetId, double time);
int setObjectOffset(uint64_t id, const PIPoint& point);
// Orientation offsets: x yaw, y pitch, z roll, radians.
int setObjectOrientationOffset(uint64_t id, const PIPoint& point);
PIPoint getObjectOrientationOffset(uint64_t id);
int setPlatformOrientationOffset(uint64_t id, const PIPoint& point);
int setAzimuthOffset(uint64_t id, double value);
int setElevationOffset(uint64_t id, double value);
int setPlatformInterpolate(uint64_t id, bool flag);
int setBeamInterpolatePosition(uint64_t id, bool flag);
int setGateInterpolatePosition(uint64_t id, bool flag);
int setPlatformRCSPatternFileName(uint64_t id, const std::string& name);
std::string getPlatformRCSPatternFileName(uint64_t id);
// Answers the host's result: 0 when the entry was taken.
int addCategoryData(uint64_t id, const PICategoryDataPoint& point);
int flushEntityData(uint64_t id, int type);

// Data tables. Table and column ids are the host's; 0 is no table.
int addDataTable(uint64_t id, const std::string& name, const std::vector<std::string>& columnNames,
                 const std::vector<UTILS::VariableType_t>& columnTypes,
                 const std::vector<UTILS::UnitType_t>& columnUnits, int64_t* tableId);
// The same without units.
int addDataTable(uint64_t id, const std::string& name, const std::vector<std::string>& columnNames,
                 const std::vector<UTILS::VariableType_t>& columnTypes, int64_t* tableId);
// Answers 0 and the table's id when the object has a table of that name;
// otherwise non-zero, with *tableId set to 0.
int findDataTable(uint64_t id, const std::string& name, int64_t* tableId);
int getDataTableColumns(int64_t tableId, std::vector<int64_t>& out);
int getDataTableColumnName(int64_t tableId, int64_t columnId, std::string& out);
int addDataTableColumn(int64_t tableId, int64_t* columnId, const std::string& name, UTILS::VariableType_t type,
                       UTILS::UnitType_t unit);
int setDataTableColumnUnits(int64_t tableId, const std::vector<UTILS::UnitType_t>& units);
int addDataTableRow(int64_t tableId, const DataTableRowT& row);

}  // namespace PIData
