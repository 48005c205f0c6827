#include "document/AsiScenarioFile.h"

#include <fstream>
#include <sstream>

#include "core/StringUtils.h"
#include "core/TimeStamp.h"
#include "core/Tokenizer.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ProgressPrinter.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIData.h"
#include "hostapi/PIORVIDE.h"

namespace {

ImporterEntry asiEntry() {
  ImporterEntry entry;
  entry.extensions = {".asi"};
  entry.notice = "Reading ASI file: ";
  entry.fatalText = "Fatal error when loading ASI file\n";
  entry.load = [](const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress) {
    return scenario.load(path, nullptr, progress);
  };
  return entry;
}

// The first non-empty line of a file, stripped.
std::string firstLine(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string line;
  while (orvCore::getStrippedLine(in, line))
    if (!line.empty()) return line;
  return "";
}

TimeWindowUD makeWindow(const orvCore::TimeStamp* minTime, const orvCore::TimeStamp* maxTime, int year) {
  TimeWindowUD window;
  if (minTime) {
    window.hasMin = true;
    window.min = minTime->secondsSinceRefYear(year).asDouble();
  }
  if (maxTime) {
    window.hasMax = true;
    window.max = maxTime->secondsSinceRefYear(year).asDouble();
  }
  return window;
}

std::string boundText(bool given, double seconds) { return given ? UTILS::formatDouble(seconds) : "none"; }

}  // namespace

AsiScenarioFile::AsiScenarioFile(ImporterTable importers) {
  importers_.push_back(asiEntry());
  for (ImporterEntry& entry : importers)
    if (entry.load) importers_.push_back(std::move(entry));
}

AsiScenarioFile::~AsiScenarioFile() { flush(); }

void AsiScenarioFile::flush() {
  delete scenario_;
  scenario_ = nullptr;
  progress_ = nullptr;
}

bool AsiScenarioFile::canceled_() const { return progress_ != nullptr && progress_->isCanceled(); }

bool AsiScenarioFile::counted_() const { return progress_ != nullptr && progress_->incrementTransmits(); }

const ImporterEntry* AsiScenarioFile::findImporter_(const std::string& path, std::string& unknownText) const {
  const std::string extension = orvCore::getExtension(path);
  const bool csv = extension == ".csv";
  std::string first;
  bool firstRead = false;
  for (const ImporterEntry& entry : importers_) {
    bool named = false;
    for (const std::string& e : entry.extensions) named = named || orvCore::hasExtension(path, e);
    if (!named) continue;
    if (csv && !entry.csvMarkers.empty()) {
      if (!firstRead) {
        first = firstLine(path);
        firstRead = true;
      }
      bool marked = false;
      for (const std::string& marker : entry.csvMarkers) marked = marked || first.find(marker) != std::string::npos;
      if (!marked) continue;
    }
    return &entry;
  }
  unknownText = csv ? "Unknown CSV file format detected\n" : "Unknown file format\n";
  return nullptr;
}

bool AsiScenarioFile::load_(const std::string& path, std::vector<std::string>& issues) {
  std::string unknown;
  const ImporterEntry* entry = findImporter_(path, unknown);
  if (entry == nullptr) {
    issues.push_back(unknown);
    return false;
  }
  PICommon::notify(entry->notice + path, PICommon::PI_NOTIFY_INFO, "");
  std::ostringstream errors;
  std::ostream* previous = setErrorStreamUD(&errors);
  const int result = entry->load(path, *scenario_, progress_);
  setErrorStreamUD(previous);
  if (!errors.str().empty())
    PICommon::notify(entry->issuesHeading + errors.str(), PICommon::PI_NOTIFY_WARN, "");
  if (udIsFatalError(result)) {
    issues.push_back(entry->fatalText);
    return false;
  }
  // Importers fill objects only; the document's span follows from them.
  scenario_->setStartEndTimes();
  return true;
}

bool AsiScenarioFile::checkAgainstHost_(bool append, bool& writeSettings, const orvCore::TimeStamp* minTime,
                                        const orvCore::TimeStamp* maxTime, std::vector<std::string>& issues) const {
  const bool hostHasScenario = PIData::isScenarioInitialized();
  writeSettings = !append || !hostHasScenario;
  if (append && hostHasScenario) {
    const int hostYear = PIData::getReferenceYear();
    if (scenario_->referenceYear() != hostYear) {
      issues.push_back("The Reference Year (" + std::to_string(scenario_->referenceYear()) +
                       ") of the new file does not match the current Reference Year (" + std::to_string(hostYear) +
                       ")\nAppend operation aborted.");
      return false;
    }
  }
  const TimeWindowUD window = makeWindow(minTime, maxTime, scenario_->referenceYear());
  // A document without time-tagged data (start -1) holds static objects only,
  // which every window shows.
  const bool timed = scenario_->startTime() >= 0.0;
  const bool pass = !timed || ((!window.hasMin || scenario_->endTime() > window.min) &&
                               (!window.hasMax || scenario_->startTime() < window.max));
  if (!pass) {
    issues.push_back("Input file times are outside requested min (" + boundText(window.hasMin, window.min) +
                     ") and max (" + boundText(window.hasMax, window.max) +
                     ") filter time ranges.\nLoad operation aborted.");
    return false;
  }
  return true;
}

bool AsiScenarioFile::transmitScenario(const std::string& path, const orvCore::TimeStamp* minTime,
                                       const orvCore::TimeStamp* maxTime, ASIPlugin::ProgressPrinter* progress,
                                       bool append, std::vector<std::string>& issues) {
  flush();
  progress_ = progress;
  scenario_ = new ScenarioUD;
  if (!load_(path, issues)) return true;

  // Nothing reaches the host before these checks pass: a failed append or a
  // failed first file leaves the host's scenario as it was.
  bool writeSettings = false;
  if (!checkAgainstHost_(append, writeSettings, minTime, maxTime, issues)) return true;
  if (canceled_()) return true;
  if (progress_)
    progress_->setTransmitCount(scenario_->platforms().size() + scenario_->beams().size() +
                                scenario_->gates().size() + scenario_->lobGroups().size() +
                                scenario_->laserManager().getNumLasers() +
                                scenario_->dataTables().getNumberOfDataTables());

  if (!append) PIData::deleteScenario();
  PICommon::notify("Loading Scenario Data...\n", PICommon::PI_NOTIFY_INFO, "");
  if (!PIData::isScenarioInitialized()) PIData::initializeScenario(path, 0, PIData::PI_PROTOCOL_NONE, false);
  if (!append) PIData::setScenarioFileName(path);
  transmitScenarioSettings(writeSettings, append);

  const TimeWindowUD window = makeWindow(minTime, maxTime, scenario_->referenceYear());
  using Stage = void (AsiScenarioFile::*)(const TimeWindowUD&);
  static const Stage stages[] = {&AsiScenarioFile::transmitPlatformData_, &AsiScenarioFile::transmitBeamData_,
                                 &AsiScenarioFile::transmitGateData_,     &AsiScenarioFile::transmitLaserData_,
                                 &AsiScenarioFile::transmitLobGroupData_, &AsiScenarioFile::transmitCustomRenderings_,
                                 &AsiScenarioFile::transmitGenericData_,  &AsiScenarioFile::transmitDataTables_,
                                 &AsiScenarioFile::transmitProjectors_};
  for (Stage stage : stages) {
    if (canceled_()) return true;
    (this->*stage)(window);
  }
  transmitExternalFiles();
  return false;
}

void AsiScenarioFile::transmitScenarioSettings(bool writeSettings, bool append) {
  const ScenarioUD& s = *scenario_;
  if (writeSettings) {
    // The times sent are seconds of the document's year: the host must have it first.
    PIData::setReferenceYear(s.referenceYear());
    PIData::setDescription(s.desc());
    PIData::setClassification(s.classification());
    PIData::setClassificationColor(__builtin_bswap32(s.classificationColor()));
    // Sent even when the document never set an origin (a SCORE file without
    // ORG): the converter then gives its zeros and says on the console that
    // its origin is unset.
    const double lat = s.converter().referenceLat(), lon = s.converter().referenceLon(),
                 alt = s.converter().referenceAlt();
    PIData::setOriginLLA(lat, lon, alt);
    PIData::setTangentPlaneOffsets(s.converter().tangentPlaneOffsetX(), s.converter().tangentPlaneOffsetY(),
                                   s.converter().tangentPlaneRotation());
    PIData::setWindDirection(s.windAngle());
    PIData::setWindSpeed(s.windSpeed());
    const std::vector<std::string>& terrain = s.getExternalFile(EFT_IT_CONFIG_FILE);
    if (!terrain.empty() && !terrain.front().empty()) PIORVIDE::loadTerrainConfiguration(terrain.front());
  }
  for (const std::string& media : s.getExternalFile(EFT_MEDIA_FILE))
    if (!media.empty()) PIORVIDE::loadMediaFile(media);
  const std::vector<std::string>& rules = s.getExternalFile(EFT_RULE_FILE);
  if (!rules.empty() && !rules.front().empty()) {
    if (!append) PIORVIDE::removeAllPrefRules();
    std::vector<uint64_t> ruleIds;
    PIORVIDE::loadPrefRuleFile(rules.front(), ruleIds);
  }
}

void AsiScenarioFile::transmitExternalFiles() {
  for (const std::string& gog : scenario_->getExternalFile(EFT_GOG_FILE))
    if (!gog.empty()) PIORVIDE::loadGOGFile(gog, 0, true);
  const std::vector<std::string>& views = scenario_->getExternalFile(EFT_VIEW_FILE);
  if (!views.empty() && !views.front().empty()) PIORVIDE::loadViewFile(views.front());
}

uint64_t AsiScenarioFile::getPluginId_(uint64_t id) const {
  if (id == 0 || scenario_ == nullptr) return 0;
  const ObjectUD* object = scenario_->findObject(id);
  if (object == nullptr) return 0;
  auto it = ids_.find({id, object->GetOriginalID()});
  return it == ids_.end() ? 0 : it->second;
}

void AsiScenarioFile::remember_(uint64_t id, uint64_t originalId, uint64_t hostId) {
  if (hostId != 0) ids_[{id, originalId}] = hostId;
}
