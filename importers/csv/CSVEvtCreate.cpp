// Writing the gathered events as generic data, and the sonobuoy platforms.

#include <atomic>
#include <cmath>
#include <iostream>
#include <sstream>

#include "core/StringUtils.h"
#include "document/PlatformUD.h"
#include "document/ScenarioUD.h"
#include "importers/csv/CSVEvt.h"
#include "importers/csv/CSVFields.h"
#include "importers/csv/CSVFile.h"

using namespace CSVFields;

namespace {

const char SCOREPLUGIN_ELEMENT_SEP = '`';
const char* const kEventKey = "PluginData_SCOREEvent";
const char* const kRawXmlKey = "PluginData_SCOREEventRawXML";

// "EVT=<kind>" followed by "`name=value" per field; numbers in the
// stream's default form.
class EventText {
 public:
  explicit EventText(const std::string& kind) { out_ << "EVT=" << kind; }
  template <typename T>
  EventText& add(const char* name, const T& value) {
    out_ << SCOREPLUGIN_ELEMENT_SEP << name << '=' << value;
    return *this;
  }
  // LAT, LON, ALT behind `prefix` in degrees and feet; left out where
  // latitude or longitude is exactly 0.
  EventText& position(const std::string& prefix, const PlatData& plat) {
    if (plat.lat == 0.0 || plat.lon == 0.0) return *this;
    add((prefix + "LAT").c_str(), plat.lat * RAD_TO_DEG);
    add((prefix + "LON").c_str(), plat.lon * RAD_TO_DEG);
    return add((prefix + "ALT").c_str(), plat.z * METERS_TO_FEET);
  }
  // The call sign under `prefix`, then its position.
  EventText& group(const std::string& prefix, const PlatData& plat) {
    add(prefix.c_str(), plat.callsign);
    return position(prefix, plat);
  }
  EventText& addIfSet(const char* name, const std::string& value) {
    return value.empty() ? *this : add(name, value);
  }
  std::string str() const { return out_.str(); }

 private:
  std::ostringstream out_;
};

void write(GenericDataUD* data, const CommonEventPart& event, const std::string& text,
           const char* key = kEventKey) {
  if (data != nullptr) data->addState(CSVEvt::formUniqueTag(key), text, event.time, -1.0);
}

std::string deploymentText(const DeploymentEvent& e) {
  EventText text("DEP");
  text.add("ID", e.serial).add("CSO", e.annotation).add("CSB", e.plat.callsign).add("CSR", e.second);
  if (e.life >= 0.0) text.add("LIFE", e.life);
  if (e.depth >= 0.0) text.add("DEPTH", e.depth);
  return text.position("CSB", e.plat).str();
}

std::string noteText(const NoteEvent& e) {
  EventText text("NOT");
  return text.add("ID", e.serial).group("CSO", e.plat).add("NOT", e.note).str();
}

std::string contactText(const ContactEvent& e) {
  EventText text(e.type);
  text.add("ID", e.serial).group("CSO", e.second).group("CSR", e.third);
  if (e.type == "CON") return text.group("CSB", e.plat).str();
  if (e.type == "MOT") return text.str();
  if (e.type == "C/S") {
    // A course-and-speed record holds course, speed and the actual ones
    // where other contacts hold bearings and ranges.
    return text.add("CRS", e.bearing).add("SPD", e.range).add("ACTCRS", e.actualBearing)
        .add("ACTSPD", e.actualRange).str();
  }
  if (e.type == "ESM") text.add("DESIG", e.plat.callsign);
  return text.addIfSet("BRG", e.bearing).addIfSet("RNG", e.range).addIfSet("ACTBRG", e.actualBearing)
      .addIfSet("ACTRNG", e.actualRange).str();
}

template <typename Event>
std::string threePartyText(const char* kind, const Event& e, const char* lastName, const std::string& last) {
  EventText text(kind);
  text.add("ID", e.serial).group("CSO", e.second).group("CSR", e.third).group("CSB", e.plat);
  return text.add(lastName, last).str();
}

std::string fixedPointText(const FixedPointEvent& e) {
  EventText text("FXP");
  return text.add("ID", e.serial).add("CSO", e.plat.callsign).position("", e.plat).str();
}

std::string minexText(const MinexEvent& e) {
  EventText text("MIN");
  return text.add("ID", e.serial).group("CSO", e.plat).str();
}

std::string quoteXml(std::string xml) {
  for (size_t at = xml.find('"'); at != std::string::npos; at = xml.find('"', at + 6)) xml.replace(at, 1, "&quot;");
  return xml;
}

// The model of a buoy by the first letters of its call sign.
std::string sonobuoyIcon(const std::string& callsign) {
  if (callsign.size() > 1) {
    const std::string kind = callsign.substr(0, 2);
    if (orvCore::caseCompare(kind, "DC") == 0) return "an-ssq-62";
    if (orvCore::caseCompare(kind, "VL") == 0) return "an-ssq-77";
  }
  return "an-ssq-53";
}

}  // namespace

std::string CSVEvt::formUniqueTag(const std::string& base) {
  static std::atomic<unsigned long> counter{0};
  return base + "_" + std::to_string(counter++);
}

bool CSVEvt::doesEventExist_(const std::string& serial, const CommonEventPart* except) const {
  auto in = [&](const auto& list) {
    for (const auto& event : list)
      if (event.get() != except && event->serial == serial) return true;
    return false;
  };
  return in(deployments_) || in(dopplers_) || in(cpas_) || in(notes_) || in(contacts_) || in(ntds_) ||
         in(attacks_) || in(minex_) || in(geometry_);
}

void CSVEvt::removeDuplicateFPEvents_() {
  // A fixed point goes when its number is already taken by another event
  // or by a fixed point kept before it.
  std::vector<std::unique_ptr<FixedPointEvent>> kept;
  for (auto& event : fixedPoints_) {
    bool taken = doesEventExist_(event->serial, event.get());
    for (const auto& earlier : kept) taken = taken || earlier->serial == event->serial;
    if (!taken) kept.push_back(std::move(event));
  }
  fixedPoints_ = std::move(kept);
}

void CSVEvt::createSonobuoyPlatform_(const DeploymentEvent& event, ScenarioUD* scenario, CSVFile* file) {
  const double position[3] = {event.plat.lat, event.plat.lon, -std::fabs(event.depth) * FEET_TO_METERS};
  const double orientation[3] = {event.plat.course, 0.0, 0.0};
  auto found = sonobuoys_.find(event.serial);
  if (found != sonobuoys_.end()) {
    // The same buoy reported again moves it rather than making a second one.
    found->second->AddState(event.time, position, orientation, nullptr);
    return;
  }
  auto header = std::make_unique<PlatformHeaderUD>(scenario->dataFormat());
  header->uniqueID = file->NewAsiId();
  header->callSign = event.plat.callsign;
  header->iconName = sonobuoyIcon(event.plat.callsign);
  header->coordSystem = orvCore::LLA;
  auto platform = std::make_unique<PlatformUD>(scenario, std::move(header));
  platform->SetMotion(std::make_unique<LinearPlatMotionUD>());
  platform->AddState(event.time, position, orientation, nullptr);
  sonobuoys_[event.serial] = std::move(platform);
}

void CSVEvt::extendSonobuoyDataToEnd_(ScenarioUD* scenario) {
  std::vector<PlatformUD*> added;
  for (auto& entry : sonobuoys_) {
    PlatformUD* platform = entry.second.get();
    if (platform->AddToScenario(scenario) == 0) {
      entry.second.release();  // the scenario owns it now
      added.push_back(platform);
    }
  }
  sonobuoys_.clear();
  scenario->setStartEndTimes();
  for (PlatformUD* platform : added) platform->Motion()->AddEndPoint(scenario->endTime());
}

void CSVEvt::CreateEvents(ScenarioUD* scenario, CSVFile* file, CSVPos* csvPos, GenericDataUD* data) {
  (void)csvPos;
  removeDuplicateFPEvents_();
  std::cout << "DeploymentEvent size = " << deployments_.size() << "\n"
            << "NoteEvent size =       " << notes_.size() << "\n"
            << "DopplerEvent size =    " << dopplers_.size() << "\n"
            << "ContactEvent size =    " << contacts_.size() << "\n"
            << "CPAEvent size =        " << cpas_.size() << "\n"
            << "MINEvent size =        " << minex_.size() << "\n"
            << "NTDSEvent size =       " << ntds_.size() << "\n"
            << "GEOEvent size =        " << geometry_.size() << "\n"
            << "FPEvent size =         " << fixedPoints_.size() << "\n"
            << "ATKEvent size =        " << attacks_.size() << "\n";

  for (const auto& e : deployments_) {
    if (e->plat.id.source == "SON") createSonobuoyPlatform_(*e, scenario, file);
    write(data, *e, deploymentText(*e));
  }
  for (const auto& e : notes_) write(data, *e, noteText(*e));
  for (const auto& e : contacts_) write(data, *e, contactText(*e));
  for (const auto& e : dopplers_) write(data, *e, threePartyText("DOP", *e, "DOP", e->doppler));
  for (const auto& e : cpas_) write(data, *e, threePartyText("CPA", *e, "RNG", e->cpa));
  for (const auto& e : fixedPoints_) write(data, *e, fixedPointText(*e));
  for (const auto& e : minex_) write(data, *e, minexText(*e));
  for (const auto& e : ntds_) write(data, *e, quoteXml(e->xml), kRawXmlKey);
  for (const auto& e : attacks_) write(data, *e, quoteXml(e->xml), kRawXmlKey);
  extendSonobuoyDataToEnd_(scenario);
}
