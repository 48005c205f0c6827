#include "document/LOBGroupUD.h"

#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"
#include "document/ScenarioUD.h"

LOBGroupUD::LOBGroupUD(ScenarioUD* scenario, PlatformUD* host, std::unique_ptr<LOBGroupHeaderUD> header)
    : ObjectLAUD(scenario, OBJECT_LOB_GROUP, std::move(header)), host_(host) {
  SetMotion(std::make_unique<LOBMotionUD>());
}

int LOBGroupUD::Valid(const DataFormatUD& format) const { return Motion()->Valid(format); }

int LOBGroupUD::addState(double time, double range, double azimuth, double elevation) {
  if (udIsBadValue(azimuth) || udIsBadAngle(azimuth)) return UD_BAD_LOB_AZIMUTH;
  if (udIsBadValue(elevation) || udIsBadElevAngle(elevation)) return UD_BAD_LOB_ELEVATION;
  if (udIsBadValue(range)) return UD_BAD_LOB_RANGE;
  if (!udIsFinite(time) || (time < 0.0 && time != -1.0)) return UD_BAD_TIME_VALUE;
  Motion()->addState(LOBStateUD(time, range, azimuth, elevation));
  return UD_NO_ERROR;
}

int LOBGroupUD::addDrawStyle(double time, const LOBDrawStyleUD& style) {
  if (style.width == 0) return UD_BAD_LOB_PIXEL_WIDTH;
  drawStyles_[time] = style;
  return UD_NO_ERROR;
}

int LOBGroupUD::addToScenario(ScenarioUD* scenario) {
  scenario_ = scenario;
  return scenario->addLOBGroup(this);
}
