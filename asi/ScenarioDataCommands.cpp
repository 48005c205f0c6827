#include "asi/ScenarioDataCommands.h"

#include "core/StringUtils.h"
#include "core/ValidNumber.h"

namespace AsiInterface {

namespace {

const char* const INVALID_ID = "Invalid ID";
const char* const INVALID_EXPIRE = "Invalid expire time";
const char* const DEPRECATED_TAG = "Deprecated Generic Data Command";
const double LONGEST_EXPIRE = 99999998.0;
const std::string ENTITY_ID_KEY = "entityid=";

bool startsWithNoCase(const std::string& text, const std::string& prefix) {
  return text.size() >= prefix.size() && orvCore::caseCompare(text.substr(0, prefix.size()), prefix) == 0;
}

bool parseUnsigned(const std::string& text, uint64_t& out) {
  unsigned long value = 0;
  if (!orvCore::isValidNumber(text, value, true)) return false;
  out = value;
  return true;
}

}  // namespace

bool checkDeprecatedTagData(const std::string& tag, const std::string& value, int version) {
  if (version < 7) return false;
  if (startsWithNoCase(tag, "AnimatedLine")) return true;
  if (version == 7) return false;
  return startsWithNoCase(tag, "ORVIDE_AnimatedLine") && value.find("entity=") != std::string::npos;
}

double limitExpireTime(double expire) { return expire > 0.0 && expire < LONGEST_EXPIRE ? expire : -1.0; }

void ScnObjectRefCommand::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  uint64_t objectId = 0;
  uint64_t hostId = 0;
  if (!parseUnsigned(tokens[1], objectId)) return setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_ID);
  if (!parseUnsigned(tokens[2], hostId)) return setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid Host ID");
  if (addMapping_(objectId, hostId) != 0) setMessage(PICommon::PI_NOTIFY_ERROR, "Duplicate Host ID");
}

void OriginalId::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (!parseUnsigned(tokens[1], id_)) return setMessage(PICommon::PI_NOTIFY_WARN, INVALID_ID);
  if (!parseUnsigned(tokens[2], originalId_)) setMessage(PICommon::PI_NOTIFY_WARN, "Invalid Original ID");
}

void CategoryData::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(5, tokens.size()) != 0) return;
  if (!parseUnsigned(tokens[1], id_)) return setMessage(PICommon::PI_NOTIFY_WARN, INVALID_ID);
  if (parseTime_(tokens[2], true, point_.time) != 0) return;
  point_.categoryName = tokens[3];
  point_.categoryValue = tokens[4];
}

void GenericData::executeStage1(const std::vector<std::string>& tokens) {
  if (tokens.size() != 5 && tokens.size() != 6) {
    return setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting 4 to 5 arguments");
  }
  if (!parseUnsigned(tokens[1], id_)) return setMessage(PICommon::PI_NOTIFY_WARN, INVALID_ID);
  point_.tag = tokens[2];
  point_.value = tokens[3];
  if (parseTime_(tokens[4], true, point_.time) != 0) return;
  if (tokens.size() == 6 && !orvCore::isValidNumber(tokens[5], point_.expirationTime, true)) {
    return setMessage(PICommon::PI_NOTIFY_WARN, INVALID_EXPIRE);
  }
  if (checkDeprecatedTagData(point_.tag, point_.value, provider_->version())) {
    return setMessage(PICommon::PI_NOTIFY_WARN, DEPRECATED_TAG);
  }
  getEmbeddedId_(point_.value);
}

bool GenericData::getEmbeddedId_(const std::string& value) {
  const size_t key = value.find(ENTITY_ID_KEY);
  if (key == std::string::npos) return true;
  const size_t begin = key + ENTITY_ID_KEY.size();
  const size_t end = value.find_first_not_of("1234567890", begin);
  const std::string digits = value.substr(begin, end == std::string::npos ? std::string::npos : end - begin);
  if (!parseUnsigned(digits, embeddedId_)) {
    embeddedId_ = 0;
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid 'entityid' key in data string");
    return false;
  }
  return true;
}

void GenericDataDeprecated::executeStage1(const std::vector<std::string>& tokens) {
  if (validateRangeTokens_(5, 6, tokens.size()) != 0) return;
  uint64_t objectId = 0;
  if (!parseUnsigned(tokens[1], objectId) || provider_->getGenericDeprecated(objectId, hostId_) != 0) {
    return setMessage(PICommon::PI_NOTIFY_WARN, INVALID_ID);
  }
  point_.tag = tokens[2];
  point_.value = tokens[3];
  if (parseTime_(tokens[4], true, point_.time) != 0) return;
  point_.expirationTime = -1.0;
  if (tokens.size() == 6) {
    double expire = 0.0;
    if (!orvCore::isValidNumber(tokens[5], expire, true)) return setMessage(PICommon::PI_NOTIFY_WARN, INVALID_EXPIRE);
    point_.expirationTime = limitExpireTime(expire);
  }
}

void EventData::executeStage1(const std::vector<std::string>& tokens) {
  if (validateRangeTokens_(4, 5, tokens.size()) != 0) return;
  uint64_t eventId = 0;
  if (!parseUnsigned(tokens[1], eventId) || provider_->getEvent(eventId, hostId_) != 0) {
    return setMessage(PICommon::PI_NOTIFY_WARN, INVALID_ID);
  }
  point_.tag = "EVENT";
  point_.value = tokens[2];
  if (parseTime_(tokens[3], true, point_.time) != 0) return;
  point_.expirationTime = -1.0;
  if (tokens.size() == 5) {
    double end = 0.0;
    if (parseTime_(tokens[4], true, end) != 0) return;
    point_.expirationTime = limitExpireTime(end - point_.time);
  }
  if (checkDeprecatedTagData(point_.tag, point_.value, provider_->version())) {
    setMessage(PICommon::PI_NOTIFY_WARN, DEPRECATED_TAG);
  }
}

}  // namespace AsiInterface
