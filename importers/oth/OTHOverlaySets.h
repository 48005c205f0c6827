#pragma once
// Overlays "OVLY/" with their drawables "ARC/", "LINE/", "TEXT/", "CHART/",
// and area amplifications "AREAM/".

#include <memory>
#include <string>
#include <vector>

#include "importers/oth/OTHSet.h"

namespace OthLib {

class OTHOverlayDrawable : public OTHSet {
 public:
  enum class DrawableType { ARC, CHART, LINE, TEXT };
  virtual DrawableType getType() const = 0;
  virtual std::unique_ptr<OTHOverlayDrawable> clone() const = 0;

 protected:
  OTHOverlayDrawable(const char* name, size_t fieldCount,
                     std::initializer_list<std::pair<size_t, const char*>> defaults = {})
      : OTHSet(name, fieldCount, defaults) {}
};

class OTHArc : public OTHOverlayDrawable {
 public:
  enum Field : size_t { COLOR = 0, LINE_TYPE = 1, FILL_TYPE = 2, LATITUDE = 3, LONGITUDE = 4, RADIUS = 5,
                        BEARING = 6 };
  OTHArc();
  DrawableType getType() const override { return DrawableType::ARC; }
  std::unique_ptr<OTHOverlayDrawable> clone() const override { return std::make_unique<OTHArc>(*this); }
};

class OTHChart : public OTHOverlayDrawable {
 public:
  enum Field : size_t { CHART_TYPE = 0 };
  OTHChart();
  DrawableType getType() const override { return DrawableType::CHART; }
  std::unique_ptr<OTHOverlayDrawable> clone() const override { return std::make_unique<OTHChart>(*this); }
};

class OTHText : public OTHOverlayDrawable {
 public:
  enum Field : size_t { COLOR = 0, FONT = 1, LATITUDE = 2, LONGITUDE = 3, BEARING = 4, TEXT = 5 };
  OTHText();
  DrawableType getType() const override { return DrawableType::TEXT; }
  std::unique_ptr<OTHOverlayDrawable> clone() const override { return std::make_unique<OTHText>(*this); }
};

// Four fixed fields, then the points as latitude and longitude fields in
// pairs, then two closing fields.
class OTHLine : public OTHOverlayDrawable {
 public:
  enum Field : size_t { COLOR = 0, LINE_TYPE = 1, FILL_TYPE = 2, LABEL = 3 };
  static constexpr size_t FIXED_FIELDS = 4;
  static constexpr size_t CLOSING_FIELDS = 2;
  OTHLine();
  DrawableType getType() const override { return DrawableType::LINE; }
  std::unique_ptr<OTHOverlayDrawable> clone() const override { return std::make_unique<OTHLine>(*this); }

  // Whole points; a lone field left over between the pairs is kept as text.
  size_t pointCount() const;
  // Latitude and longitude in radians; the results of getPositionLLA.
  int getPoint(size_t index, double& latitude, double& longitude) const;
  void addPoint(double latitude, double longitude);
  // The closing fields, 0 and 1.
  std::string closingField(size_t index) const;
  void setClosingField(size_t index, const std::string& text);
};

class OTHOverlay : public OTHSet {
 public:
  enum Field : size_t { DATE_TIME_GROUP = 0, NAME = 1 };
  OTHOverlay();
  OTHOverlay(const OTHOverlay& other);
  OTHOverlay& operator=(const OTHOverlay& other);
  OTHOverlay(OTHOverlay&&) = default;
  OTHOverlay& operator=(OTHOverlay&&) = default;
  ~OTHOverlay() override;

  std::vector<std::unique_ptr<OTHOverlayDrawable>>& drawables() { return drawables_; }
  const std::vector<std::unique_ptr<OTHOverlayDrawable>>& drawables() const { return drawables_; }

 private:
  std::vector<std::unique_ptr<OTHOverlayDrawable>> drawables_;
};

class OTHAreaAmplification : public OTHSet {
 public:
  enum Field : size_t { NAME = 0, CHART_TYPE = 1 };
  OTHAreaAmplification();
};

}  // namespace OthLib
