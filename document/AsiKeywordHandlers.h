#pragma once
// The keyword handlers of the document's ASI loader. parse() applies the
// order rules (Version, then the reference point, then the coordinate
// system), picks a handler by the keyword's leading word and answers an
// ErrorCodesUD. Complaints go to the document's error stream.

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "document/ScenarioUD.h"

class AsiKeywordHandlers {
 public:
  explicit AsiKeywordHandlers(ScenarioUD& scenario) : scenario_(scenario) {}
  int parse(const std::vector<std::string>& tokens, unsigned long line);

 private:
  using Tokens = std::vector<std::string>;

  int asiVersion_(const Tokens& t, unsigned long line);
  int asiRefLLA_(const Tokens& t, unsigned long line);
  int asiRefLat_(const Tokens& t, unsigned long line);
  int asiRefLon_(const Tokens& t, unsigned long line);
  int asiRefAlt_(const Tokens& t, unsigned long line);
  // Sets the reference point once RefLat, RefLon and RefAlt have all come.
  int setReferencePart_();
  int asiCoordSystem_(const Tokens& t, unsigned long line);
  int asiScenario_(const std::string& keyword, const Tokens& t, unsigned long line);
  int asiPlatformID_(const Tokens& t, unsigned long line);
  int asiPlatformType_(const Tokens& t, unsigned long line);
  int asiPlatformFHN_(const Tokens& t, unsigned long line);
  int asiPlatformRCS_(const Tokens& t, unsigned long line);
  int asiPlatformOther_(const std::string& keyword, const Tokens& t, unsigned long line);
  int asiPlatformData_(PlatformUD& platform, const Tokens& t);
  // The scenario's platform `id`, by a hash of those found before: a load
  // adds platforms and never removes one, so a found one stays valid.
  PlatformUD* platform_(uint64_t id);
  // PlatformData's position columns (tokens 3 to 5) in the platform's frame.
  int position_(orvCore::CoordinateSystem system, const Tokens& t, double p[3]) const;
  int asiBeamID_(const Tokens& t, unsigned long line);
  int asiBeamOther_(const std::string& keyword, const Tokens& t, unsigned long line);
  int asiGateID_(const Tokens& t, unsigned long line);
  int asiGateOther_(const std::string& keyword, const Tokens& t, unsigned long line);
  int asiCustomRendering_(const Tokens& t, unsigned long line);
  int asiCustomRenderingOther_(const Tokens& t, unsigned long line);
  int asiDataTable_(const std::string& keyword, const Tokens& t, unsigned long line);
  int asiLaser_(const std::string& keyword, const Tokens& t, unsigned long line);
  int asiLOB_(const std::string& keyword, const Tokens& t, unsigned long line);
  int asiProjector_(const std::string& keyword, const Tokens& t, unsigned long line);
  int asiCategoryData_(const Tokens& t, unsigned long line);
  int asiGenericData_(const Tokens& t, unsigned long line);
  int asiGenericDataLegacy_(const std::string& keyword, const Tokens& t, unsigned long line);
  int asiOriginalID_(const Tokens& t, unsigned long line);

  // A new id for an object of `noun`: 43 for 0, 42 when taken, after the message.
  int checkNewId_(const std::string& text, const std::string& noun, unsigned long line, uint64_t& id);
  // The host of a new object: 43 for 0, after "<noun> host ID must be > 0."
  int checkHostId_(const std::string& text, const std::string& noun, unsigned long line, uint64_t& id) const;
  // 44, after the message that no such host (a "platform", a "beam") was given.
  int unknownHost_(const std::string& noun, unsigned long line) const;
  bool number_(const std::string& text, double& out) const;
  bool id_(const std::string& text, uint64_t& out) const;
  bool flag_(const std::string& text, bool& on) const;
  // A time of the file: 53 when malformed.
  int time_(const std::string& text, double& out) const;
  // An angle argument: degrees with DegreeAngles, else radians.
  bool angle_(const std::string& text, double& out) const;
  static bool degrees_(const std::string& text, double& out);
  static uint32_t color_(const std::string& text);
  void complain_(const std::string& text, unsigned long line) const;

  ScenarioUD& scenario_;
  bool versionSeen_ = false;
  bool refSet_ = false;
  bool refLat_ = false, refLon_ = false, refAlt_ = false;
  bool coordSet_ = false;
  double ref_[3] = {0.0, 0.0, 0.0};
  std::map<uint64_t, DataTable*> tables_;
  // Platforms whose orientation comes as a quaternion: the column order (0 to 3).
  std::map<uint64_t, unsigned int> quaternions_;
  // Event and old generic-data numbers -> the entity they belong to.
  std::map<uint64_t, uint64_t> eventRefs_, genericRefs_;
  std::unordered_map<uint64_t, PlatformUD*> platforms_;
};
