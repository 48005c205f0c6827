#include "host/cli/QuickLookPlot.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "core/CoordinateConverter.h"
#include "host/HostScenario.h"
#include "host/TerminalText.h"
#include "host/cli/Exports.h"
#include "host/cli/IsoTime.h"

namespace RefHost {

namespace {

constexpr int WIDTH = 1200;
constexpr int HEIGHT = 900;
constexpr double LEFT = 80, RIGHT = 30, TOP = 70, BOTTOM = 60;
constexpr double DEGREES = 180.0 / M_PI;

// 1, 2 or 5 times a power of ten, the nearest at or above `value`.
double niceStep(double value) {
  const double power = std::pow(10.0, std::floor(std::log10(value)));
  for (double m : {1.0, 2.0, 5.0, 10.0})
    if (m * power >= value) return m * power;
  return 10.0 * power;
}

// Latitude and longitude in degrees to the picture. Longitudes are taken in
// 0..360 when that keeps a track across the date line in one piece.
class MapFrame {
 public:
  explicit MapFrame(const ExportScene& scene) {
    double minLat = 90, maxLat = -90, minLon = 180, maxLon = -180, minLon360 = 360, maxLon360 = 0;
    bool any = false;
    for (const PlatformTrack& track : scene.tracks)
      for (const GeoPoint& p : track.points) {
        const double lat = p.lat * DEGREES, lon = p.lon * DEGREES, lon360 = lon < 0 ? lon + 360 : lon;
        minLat = std::min(minLat, lat);
        maxLat = std::max(maxLat, lat);
        minLon = std::min(minLon, lon);
        maxLon = std::max(maxLon, lon);
        minLon360 = std::min(minLon360, lon360);
        maxLon360 = std::max(maxLon360, lon360);
        any = true;
      }
    if (!any) minLat = maxLat = minLon = maxLon = 0;
    wrap360_ = any && maxLon360 - minLon360 < maxLon - minLon;
    if (wrap360_) {
      minLon = minLon360;
      maxLon = maxLon360;
    }
    // Some room around the tracks, and never less than a few hundred metres.
    const double pad = std::max({0.08 * (maxLat - minLat), 0.08 * (maxLon - minLon), 0.002});
    minLat_ = std::max(-90.0, minLat - pad);
    maxLat_ = std::min(90.0, maxLat + pad);
    minLon_ = minLon - pad;
    maxLon_ = maxLon + pad;
    const double midLat = (minLat_ + maxLat_) / 2;
    cosLat_ = std::max(0.05, std::cos(midLat / DEGREES));
    // One scale for both axes, so that shapes keep their proportions.
    const double areaW = WIDTH - LEFT - RIGHT, areaH = HEIGHT - TOP - BOTTOM;
    scale_ = std::min(areaW / ((maxLon_ - minLon_) * cosLat_), areaH / (maxLat_ - minLat_));
    // The map fills the picture: the narrower way gets more of the world.
    const double lonGrow = (areaW / (cosLat_ * scale_) - (maxLon_ - minLon_)) / 2;
    const double latGrow = (areaH / scale_ - (maxLat_ - minLat_)) / 2;
    minLon_ -= lonGrow;
    maxLon_ += lonGrow;
    minLat_ -= latGrow;
    maxLat_ += latGrow;
    offsetX_ = LEFT;
    offsetY_ = TOP;
  }

  double lon(double degrees) const { return wrap360_ && degrees < 0 ? degrees + 360 : degrees; }
  double x(double lonDegrees) const { return offsetX_ + (lon(lonDegrees) - minLon_) * cosLat_ * scale_; }
  double y(double latDegrees) const { return offsetY_ + (maxLat_ - latDegrees) * scale_; }
  double minLat() const { return minLat_; }
  double maxLat() const { return maxLat_; }
  double minLon() const { return minLon_; }
  double maxLon() const { return maxLon_; }
  double left() const { return offsetX_; }
  double top() const { return offsetY_; }
  double bottom() const { return y(minLat_); }
  double midLat() const { return (minLat_ + maxLat_) / 2; }
  // Metres on the ground per pixel, east-west at the middle latitude.
  double metresPerPixel() const {
    const double s = std::sin(midLat() / DEGREES);
    const double meridional = orvCore::WGS_A * (1 - orvCore::WGS_E2) / std::pow(1 - orvCore::WGS_E2 * s * s, 1.5);
    return meridional / DEGREES / scale_;
  }

 private:
  bool wrap360_ = false;
  double minLat_ = 0, maxLat_ = 0, minLon_ = 0, maxLon_ = 0;
  double cosLat_ = 1, scale_ = 1, offsetX_ = 0, offsetY_ = 0;
};

std::string degreesLabel(double value, double step, bool latitude) {
  int decimals = 0;
  while (decimals < 6 && std::fabs(step * std::pow(10.0, decimals) - std::round(step * std::pow(10.0, decimals))) > 1e-9)
    ++decimals;
  double shown = value;
  if (!latitude) shown = std::remainder(value, 360.0);
  const char hemisphere = latitude ? (shown < 0 ? 'S' : 'N') : (shown < 0 ? 'W' : 'E');
  char text[32];
  std::snprintf(text, sizeof text, "%.*f\xC2\xB0%c", decimals, std::fabs(shown), hemisphere);
  return text;
}

void drawGraticule(cairo_t* cr, const MapFrame& map) {
  // Some six to ten lines each way.
  const double latStep = niceStep((map.maxLat() - map.minLat()) / 8);
  const double lonStep = niceStep((map.maxLon() - map.minLon()) / 10);
  cairo_set_font_size(cr, 11);
  cairo_set_line_width(cr, 1);
  double step = latStep;
  for (double lat = std::ceil(map.minLat() / step) * step; lat <= map.maxLat(); lat += step) {
    cairo_set_source_rgb(cr, 0.85, 0.85, 0.85);
    cairo_move_to(cr, map.left(), map.y(lat));
    cairo_line_to(cr, map.x(map.maxLon()), map.y(lat));
    cairo_stroke(cr);
    cairo_set_source_rgb(cr, 0.35, 0.35, 0.35);
    const std::string label = degreesLabel(lat, step, true);
    cairo_text_extents_t extents;
    cairo_text_extents(cr, label.c_str(), &extents);
    cairo_move_to(cr, map.left() - extents.x_advance - 6, map.y(lat) + 4);
    cairo_show_text(cr, label.c_str());
  }
  step = lonStep;
  for (double lon = std::ceil(map.minLon() / step) * step; lon <= map.maxLon(); lon += step) {
    const double x = map.left() + (lon - map.minLon()) / (map.maxLon() - map.minLon()) * (map.x(map.maxLon()) - map.left());
    cairo_set_source_rgb(cr, 0.85, 0.85, 0.85);
    cairo_move_to(cr, x, map.top());
    cairo_line_to(cr, x, map.bottom());
    cairo_stroke(cr);
    cairo_set_source_rgb(cr, 0.35, 0.35, 0.35);
    const std::string label = degreesLabel(lon, step, false);
    cairo_text_extents_t extents;
    cairo_text_extents(cr, label.c_str(), &extents);
    cairo_move_to(cr, x - extents.x_advance / 2, map.bottom() + 16);
    cairo_show_text(cr, label.c_str());
  }
  cairo_set_source_rgb(cr, 0.5, 0.5, 0.5);
  cairo_rectangle(cr, map.left(), map.top(), map.x(map.maxLon()) - map.left(), map.bottom() - map.top());
  cairo_stroke(cr);
}

void drawScaleBar(cairo_t* cr, const MapFrame& map) {
  const double metresPerPixel = map.metresPerPixel();
  const double metres = niceStep(metresPerPixel * (WIDTH - LEFT - RIGHT) / 6);
  const double pixels = metres / metresPerPixel;
  const double x0 = map.x(map.maxLon()) - pixels - 20, y0 = map.bottom() - 20;
  cairo_set_source_rgba(cr, 1, 1, 1, 0.8);
  cairo_rectangle(cr, x0 - 8, y0 - 22, pixels + 16, 30);
  cairo_fill(cr);
  cairo_set_source_rgb(cr, 0.1, 0.1, 0.1);
  cairo_set_line_width(cr, 2);
  cairo_move_to(cr, x0, y0 - 5);
  cairo_line_to(cr, x0, y0);
  cairo_line_to(cr, x0 + pixels, y0);
  cairo_line_to(cr, x0 + pixels, y0 - 5);
  cairo_stroke(cr);
  char label[32];
  if (metres >= 1000)
    std::snprintf(label, sizeof label, "%g km", metres / 1000);
  else
    std::snprintf(label, sizeof label, "%g m", metres);
  cairo_set_font_size(cr, 12);
  cairo_text_extents_t extents;
  cairo_text_extents(cr, label, &extents);
  cairo_move_to(cr, x0 + (pixels - extents.x_advance) / 2, y0 - 8);
  cairo_show_text(cr, label);
}

// What the marks mean, in the lower left corner.
void drawMarkerKey(cairo_t* cr, const MapFrame& map) {
  const double x = map.left() + 14, y = map.bottom() - 18;
  cairo_set_source_rgba(cr, 1, 1, 1, 0.8);
  cairo_rectangle(cr, x - 8, y - 14, 230, 24);
  cairo_fill(cr);
  cairo_set_source_rgb(cr, 0.2, 0.2, 0.2);
  cairo_set_line_width(cr, 2);
  cairo_arc(cr, x, y - 2, 5, 0, 2 * M_PI);
  cairo_stroke(cr);
  cairo_arc(cr, x + 60, y - 2, 5, 0, 2 * M_PI);
  cairo_fill(cr);
  cairo_move_to(cr, x + 140, y - 8);
  cairo_line_to(cr, x + 146, y - 2);
  cairo_line_to(cr, x + 140, y + 4);
  cairo_line_to(cr, x + 134, y - 2);
  cairo_close_path(cr);
  cairo_fill(cr);
  cairo_set_font_size(cr, 12);
  cairo_move_to(cr, x + 10, y + 2);
  cairo_show_text(cr, "start");
  cairo_move_to(cr, x + 70, y + 2);
  cairo_show_text(cr, "end");
  cairo_move_to(cr, x + 152, y + 2);
  cairo_show_text(cr, "static");
}

void setColour(cairo_t* cr, const Rgb& c) { cairo_set_source_rgb(cr, c.r, c.g, c.b); }

void drawTrack(cairo_t* cr, const MapFrame& map, const PlatformTrack& track, const Rgb& colour) {
  const std::vector<const GeoPoint*> timed = timedPoints(track);
  const auto px = [&](const GeoPoint& p) { return map.x(p.lon * DEGREES); };
  const auto py = [&](const GeoPoint& p) { return map.y(p.lat * DEGREES); };
  setColour(cr, colour);
  const GeoPoint* end = nullptr;
  if (timed.empty()) {
    // A platform that stands still: a diamond.
    end = &track.points.back();
    const double x = px(*end), y = py(*end);
    cairo_move_to(cr, x, y - 6);
    cairo_line_to(cr, x + 6, y);
    cairo_line_to(cr, x, y + 6);
    cairo_line_to(cr, x - 6, y);
    cairo_close_path(cr);
    cairo_fill(cr);
  } else {
    cairo_set_line_width(cr, 2);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_move_to(cr, px(*timed.front()), py(*timed.front()));
    for (const GeoPoint* p : timed) cairo_line_to(cr, px(*p), py(*p));
    cairo_stroke(cr);
    // Start: an open circle; end: a filled one.
    cairo_set_line_width(cr, 2);
    cairo_arc(cr, px(*timed.front()), py(*timed.front()), 5, 0, 2 * M_PI);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_fill_preserve(cr);
    setColour(cr, colour);
    cairo_stroke(cr);
    end = timed.back();
    cairo_arc(cr, px(*end), py(*end), 5, 0, 2 * M_PI);
    cairo_fill(cr);
  }
  // The name right of the end point, or left of it where the picture ends;
  // a white halo keeps it readable over other tracks.
  const std::string name = terminalSafe(track.object->header.name);
  cairo_set_font_size(cr, 12);
  cairo_text_extents_t extents;
  cairo_text_extents(cr, name.c_str(), &extents);
  double textX = px(*end) + 8;
  if (textX + extents.x_advance > WIDTH - RIGHT - 4) textX = px(*end) - 8 - extents.x_advance;
  cairo_move_to(cr, textX, py(*end) - 8);
  cairo_text_path(cr, name.c_str());
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_set_line_width(cr, 3);
  cairo_stroke(cr);
  cairo_move_to(cr, textX, py(*end) - 8);
  setColour(cr, colour);
  cairo_show_text(cr, name.c_str());
}

std::string title(const ExportScene& scene) {
  const int year = scene.referenceYear;
  double first = std::numeric_limits<double>::infinity(), last = -first;
  for (const PlatformTrack& track : scene.tracks)
    for (const GeoPoint* p : timedPoints(track)) {
      first = std::min(first, p->time);
      last = std::max(last, p->time);
    }
  std::string name = scene.scenario->settings().fileName;
  const std::string::size_type slash = name.rfind('/');
  if (slash != std::string::npos) name = name.substr(slash + 1);
  std::string text = terminalSafe(name);
  if (first <= last)
    text += "   " + timeText(year, first) + " to " + timeText(year, last) + " (" + durationText(last - first) + ")";
  else
    text += "   no time-tagged positions";
  return text;
}

}  // namespace

bool writeQuickLookPlot(const std::string& path, const ExportScene& scene, std::string& error) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, WIDTH, HEIGHT);
  cairo_t* cr = cairo_create(surface);
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  cairo_select_font_face(cr, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);

  const MapFrame map(scene);
  drawGraticule(cr, map);
  for (std::size_t i = 0; i < scene.tracks.size(); ++i) drawTrack(cr, map, scene.tracks[i], platformColour(i));
  drawScaleBar(cr, map);

  drawMarkerKey(cr, map);

  cairo_set_source_rgb(cr, 0.1, 0.1, 0.1);
  cairo_set_font_size(cr, 16);
  cairo_move_to(cr, LEFT, 32);
  cairo_show_text(cr, title(scene).c_str());
  if (scene.tracks.empty()) {
    cairo_set_font_size(cr, 14);
    cairo_move_to(cr, LEFT + 20, TOP + 40);
    cairo_show_text(cr, "No platform positions to draw");
  }

  cairo_destroy(cr);
  const cairo_status_t status = cairo_surface_write_to_png(surface, path.c_str());
  cairo_surface_destroy(surface);
  if (status != CAIRO_STATUS_SUCCESS) error = cairo_status_to_string(status);
  return status == CAIRO_STATUS_SUCCESS;
}

}  // namespace RefHost
