#include "importers/oth/OTHOverlaySets.h"

#include "importers/oth/OthFields.h"

namespace OthLib {

OTHArc::OTHArc() : OTHOverlayDrawable("ARC", 10, {{BEARING, "000T"}}) {}

OTHChart::OTHChart() : OTHOverlayDrawable("CHART", 4, {{CHART_TYPE, "GC"}}) {}

OTHText::OTHText() : OTHOverlayDrawable("TEXT", 6, {{BEARING, "090T"}}) {}

OTHLine::OTHLine() : OTHOverlayDrawable("LINE", FIXED_FIELDS + CLOSING_FIELDS) {}

size_t OTHLine::pointCount() const {
  return fieldCount() < FIXED_FIELDS + CLOSING_FIELDS ? 0 : (fieldCount() - FIXED_FIELDS - CLOSING_FIELDS) / 2;
}

int OTHLine::getPoint(size_t index, double& latitude, double& longitude) const {
  if (index >= pointCount()) return 1;
  double lla[3] = {0.0, 0.0, 0.0};
  const size_t first = FIXED_FIELDS + 2 * index;
  const int result = getPositionLLA(lla, field(first), field(first + 1), "");
  if (result == 0) {
    latitude = lla[0];
    longitude = lla[1];
  }
  return result;
}

void OTHLine::addPoint(double latitude, double longitude) {
  // Behind the last whole pair, ahead of a left-over field and the closing fields.
  replaceFields(FIXED_FIELDS + 2 * pointCount(), 0, {formatLatitude(latitude), formatLongitude(longitude)});
}

std::string OTHLine::closingField(size_t index) const {
  return index < CLOSING_FIELDS ? field(fieldCount() - CLOSING_FIELDS + index) : std::string();
}

void OTHLine::setClosingField(size_t index, const std::string& text) {
  if (index < CLOSING_FIELDS) setField(fieldCount() - CLOSING_FIELDS + index, text);
}

OTHOverlay::OTHOverlay() : OTHSet("OVLY", 10, {{NAME, "NOT SET"}}) {}

OTHOverlay::OTHOverlay(const OTHOverlay& other) : OTHSet(other) {
  for (const auto& drawable : other.drawables_) drawables_.push_back(drawable->clone());
}

OTHOverlay& OTHOverlay::operator=(const OTHOverlay& other) {
  if (this != &other) {
    OTHSet::operator=(other);
    drawables_.clear();
    for (const auto& drawable : other.drawables_) drawables_.push_back(drawable->clone());
  }
  return *this;
}

OTHOverlay::~OTHOverlay() = default;

OTHAreaAmplification::OTHAreaAmplification() : OTHSet("AREAM", 6, {{NAME, "NOT SET"}, {CHART_TYPE, "GC"}}) {}

}  // namespace OthLib
