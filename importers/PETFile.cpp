#include "importers/PETFile.h"

#include <cmath>
#include <cstdlib>
#include <fstream>

#include "core/StringUtils.h"
#include "core/Tokenizer.h"
#include "core/ValidNumber.h"
#include "datatable/DataTable.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"
#include "importers/ImporterSupport.h"

namespace {

constexpr double kDegToRad = 0.017453292519943295;
constexpr double kYardsToMetres = 0.91439997;
const char* const kRequiredNames[PETFile::REQUIRED_COUNT] = {"Lat",      "Long",    "Altitude",
                                                             "DVALTIME", "oName",   "Geometry",
                                                             "XVELS15",  "YVELS15", "ZVELS15"};
const std::string kEmpty;

std::string trim(const std::string& text) {
  const size_t begin = text.find_first_not_of(" \t\r\n");
  if (begin == std::string::npos) return std::string();
  return text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

// Fields of a line, cut at every "," (empty fields kept) and trimmed.
std::vector<std::string> splitRow(const std::string& line) {
  std::vector<std::string> tokens;
  orvCore::stringTokenizer(tokens, line, ",", true, false);
  for (std::string& token : tokens) token = trim(token);
  return tokens;
}

// Bad numbers read as 0.
double number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

bool isNumber(const std::string& text) {
  double value = 0.0;
  return orvCore::isValidNumber(text, value);
}

bool nextLine(std::istream& in, std::string& line) {
  while (orvCore::getStrippedLine(in, line))
    if (!trim(line).empty()) return true;
  return false;
}

}  // namespace

PETFile::PETFile() { clearColumns(); }
PETFile::~PETFile() = default;

void PETFile::clearColumns() {
  columns_.clear();
  extra_.clear();
  for (int& index : required_) index = -1;
}

const std::string& PETFile::field_(const std::vector<std::string>& tokens, Required column) const {
  const int index = required_[column];
  return index >= 0 && static_cast<size_t>(index) < tokens.size() ? tokens[static_cast<size_t>(index)] : kEmpty;
}

int PETFile::ParseVersionLine(const std::vector<std::string>& tokens) {
  if (tokens.empty() || tokens[0].find("STD PET CSV") == std::string::npos) {
    Importers::tellInfo("Error: File format not correct.  Expecting first line to contain \"STD PET CSV\"\n");
    return 1;
  }
  return 0;
}

int PETFile::ParseColumnHeaderLine(const std::vector<std::string>& tokens) {
  clearColumns();
  for (size_t i = 0; i < tokens.size(); ++i) {
    auto column = std::make_unique<PETColumn>();
    column->name = tokens[i];
    column->index = static_cast<int>(i);
    bool required = false;
    for (int r = 0; r < REQUIRED_COUNT; ++r) {
      if (orvCore::caseCompare(tokens[i], kRequiredNames[r]) == 0 && required_[r] < 0) {
        required_[r] = static_cast<int>(i);
        required = true;
        break;
      }
    }
    if (!required) extra_.push_back(column.get());
    columns_.push_back(std::move(column));
  }
  for (int r = LAT; r <= GEOMETRY; ++r) {
    if (required_[r] < 0) {
      Importers::tellInfo(std::string("Error: Missing required ") + kRequiredNames[r] + " column\n");
      return 1;
    }
  }
  return 0;
}

void PETFile::typeColumns_(std::istream& in) {
  std::string line;
  for (PETColumn* column : extra_) column->type = UTILS::VT_FLOAT64;
  while (nextLine(in, line)) {
    const std::vector<std::string> tokens = splitRow(line);
    for (PETColumn* column : extra_) {
      const size_t index = static_cast<size_t>(column->index);
      if (index < tokens.size() && !tokens[index].empty() && !isNumber(tokens[index]))
        column->type = UTILS::VT_STRING;
    }
  }
}

PETPlatform* PETFile::getPlatform(const std::vector<std::string>& tokens, ScenarioUD* scenario) {
  const std::string& name = field_(tokens, ONAME);
  auto found = platforms_.find(name);
  if (found != platforms_.end()) return &found->second;

  const uint64_t id = scenario->NewId();
  auto header = std::make_unique<PlatformHeaderUD>(scenario->dataFormat());
  header->uniqueID = id;
  header->iconName = "x";
  header->callSign = name;
  header->coordSystem = orvCore::LLA;
  header->SetReferenceLLA(number(field_(tokens, LAT)) * kDegToRad, number(field_(tokens, LONG)) * kDegToRad,
                          number(field_(tokens, ALTITUDE)) * kYardsToMetres);
  auto platform = std::make_unique<PlatformUD>(scenario, std::move(header));
  if (platform->AddToScenario(scenario) != UD_NO_ERROR) {
    Importers::tellFault("Error: Unable to add platform " + name + "\n");
    return nullptr;
  }
  PETPlatform& entry = platforms_[name];
  entry.name = name;
  entry.platform = platform.release();
  scenario->addCategoryData(id, -1.0, "Data Format", "PET");
  entry.table = scenario->AddDataTable(id, "Extra");
  if (entry.table != nullptr) {
    for (const PETColumn* column : extra_) {
      int64_t columnId = -1;
      entry.table->addColumn(column->name, column->type, columnId);
      entry.columnIds.push_back(columnId);
    }
  }
  return &entry;
}

int PETFile::updatePlatformLocation(const std::vector<std::string>& tokens, PETPlatform* platform,
                                    ScenarioUD* scenario, double time) {
  if (orvCore::caseCompare(field_(tokens, GEOMETRY), "WGSLLA") != 0) {
    Importers::tellInfo("Error: Currently only support WGSLLA\n");
    return 1;
  }
  const double lat = number(field_(tokens, LAT)) * kDegToRad;
  const double lon = number(field_(tokens, LONG)) * kDegToRad;
  const double position[3] = {lat, lon, number(field_(tokens, ALTITUDE)) * kYardsToMetres};
  if (!originSet_) {
    originSet_ = true;
    scenario->setLatLonAlt(position[0], position[1], position[2]);
  }
  // The velocity columns hold yards per second along the earth-centred
  // axes (X through latitude 0 longitude 0, Z through the north pole), the
  // frame that X, Y and Z name beside a WGS-84 position; the state takes
  // east, north, up at the row's position. "NEW" starts the object afresh,
  // without a velocity.
  const bool hasVelocity = required_[XVELS15] >= 0 && required_[YVELS15] >= 0 && required_[ZVELS15] >= 0 &&
                           orvCore::caseCompare(field_(tokens, XVELS15), "NEW") != 0;
  double velocity[3] = {0.0, 0.0, 0.0};
  if (hasVelocity) {
    const double x = number(field_(tokens, XVELS15)) * kYardsToMetres;
    const double y = number(field_(tokens, YVELS15)) * kYardsToMetres;
    const double z = number(field_(tokens, ZVELS15)) * kYardsToMetres;
    const double sinLat = std::sin(lat), cosLat = std::cos(lat), sinLon = std::sin(lon), cosLon = std::cos(lon);
    velocity[0] = -sinLon * x + cosLon * y;
    velocity[1] = -sinLat * cosLon * x - sinLat * sinLon * y + cosLat * z;
    velocity[2] = cosLat * cosLon * x + cosLat * sinLon * y + sinLat * z;
  }
  // A row that the document refuses (a negative time, a position off the
  // earth) loses its state only: the rest of the file still loads.
  const int result =
      platform->platform->AddState(time, position, nullptr, hasVelocity ? velocity : nullptr, nullptr);
  if (result != UD_NO_ERROR) {
    Importers::tellFault("Error: " + udErrorString(result) + " for " + platform->name + "\n");
    return kRowRefused;
  }
  platform->lastTime = time;
  return 0;
}

int PETFile::updatePlatformTable(const std::vector<std::string>& tokens, PETPlatform* platform, double time) {
  if (platform->table == nullptr || extra_.empty()) return 0;
  DataTableRowT row(time);
  for (size_t i = 0; i < extra_.size(); ++i) {
    const size_t index = static_cast<size_t>(extra_[i]->index);
    if (index >= tokens.size() || tokens[index].empty()) continue;  // an absent cell
    const std::string& text = tokens[index];
    if (extra_[i]->type == UTILS::VT_STRING)
      row.addCell(platform->columnIds[i], new DataTableCellTyped<std::string>(text));
    else
      row.addCell(platform->columnIds[i], new DataTableCellTyped<double>(number(text)));
  }
  platform->table->addRow(row);
  return 0;
}

int PETFile::ParseDataLine(const std::vector<std::string>& tokens, ScenarioUD* scenario, double timeOffset) {
  PETPlatform* platform = getPlatform(tokens, scenario);
  if (platform == nullptr) return 1;
  const double time = number(field_(tokens, DVALTIME)) + timeOffset;
  const int result = updatePlatformLocation(tokens, platform, scenario, time);
  // A refused row adds no table row either (its time may be no number).
  if (result == kRowRefused) return 0;
  if (result != 0) return result;
  return updatePlatformTable(tokens, platform, time);
}

int PETFile::ParsePETFile(const std::string& fileName, ScenarioUD* scenario, double timeOffset, bool, bool,
                          ScenarioUD::PercentCallback* progress) {
  clearColumns();
  platforms_.clear();
  originSet_ = false;
  std::ifstream in(fileName, std::ios::binary);
  if (!in) {
    Importers::tellFault("Error: Unable to open PET file " + fileName + "\n");
    return 1;
  }
  std::string line;
  if (!nextLine(in, line)) {
    Importers::tellInfo("Error: File format not correct.  Expecting first line to contain \"STD PET CSV\"\n");
    return 1;
  }
  if (int result = ParseVersionLine(splitRow(line))) return result;
  if (!nextLine(in, line)) {
    // No header: every required column is missing; the first is told.
    return ParseColumnHeaderLine({});
  }
  if (int result = ParseColumnHeaderLine(splitRow(line))) return result;

  const std::streampos data = in.tellg();
  typeColumns_(in);
  in.clear();
  in.seekg(0, std::ios::end);
  const double size = static_cast<double>(in.tellg());
  in.seekg(data);
  for (size_t number = 1; nextLine(in, line); ++number) {
    if (progress && number % 1024 == 0 && size > 0 &&
        progress->updateProgress(static_cast<int>(100.0 * static_cast<double>(in.tellg()) / size)))
      return UD_USER_CANCEL;
    if (int result = ParseDataLine(splitRow(line), scenario, timeOffset)) return result;
  }
  // An object whose every row was refused has nothing to show.
  for (auto it = platforms_.begin(); it != platforms_.end();) {
    if (it->second.platform->Motion()->Size() == 0) {
      scenario->deletePlatform(it->second.platform->UniqueID());
      it = platforms_.erase(it);
    } else {
      ++it;
    }
  }
  return 0;
}

ImporterEntry petImporter() {
  ImporterEntry entry = Importers::readerEntry(
      {".pet", ".csv"}, "PET", [](const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress) {
        PETFile reader;
        return reader.ParsePETFile(path, &scenario, 0.0, false, true, progress);
      });
  entry.csvMarkers = {"PET CSV"};
  return entry;
}
