#pragma once
// A group of lines of bearing on a platform: many bearings per time, and
// time-tagged draw styles.

#include <map>
#include <memory>

#include "document/ObjectUD.h"

class PlatformUD;

struct LOBDrawStyleUD {
  uint32_t color1 = 0;     // 0xRRGGBBAA
  uint32_t color2 = 0;
  uint32_t stipple1 = 0;
  uint32_t stipple2 = 0;
  uint32_t width = 1;      // pixels
};

class LOBGroupUD : public ObjectLAUD {
 public:
  LOBGroupUD(ScenarioUD* scenario, PlatformUD* host, std::unique_ptr<LOBGroupHeaderUD> header);

  LOBGroupHeaderUD* Header() const { return static_cast<LOBGroupHeaderUD*>(header_.get()); }
  LOBMotionUD* Motion() const { return static_cast<LOBMotionUD*>(motion_.get()); }
  std::string Desc() const override { return Header()->description; }
  void SetDesc(const std::string& text) override { Header()->description = text; }
  int Valid(const DataFormatUD& format) const override;

  int addState(double time, double range, double azimuth, double elevation);
  bool deleteState(double time, double range, double azimuth, double elevation) {
    return Motion()->deleteState(time, range, azimuth, elevation);
  }
  // 71 for a pixel width of 0.
  int addDrawStyle(double time, const LOBDrawStyleUD& style);
  bool deleteDrawStyle(double time) { return drawStyles_.erase(time) != 0; }
  void flushDrawStyles() { drawStyles_.clear(); }
  const std::map<double, LOBDrawStyleUD>& drawStyles() const { return drawStyles_; }

  void setHost(PlatformUD* host) { host_ = host; }
  PlatformUD* host() const { return host_; }
  int addToScenario(ScenarioUD* scenario);

 private:
  PlatformUD* host_;
  std::map<double, LOBDrawStyleUD> drawStyles_;
};
