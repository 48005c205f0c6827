// Writer families of the data hung on objects: custom rendering, generic and
#include <cmath>
// category data, data tables, projectors, lasers and LOB groups.
#include "core/Convert.h"
#include "core/Units.h"
#include "core/UnitTypes.h"
#include "document/ASIOutput.h"
#include "document/ASIOutputSupport.h"

using ASIOutputSupport::angleOut;
using ASIOutputSupport::asiColor;
using ASIOutputSupport::timedLine;

void saveASICustomRenderingRequired(std::ostream& os, uint64_t hostId, uint64_t id, const std::string& renderer,
                                    const std::string& desc) {
  // The command reads the description before the renderer; an object
  // without one is named after its renderer.
  os << "# Custom Rendering Keyword\n";
  os << "CustomRendering\t" << hostId << " " << id << " \"" << (desc.empty() ? renderer : desc) << "\" \""
     << renderer << "\"\n";
}

void saveASICustomRenderingOriginalID(std::ostream& os, uint64_t id, uint64_t originalId) {
  ASIOutputSupport::originalId(os, id, originalId);
}

void saveASICustomRenderingColor(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA,
                                 const DataFormatUD& format) {
  if (timedLine(os, "CustomRenderingColor", id, time, format, "Custom Rendering Color Cmd"))
    os << " " << asiColor(colorRGBA) << "\n";
}

void saveASIGenericData(std::ostream& os, uint64_t id, const std::string& tag, const std::string& value, double time,
                        double expire, const DataFormatUD& format) {
  std::string text;
  for (char c : value)
    if (c != '\n' && c != '\r') text += c;
  std::string when;
  if (!getOutputTimeString(time, format.timeFormat, format.referenceYear, when, "Generic Data")) {
    writeErrorStreamUD("ERROR:  Unable to obtain Generic Data time string.\n");
    return;
  }
  os << "GenericData\t" << id << " \"" << tag << "\" \"" << text << "\" \"" << when << "\" " << expire << "\n";
}

void saveASICategoryData(std::ostream& os, uint64_t id, double time, const std::string& name,
                         const std::string& value, const DataFormatUD& format) {
  if (timedLine(os, "CategoryData", id, time, format, "Category Data"))
    os << " \"" << name << "\" \"" << value << "\"\n";
}

void saveASIDataTableHeader(std::ostream& os, uint64_t ownerId, int64_t tableId, const std::string& name,
                            const std::vector<std::string>& columns,
                            const std::vector<UTILS::VariableType_t>& types,
                            const std::vector<UTILS::UnitType_t>& units) {
  if (columns.size() != types.size()) {
    writeErrorStreamUD("ERROR:  number of columns != number of storage types\n");
    return;
  }
  if (columns.size() != units.size()) {
    writeErrorStreamUD("ERROR:  number of columns != number of unit types\n");
    return;
  }
  os << "DataTable\t" << ownerId << " " << tableId << " \"" << name << "\"";
  for (size_t i = 0; i < columns.size(); ++i)
    os << " \"" << columns[i] << "\" " << UTILS::getVariableTypeString(types[i]);
  os << "\n";
  os << "DataTableUnits\t" << tableId;
  for (UTILS::UnitType_t unit : units) {
    const char* text = UTILS::unitsGetTypeString(unit);
    os << " \"" << (text && *text ? text : "Unknown") << "\"";
  }
  os << "\n";
}

namespace {

// A cell as the row command reads it back: strings quoted with their
// escapes, numbers in full precision, non-finite values by name.
std::string cellText(const DataTableCell& cell) {
  if (cell.getType() == UTILS::VT_STRING) {
    std::string value;
    cell.getValue(value);
    std::string out = "\"";
    for (char c : value) {
      if (c == '\\') out += "\\\\";
      else if (c == '"') out += "\\\"";
      else if (c == '\n') out += "\\0xA";
      else out += c;
    }
    return out + "\"";
  }
  if (cell.getType() == UTILS::VT_FLOAT32 || cell.getType() == UTILS::VT_FLOAT64) {
    double value = 0.0;
    cell.getValue(value);
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value > 0 ? "Infinity" : "-Infinity";
    std::ostringstream text;
    text << std::setprecision(17) << value;
    return text.str();
  }
  std::string value;
  cell.getValue(value);
  return value;
}

}  // namespace

void saveASIDataTableRow(std::ostream& os, const std::string& keyword, int64_t tableId, const DataTableRowT& row,
                         const std::vector<int64_t>& columnIds, const DataFormatUD& format) {
  if (keyword.empty()) {
    writeErrorStreamUD("ERROR:  ASI keyword not specified.\n");
    return;
  }
  std::string when;
  if (!getOutputTimeString(row.time(), format.timeFormat, format.referenceYear, when, "Data Table Row")) {
    writeErrorStreamUD("ERROR:  Unable to obtain time string.\n");
    return;
  }
  os << keyword << "\t" << tableId << " \"" << when << "\"";
  for (int64_t id : columnIds) {
    const DataTableCell* cell = row.cell(id);
    os << " " << (cell ? cellText(*cell) : std::string("NULL"));
  }
  os << "\n";
}

void saveASIProjector(std::ostream& os, uint64_t hostId, uint64_t id, const std::string& name,
                      const std::string& rasterFile, bool interpolateFov) {
  os << "Projector\t" << hostId << " " << id << " \"" << name << "\"\n";
  if (!rasterFile.empty()) os << "ProjectorRasterFile\t" << id << " \"" << rasterFile << "\"\n";
  os << "ProjectorInterpolateFOV\t" << id << " " << (interpolateFov ? 1 : 0) << "\n";
}

void saveASIProjectorOriginalID(std::ostream& os, uint64_t id, uint64_t originalId) {
  ASIOutputSupport::originalId(os, id, originalId);
}

void saveASIProjectorOnOffCmd(std::ostream& os, uint64_t id, double time, bool on, const DataFormatUD& format) {
  if (timedLine(os, "ProjectorOn", id, time, format, "Projector On|Off Cmd")) os << " " << (on ? 1 : 0) << "\n";
}

void saveASIProjectorFovCmd(std::ostream& os, uint64_t id, double time, double fov, const DataFormatUD& format) {
  if (timedLine(os, "ProjectorFOV", id, time, format, "Projector FOV Cmd")) os << " " << angleOut(fov, format) << "\n";
}

void saveASILaser(std::ostream& os, uint64_t hostId, uint64_t id, const std::string& name, int system,
                  const double* refLLA, bool azElBody) {
  os << "Laser\t" << hostId << " " << id << " \"" << name << "\"\n";
  os << "LaserCoordSystem\t" << id << " \"" << getCoordSystem(system) << "\"\n";
  if (refLLA)
    os << "LaserRefLLA\t" << id << " " << refLLA[0] * ASIOutputSupport::TO_DEG << " "
       << refLLA[1] * ASIOutputSupport::TO_DEG << " " << refLLA[2] << "\n";
  os << "LaserAzElBody\t" << id << " " << (azElBody ? 1 : 0) << "\n";
}

void saveASILaserOriginalID(std::ostream& os, uint64_t id, uint64_t originalId) {
  ASIOutputSupport::originalId(os, id, originalId);
}

void saveASILaserOrientation(std::ostream& os, uint64_t id, double time, double yaw, double pitch, double roll,
                             const DataFormatUD& format) {
  if (timedLine(os, "LaserOri", id, time, format, "Laser Orientation"))
    os << " " << angleOut(yaw, format) << " " << angleOut(pitch, format) << " " << angleOut(roll, format) << "\n";
}

void saveASILaserWidth(std::ostream& os, uint64_t id, double time, int width, const DataFormatUD& format) {
  if (timedLine(os, "LaserWidth", id, time, format, "Laser Width")) os << " " << width << "\n";
}

void saveASILaserOnOff(std::ostream& os, uint64_t id, double time, bool on, const DataFormatUD& format) {
  if (timedLine(os, "LaserOn", id, time, format, "Laser On")) os << " " << (on ? 1 : 0) << "\n";
}

void saveASILaserMaxRange(std::ostream& os, uint64_t id, double time, double range, const DataFormatUD& format) {
  if (timedLine(os, "LaserMaxRange", id, time, format, "Laser Max Range")) os << " " << range << "\n";
}

void saveASILaserColor(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA, const DataFormatUD& format) {
  if (timedLine(os, "LaserColor", id, time, format, "Laser Color")) os << " " << asiColor(colorRGBA) << "\n";
}

void saveASILaserOffsetXYZ(std::ostream& os, uint64_t id, double time, double x, double y, double z,
                           const DataFormatUD& format) {
  if (timedLine(os, "LaserXYZOffset", id, time, format, "Laser Offset"))
    os << " " << x << " " << y << " " << z << "\n";
}

void saveASILOBRequired(std::ostream& os, uint64_t hostId, uint64_t id, int type, const std::string& desc) {
  os << "# LOB Keywords\n";
  os << "LOBID\t" << hostId << " " << id << "\n";
  os << "LOBType\t" << id << " \"" << CommandsUD::nameAt(CommandsUD::LOB_GROUP_TYPES, type) << "\"\n";
  if (!desc.empty()) os << "LOBDesc\t" << id << " \"" << desc << "\"\n";
}

void saveASILOBOriginalID(std::ostream& os, uint64_t id, uint64_t originalId) {
  ASIOutputSupport::originalId(os, id, originalId);
}

void saveASILOBDrawStyle(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA, uint32_t width,
                         uint32_t color2, uint32_t stipple1, uint32_t stipple2, const DataFormatUD& format) {
  if (timedLine(os, "LOBDrawStyle", id, time, format, "LOB Draw Style"))
    os << " " << asiColor(colorRGBA) << " " << asiColor(color2) << " " << UTILS::stringConvertHexToString(stipple1)
       << " " << UTILS::stringConvertHexToString(stipple2) << " " << width << "\n";
}

void saveASILOBData(std::ostream& os, uint64_t id, double time, double range, double azimuth, double elevation,
                    const DataFormatUD& format) {
  if (timedLine(os, "LOBData", id, time, format, "LOB Data"))
    os << " " << angleOut(azimuth, format) << " " << angleOut(elevation, format) << " " << range << "\n";
}
