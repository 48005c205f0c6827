#include "importers/OTGFile.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>
#include <sstream>
#include <vector>

#include "core/TimeCalendar.h"
#include "document/ConvenienceFuncsUD.h"
#include "importers/oth/OTHMessage.h"
#include "importers/oth/OthFields.h"
#include "importers/wam/WAMMapping.h"

namespace {

using OthLib::OTHContact;
using OthLib::OTHPositionReport;

// Classification of every OTG scenario, green in the 0xAABBGGRR order.
constexpr char OTG_CLASSIFICATION[] = "UNCLASSIFIED";
constexpr uint32_t OTG_CLASSIFICATION_COLOR = 0x8000ff00;

const char* positionFault(int code) {
  switch (code) {
    case 2: return "latitude or longitude missing";
    case 3: return "check digit of the latitude or longitude wrong";
    default: return "latitude or longitude malformed";
  }
}

const char* timeFault(int code) {
  switch (code) {
    case 1: return "date-time group or month of the wrong length";
    case 2: return "check digit of the date-time group wrong";
    default: return "date-time group or month is no date";
  }
}

const char* ellipseFault(int code) {
  switch (code) {
    case 3: return "major axis unreadable";
    case 4: return "minor axis unreadable";
    default: return "bearing of the major axis missing or unreadable";
  }
}

// One load: the file's tracks, ellipse tables and what went wrong, told
// through the document's error stream (standard error unless redirected).
class OTGLoad {
 public:
  OTGLoad(const std::string& fileName, ScenarioUD* scenario) : fileName_(fileName), scenario_(scenario) {}

  // The scenario counts from the earliest year of the file's reports, so
  // that no report falls before its start: POS reports are of the current
  // year, XPOS reports may name their own.
  void chooseReferenceYear(const std::vector<OthLib::OTHMessage>& messages);

  void loadContact(const OthLib::OTHMsgID& header, const OTHContact& contact, const OTHPositionReport& report,
                   const WAMLib::WAMMapping& mapping);
  // Every track stays at its last position up to the end of the scenario.
  void holdLastPositions();
  bool empty() const { return platforms_.empty(); }

  std::ostringstream faults;

 private:
  // "Line N: POS report of track "NAME" ..." for the faults of a report.
  std::ostream& fault_(const OTHContact& contact, const OTHPositionReport& report);

  // Seconds from the start of the reference year to the start of `year`;
  // a file has few years and many reports.
  double yearOffset_(int year) {
    auto found = yearOffsets_.find(year);
    if (found == yearOffsets_.end())
      found = yearOffsets_.emplace(year, OthLib::secondsBetweenYears(referenceYear_, year)).first;
    return found->second;
  }

  const std::string& fileName_;
  ScenarioUD* scenario_;
  int referenceYear_ = 0;
  std::map<int, double> yearOffsets_;
  OTGPlatformMap platforms_;
  OTGEllipseTableMap tables_;
};

std::ostream& OTGLoad::fault_(const OTHContact& contact, const OTHPositionReport& report) {
  return faults << "Line " << report.lineNumber() << ": " << report.setName() << " report of track \""
                << contact.getName() << "\" ";
}

void OTGLoad::loadContact(const OthLib::OTHMsgID& header, const OTHContact& contact,
                          const OTHPositionReport& report, const WAMLib::WAMMapping& mapping) {
  double lla[3] = {0.0, 0.0, 0.0};
  const int position = report.getPosition(lla);
  if (position != 0 && position != 5) {
    fault_(contact, report) << "skipped: " << positionFault(position) << " (\""
                            << report.field(OTHPositionReport::LATITUDE) << "\", \""
                            << report.field(OTHPositionReport::LONGITUDE) << "\")\n";
    return;
  }
  // Placeholder reports at the pole carry no information: left out without a word.
  if (!isValidContactMessage(contact, lla)) return;
  if (position == 5)
    fault_(contact, report) << "has a height that can't be read (\"" << report.field(OTHPositionReport::HEIGHT)
                            << "\"): altitude 0 used\n";

  double time = 0.0;
  int year = 0;
  const int timeResult = report.getTime(time, year);
  if (timeResult != 0) {
    fault_(contact, report) << "skipped: " << timeFault(timeResult) << " (\""
                            << report.field(OTHPositionReport::DATE_TIME_GROUP) << "\", \""
                            << report.field(OTHPositionReport::MONTH) << "\")\n";
    return;
  }
  // Course and speed are optional; without a course the speed has no direction.
  double course = 0.0;
  double speed = -1.0;
  const int courseResult = report.getCourse(course);
  if (courseResult == 2)
    fault_(contact, report) << "has a course that can't be read (\"" << report.field(OTHPositionReport::COURSE)
                            << "\"): course and speed left out\n";
  if (courseResult == 0 && report.getSpeed(speed) == 2) {
    fault_(contact, report) << "has a speed that can't be read (\"" << report.field(OTHPositionReport::SPEED)
                            << "\"): speed left out\n";
    speed = -1.0;
  }

  // Reports count in their own year, states in the scenario's.
  time += yearOffset_(year);
  PlatformUD* platform = nullptr;
  const int added = addData(fileName_, scenario_, platforms_, mapping, header, contact, time, referenceYear_, lla,
                            courseResult == 0 ? course : -1.0, speed, platform);
  if (added != UD_NO_ERROR) {
    fault_(contact, report) << "refused: " << udErrorString(added) << '\n';
    return;
  }

  double major = 0.0, minor = 0.0, bearing = 0.0;
  const int ellipse = report.getUncertaintyEllipse(major, minor, bearing);
  if (ellipse == 0) {
    const int row = addPositionUncertaintyData(scenario_, platform, tables_, time, lla, major, minor, bearing);
    if (row != UD_NO_ERROR) fault_(contact, report) << "ellipse refused: " << udErrorString(row) << '\n';
  } else if (ellipse != 2) {  // empty axes: the report has no ellipse
    fault_(contact, report) << "has no uncertainty ellipse: " << ellipseFault(ellipse) << '\n';
  }
}

void OTGLoad::chooseReferenceYear(const std::vector<OthLib::OTHMessage>& messages) {
  bool anyCurrent = false;
  int earliest = std::numeric_limits<int>::max();
  for (const OthLib::OTHMessage& message : messages)
    for (const OTHContact& contact : message.contacts()) {
      anyCurrent = anyCurrent || !contact.positions().empty();
      for (const OthLib::OTHExpandedPosition& report : contact.expandedPositions()) {
        double time = 0.0;
        int year = 0;
        if (report.getTime(time, year) == 0) earliest = std::min(earliest, year);
      }
    }
  if (anyCurrent || earliest == std::numeric_limits<int>::max())
    earliest = std::min(earliest, orvCore::currentYear());
  referenceYear_ = earliest;
}

void OTGLoad::holdLastPositions() {
  for (auto& track : platforms_) track.second.platform->Motion()->AddEndPoint(scenario_->endTime());
}

uint64_t newCustomEllipse(ScenarioUD* scenario, PlatformUD* platform) {
  const uint64_t id = scenario->NewId();
  auto header = std::make_unique<CustomRenderingHeaderUD>();
  header->uniqueID = id;
  header->SetRenderer("Custom Ellipse");
  header->desc = "Position Uncertainty";
  auto rendering = std::make_unique<CustomRenderingUD>(scenario, platform, std::move(header));
  if (rendering->AddToScenario(scenario) != UD_NO_ERROR) return 0;
  rendering.release();  // the scenario owns it, and the platform lists it
  return id;
}

}  // namespace

bool isValidContactMessage(const OthLib::OTHContact& contact, const double* lla) {
  const std::string name = contact.getName();
  if (name.find_first_of("-I ") == std::string::npos) return true;
  return !(std::fabs(lla[0] - 1.5707963267948966) < 1e-6 && std::fabs(lla[1]) < 1e-6);
}

int addData(const std::string& fileName, ScenarioUD* scenario, OTGPlatformMap& platforms,
            const WAMLib::WAMMapping& mapping, const OthLib::OTHMsgID& header, const OthLib::OTHContact& contact,
            double time, int year, const double* lla, double course, double speed, PlatformUD*& platform) {
  // A contact without a name is known by its track number.
  std::string name = contact.getName();
  if (name.empty()) name = contact.field(OthLib::OTHContact::TRACK_NUMBER);
  if (name.empty()) name = "Unknown Track";

  auto found = platforms.find(name);
  if (found == platforms.end()) {
    if (platforms.empty()) {
      scenario->setCoordSystem(orvCore::LLA);
      scenario->setLatLonAlt(lla[0], lla[1], 0.0);
      scenario->setDesc(fileName);
      scenario->setReferenceYear(year);
      scenario->setClassification(OTG_CLASSIFICATION, OTG_CLASSIFICATION_COLOR);
    }
    auto platformHeader = std::make_unique<PlatformHeaderUD>(scenario->dataFormat());
    platformHeader->uniqueID = scenario->NewId();
    platformHeader->callSign = name;
    platformHeader->iconName = mapping.icon(name, "O");
    platformHeader->coordSystem = orvCore::LLA;
    platformHeader->SetVerticalDatum(UTILS::VD_WGS84, 0.0);
    platformHeader->SetMagneticVariance(UTILS::MV_WMM, 0.0);
    platformHeader->SetReferenceLLA(lla[0], lla[1], lla[2]);
    auto created = std::make_unique<PlatformUD>(scenario, std::move(platformHeader));
    created->SetMotion(std::make_unique<LinearPlatMotionUD>());
    const int result = created->AddToScenario(scenario);
    if (result != UD_NO_ERROR) return result;
    found = platforms.emplace(name, OTGTrack{created.release(), {}, nullptr}).first;
  }
  OTGTrack& track = found->second;
  platform = track.platform;
  const uint64_t id = platform->UniqueID();

  // The message's identity once per message; categories when they change.
  if (track.lastHeader != &header) {
    track.lastHeader = &header;
    platform->EnterGenericData("Command", header.getCommand(), time, -1.0);
    platform->EnterGenericData("MSN", header.field(OthLib::OTHMsgID::SERIAL_NUMBER), time, -1.0);
  }
  auto orNotSet = [](const std::string& text, const char* fallback) { return text.empty() ? fallback : text; };
  const std::pair<const char*, std::string> categories[] = {
      {"Data Format", OTG_DATA_FORMAT},
      // An empty force code has no value to show: the category store refuses
      // it, and the track has no "Force Code" until a report gives one.
      {"Force Code", contact.getForceCode()},
      {"Track Type", orNotSet(contact.getTrackType(), "Tactical")},
      {"SCONUM", orNotSet(contact.getSconum(), "NOT SET")},
      {"Type", orNotSet(contact.getType(), "NOT SET")}};
  for (const auto& category : categories) {
    std::string& last = track.categories[category.first];
    if (last == category.second) continue;
    last = category.second;
    scenario->addCategoryData(id, time, category.first, category.second);
  }

  const double orientation[3] = {course, 0.0, 0.0};
  return platform->AddState(time, lla, course >= 0.0 ? orientation : nullptr, speed);
}

int addPositionUncertaintyData(ScenarioUD* scenario, PlatformUD* platform, OTGEllipseTableMap& tableMap,
                               double time, const double* lla, double majorMetres, double minorMetres,
                               double bearingDegrees) {
  auto found = tableMap.find(platform->UniqueID());
  if (found == tableMap.end()) {
    const uint64_t rendering = newCustomEllipse(scenario, platform);
    if (rendering == 0) return UD_DUP_CUSTOM_RENDERING;
    OTGEllipseTable ellipse;
    ellipse.table = scenario->AddDataTable(rendering, "Custom Ellipse");
    if (ellipse.table == nullptr) return UD_DATATABLE_ERROR;
    const char* const names[7] = {"Latitude", "Longitude", "Altitude", "Heading", "Pitch", "X Size", "Y Size"};
    for (int i = 0; i < 7; ++i)
      if (ellipse.table->addColumn(names[i], UTILS::VT_FLOAT64, ellipse.columns[i]) != DataTableCodes::OK)
        return UD_DATATABLE_ERROR;
    ellipse.table->setColumnUnitTypes({UTILS::UNITS_DEGREES, UTILS::UNITS_DEGREES, UTILS::UNITS_METERS,
                                       UTILS::UNITS_DEGREES, UTILS::UNITS_DEGREES, UTILS::UNITS_METERS,
                                       UTILS::UNITS_METERS});
    found = tableMap.emplace(platform->UniqueID(), ellipse).first;
  }
  const OTGEllipseTable& ellipse = found->second;
  const double values[7] = {lla[0] * OthLib::RAD_TO_DEG, lla[1] * OthLib::RAD_TO_DEG, lla[2], bearingDegrees, 0.0,
                            majorMetres, minorMetres};
  DataTableRowT row(time);
  for (int i = 0; i < 7; ++i) row.addCell(ellipse.columns[i], new DataTableCellTyped<double>(values[i]));
  return ellipse.table->addRow(row) == DataTableCodes::OK ? UD_NO_ERROR : UD_DATATABLE_ERROR;
}

int LoadOTGFile(const std::string& fileName, ScenarioUD* scenario, ScenarioUD::PercentCallback* progress) {
  if (scenario == nullptr) return UD_FATAL;
  std::cout << "Parsing File : " << fileName << std::endl;

  // Reading the file is the first half of the progress, building the document the second.
  OTGLoad load(fileName, scenario);
  std::vector<OthLib::OTHMessage> messages;
  const auto readProgress = [progress](double share) {
    return progress != nullptr && progress->updateProgress(static_cast<int>(share * 50.0));
  };
  const int parsed = OthLib::ParseOTHFile(fileName, messages, false, load.faults, readProgress);
  auto flushFaults = [&load]() {
    if (load.faults.tellp() > 0) writeErrorStreamUD(load.faults.str());
    load.faults.str(std::string());
  };
  if (parsed == 2) return UD_USER_CANCEL;
  if (parsed < 0 || messages.empty()) {
    flushFaults();
    writeErrorStreamUD("Empty data file encountered.\n");
    return UD_FATAL;
  }

  WAMLib::WAMMapping mapping;
  mapping.load(std::cout, load.faults);
  load.chooseReferenceYear(messages);

  for (size_t i = 0; i < messages.size(); ++i) {
    OthLib::OTHMessage& message = messages[i];
    for (const OTHContact& contact : message.contacts()) {
      for (const OthLib::OTHPosition& report : contact.positions())
        load.loadContact(message.header(), contact, report, mapping);
      for (const OthLib::OTHExpandedPosition& report : contact.expandedPositions())
        load.loadContact(message.header(), contact, report, mapping);
    }
    // The reports are in the document now: their text can go, so that the
    // text and the document of a large file are not held at once.
    std::vector<OTHContact>().swap(message.contacts());
    if (progress != nullptr && i % 256 == 0 &&
        progress->updateProgress(50 + static_cast<int>(50.0 * static_cast<double>(i) / messages.size()))) {
      flushFaults();
      return UD_USER_CANCEL;
    }
  }
  // Messages whose every report was left out (placeholders at the pole,
  // unreadable positions) still make a file that loaded: the scenario is
  // empty, and the user is told why.
  if (load.empty()) load.faults << "No position report of the file could be loaded.\n";

  scenario->makeRefLinks();
  scenario->setStartEndTimes();
  scenario->update(scenario->startTime());
  load.holdLastPositions();
  scenario->setStartEndTimes();

  flushFaults();
  if (parsed != 0) {
    writeErrorStreamUD("File encountered errors while loading.\n");
    return OTG_LOADED_WITH_ERRORS;
  }
  return UD_NO_ERROR;
}
