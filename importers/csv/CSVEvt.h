#pragma once
// Event records (EVT) of a SCORE or PMRF file: gathered during the last
// pass, then written as generic data of the scenario, one text per event
// under a key of its own. Deployed sonobuoys also become platforms.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "document/PlatformUD.h"
#include "importers/csv/CSVUniqueId.h"

class CSVFile;
class CSVPos;
class GenericDataUD;
class ScenarioUD;

// One participant of an event: position in radians and metres, course in
// radians, speed in metres per second.
struct PlatData {
  UniqueID id;
  double lat = 0.0, lon = 0.0;
  double x = 0.0, y = 0.0, z = 0.0;
  double course = 0.0;
  double speed = 0.0;
  std::string callsign;
};

struct CommonEventPart {
  virtual ~CommonEventPart() = default;
  int year = 0;
  double time = 0.0;  // seconds since the start of `year`
  PlatData plat;
  std::string serial, type, mode;
  int flag = 0;
};

struct DeploymentEvent : CommonEventPart {
  std::string annotation, second;
  double life = -1.0;   // -1: not given
  double depth = -1.0;  // feet
};

struct NoteEvent : CommonEventPart {
  std::string note;
};

// Events with a second and a third participant.
struct ThreePartyEvent : CommonEventPart {
  PlatData second, third;
};

struct DopplerEvent : ThreePartyEvent {
  std::string doppler, actualDoppler, third3;
};

struct CPAEvent : ThreePartyEvent {
  std::string cpa, activeCpa, activeCpaTime;
};

struct ContactEvent : ThreePartyEvent {
  std::string bearing, range, actualBearing, actualRange, angle, speed, initialRange;
};

// Minex, geometry and fixed-point events keep their whole record.
struct TokenEvent : CommonEventPart {
  std::vector<std::string> tokens;
};
struct MinexEvent : TokenEvent {};
struct GeometryEvent : TokenEvent {};
struct FixedPointEvent : TokenEvent {};

// NTDS and attack events carry a block of XML; the sections that name the
// report are drawn from it by name.
struct XmlEvent : CommonEventPart {
  std::string xml;
  // By section name; a section inside an item as "<item name>/<name>".
  std::map<std::string, std::string> sections;
  double stampTime = 0.0;  // the "stamp" section, seconds since the year's start
};
struct NTDSEvent : XmlEvent {};
struct AttackEvent : XmlEvent {
  std::string reportKind;  // "ASWCLEAR", "ASWDPY", "ASWFINAL" or "unknown"
};

class CSVEvt {
 public:
  // `file` gives the line numbers of messages; it may be null.
  explicit CSVEvt(const CSVFile* file = nullptr) : file_(file) {}
  ~CSVEvt();
  CSVEvt(const CSVEvt&) = delete;
  CSVEvt& operator=(const CSVEvt&) = delete;

  void AddEVT(const std::vector<std::string>& tokens, int dataFormat);

  // Each answers 0 when the record was kept, 1 when it was too short or had
  // no usable time.
  int _AddDEP(const std::vector<std::string>& tokens, int dataFormat);
  int _AddDOP(const std::vector<std::string>& tokens, int dataFormat);
  int _AddCPA(const std::vector<std::string>& tokens, int dataFormat);
  int _AddNOT(const std::vector<std::string>& tokens, int dataFormat);
  int _AddCON(const std::vector<std::string>& tokens, int dataFormat);
  int _AddMIN(const std::vector<std::string>& tokens, int dataFormat);
  int _AddGEO(const std::vector<std::string>& tokens, int dataFormat);
  int _AddFP(const std::vector<std::string>& tokens, int dataFormat);
  int _AddNTDS(const std::vector<std::string>& tokens, int dataFormat);
  int _AddATK(const std::vector<std::string>& tokens, int dataFormat);
  // Fills the common part; throws orvCore::TimeException for a bad date.
  void _AddECP(const std::vector<std::string>& tokens, CommonEventPart* part, int dataFormat);

  // Writes every event as generic data of `scenarioData` and adds the
  // sonobuoy platforms to the scenario.
  void CreateEvents(ScenarioUD* scenario, CSVFile* file, CSVPos* csvPos, GenericDataUD* scenarioData);

  // The key `base` + "_" + a number that no other key of the process has.
  static std::string formUniqueTag(const std::string& base);
  // The text between <name> and </name>; a name whose plain open tag is
  // missing may open with attributes ("<name ...>"). False when not found.
  static bool extractXmlSection_(std::string& result, const std::string& text, const std::string& name);
  // Seconds since the start of the year of a SCORE time text in a section.
  static double convertXMLTime_(const std::string& text);

  const std::vector<std::unique_ptr<DeploymentEvent>>& deployments() const { return deployments_; }
  const std::vector<std::unique_ptr<DopplerEvent>>& dopplers() const { return dopplers_; }
  const std::vector<std::unique_ptr<CPAEvent>>& cpas() const { return cpas_; }
  const std::vector<std::unique_ptr<NoteEvent>>& notes() const { return notes_; }
  const std::vector<std::unique_ptr<ContactEvent>>& contacts() const { return contacts_; }
  const std::vector<std::unique_ptr<NTDSEvent>>& ntds() const { return ntds_; }
  const std::vector<std::unique_ptr<AttackEvent>>& attacks() const { return attacks_; }
  const std::vector<std::unique_ptr<MinexEvent>>& minex() const { return minex_; }
  const std::vector<std::unique_ptr<GeometryEvent>>& geometry() const { return geometry_; }
  const std::vector<std::unique_ptr<FixedPointEvent>>& fixedPoints() const { return fixedPoints_; }

 private:
  // The new event with its common part, or null (reported) when its time
  // is not finite or lies before its year.
  template <typename Event>
  Event* keep_(std::vector<std::unique_ptr<Event>>& list, const std::vector<std::string>& tokens, int dataFormat);
  // Minex, geometry and fixed points, which keep their whole record.
  template <typename Event>
  int keepTokens_(std::vector<std::unique_ptr<Event>>& list, const std::vector<std::string>& tokens, int dataFormat,
                  const char* name);
  void readXml_(const std::vector<std::string>& tokens, XmlEvent& event);
  void removeDuplicateFPEvents_();
  bool doesEventExist_(const std::string& serial, const CommonEventPart* except) const;
  void createSonobuoyPlatform_(const DeploymentEvent& event, ScenarioUD* scenario, CSVFile* file);
  void extendSonobuoyDataToEnd_(ScenarioUD* scenario);
  void report_(const std::string& text) const;

  const CSVFile* file_;
  std::vector<std::unique_ptr<DeploymentEvent>> deployments_;
  std::vector<std::unique_ptr<DopplerEvent>> dopplers_;
  std::vector<std::unique_ptr<CPAEvent>> cpas_;
  std::vector<std::unique_ptr<NoteEvent>> notes_;
  std::vector<std::unique_ptr<ContactEvent>> contacts_;
  std::vector<std::unique_ptr<NTDSEvent>> ntds_;
  std::vector<std::unique_ptr<AttackEvent>> attacks_;
  std::vector<std::unique_ptr<MinexEvent>> minex_;
  std::vector<std::unique_ptr<GeometryEvent>> geometry_;
  std::vector<std::unique_ptr<FixedPointEvent>> fixedPoints_;
  // Sonobuoys by number; held here until they join the scenario.
  std::map<std::string, std::unique_ptr<PlatformUD>> sonobuoys_;
};
