#include "document/ObjectUD.h"

#include "document/ErrorCodesUD.h"
#include "document/GenericDataUD.h"
#include "document/ScenarioUD.h"

bool ObjectUD::_AddCategoryData(double time, int nameInt, int valueInt) {
  return AddCategoryDataToGiven(nameInt, valueInt, time, categories_);
}

int ObjectUD::EnterGenericData(const std::string& tag, const std::string& value, double time, double expire) {
  if (scenario_ == nullptr) return UD_NO_ENTITY_FOR_DATA;
  GenericDataUD* data = scenario_->createGenericData(UniqueID());
  switch (data->addState(tag, value, time, expire)) {
    case 0: return UD_NO_ERROR;
    case 3: return UD_GENERIC_EXISTS;
    default: return UD_BAD_GENERIC_VALUES;
  }
}

namespace {

template <typename Value>
bool valueAtTime(const std::map<double, Value>& commands, double time, Value* out) {
  auto after = commands.upper_bound(time);
  if (after == commands.begin()) {
    if (out) *out = Value();
    return false;
  }
  if (out) *out = std::prev(after)->second;
  return true;
}

}  // namespace

bool ObjectLAUD::ActiveAtTime(double time, bool* out) const { return valueAtTime(onOff_, time, out); }

bool ObjectLAUD::ColorAtTime(double time, uint32_t* out) const { return valueAtTime(colors_, time, out); }
