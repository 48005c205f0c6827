#pragma once
// The base of every document object: its scenario, kind and category data;
// ObjectLAUD adds the header, the motion, and the on/off and colour commands.

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "datatable/CategoryData.h"
#include "document/CommandsUD.h"
#include "document/HeadersUD.h"
#include "document/MotionUD.h"

class ScenarioUD;

enum ObjectTypeUD : int {
  OBJECT_NONE = 0,
  OBJECT_PLATFORM = 1,
  OBJECT_BEAM = 2,
  OBJECT_GATE = 3,
  OBJECT_LASER = 4,
  OBJECT_LOB_GROUP = 5,
  OBJECT_CUSTOM_RENDERING = 6,
  OBJECT_PROJECTOR = 7
};

class ObjectUD {
 public:
  ObjectUD(ScenarioUD* scenario, ObjectTypeUD type) : scenario_(scenario), type_(type) {}
  virtual ~ObjectUD() = default;

  virtual void setInterpolate(bool interpolate) { interpolate_ = interpolate; }
  virtual bool getInterpolate() const { return interpolate_; }
  virtual void Update(double time) { (void)time; }
  virtual uint64_t UniqueID() const = 0;
  virtual void SetUniqueID(uint64_t id) = 0;
  virtual uint64_t GetOriginalID() const = 0;
  virtual void SetOriginalID(uint64_t id) = 0;
  virtual std::string Desc() const = 0;
  virtual void SetDesc(const std::string& text) = 0;
  // 0 or the first ErrorCodesUD failure of the object's values.
  virtual int Valid(const DataFormatUD& format) const = 0;
  virtual bool Active() const { return active_; }
  // True and the value of the last on/off command at or before `time`.
  virtual bool ActiveAtTime(double time, bool* out) const = 0;
  virtual void AddOnOffCmd(double time, bool on) = 0;

  ScenarioUD* scenario() const { return scenario_; }
  void setScenario(ScenarioUD* scenario) { scenario_ = scenario; }
  ObjectTypeUD type() const { return type_; }
  void setActive(bool active) { active_ = active; }

  // Category data, as numbers of the scenario's CategoryManager.
  bool _AddCategoryData(double time, int nameInt, int valueInt);
  bool RemoveCategoryData(int category, double time) { return RemoveCategoryDataItem(category, time, categories_); }
  void RemoveCategoryFromData(int category) { RemoveCategory(category, categories_); }
  void RemoveCategoryValueFromData(int category, int value) { RemoveCategoryValue(category, value, categories_); }
  void _CopyCategoryData(const ObjectUD& other) {
    CopyCategoryDataFromToSameCategoryManager(other.categories_, categories_);
  }
  const CategorySeries& categoryData() const { return categories_; }
  // Adds a generic value to the scenario's generic data of this object; an
  // ErrorCodesUD result.
  int EnterGenericData(const std::string& tag, const std::string& value, double time, double expire = -1.0);

 protected:
  ScenarioUD* scenario_;
  ObjectTypeUD type_;
  bool interpolate_ = true;
  bool active_ = false;
  CategorySeries categories_;
};

// An object with a header, a motion and time-tagged on/off and colours.
class ObjectLAUD : public ObjectUD {
 public:
  ObjectLAUD(ScenarioUD* scenario, ObjectTypeUD type, std::unique_ptr<ObjectHeaderUD> header)
      : ObjectUD(scenario, type), header_(std::move(header)) {}

  uint64_t UniqueID() const override { return header_ ? header_->uniqueID : 0; }
  void SetUniqueID(uint64_t id) override {
    if (header_) header_->uniqueID = id;
  }
  uint64_t GetOriginalID() const override { return header_ ? header_->originalID : 0; }
  void SetOriginalID(uint64_t id) override {
    if (header_) header_->originalID = id;
  }

  ObjectHeaderUD* header() const { return header_.get(); }
  BaseMotionUD* motion() const { return motion_.get(); }
  // Replaces (and deletes) the old motion.
  void SetMotion(std::unique_ptr<BaseMotionUD> motion) { motion_ = std::move(motion); }

  bool ActiveAtTime(double time, bool* out) const override;
  void AddOnOffCmd(double time, bool on) override { onOff_[time] = on; }
  void AddColorCmd(double time, uint32_t color) { colors_[time] = color; }
  bool ColorAtTime(double time, uint32_t* out) const;
  const std::map<double, bool>& onOffCommands() const { return onOff_; }
  const std::map<double, uint32_t>& colorCommands() const { return colors_; }

 protected:
  std::unique_ptr<ObjectHeaderUD> header_;
  std::unique_ptr<BaseMotionUD> motion_;
  std::map<double, bool> onOff_;
  std::map<double, uint32_t> colors_;
};
