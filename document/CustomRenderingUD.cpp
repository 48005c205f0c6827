#include "document/CustomRenderingUD.h"

#include "document/ErrorCodesUD.h"
#include "document/ScenarioUD.h"

CustomRenderingUD::CustomRenderingUD(ScenarioUD* scenario, PlatformUD* host,
                                     std::unique_ptr<CustomRenderingHeaderUD> header)
    : ObjectLAUD(scenario, OBJECT_CUSTOM_RENDERING, std::move(header)), host_(host) {}

int CustomRenderingUD::Valid(const DataFormatUD&) const {
  if (Header() == nullptr) return UD_NO_CR_HEADER;
  return Header()->renderer.empty() ? UD_NO_RENDERER : UD_NO_ERROR;
}

int CustomRenderingUD::AddToScenario(ScenarioUD* scenario) {
  scenario_ = scenario;
  return scenario->addCustomRendering(this);
}
