#pragma once
// A custom rendering object on a platform: a named renderer and colours.

#include <memory>

#include "document/ObjectUD.h"

class PlatformUD;

class CustomRenderingUD : public ObjectLAUD {
 public:
  CustomRenderingUD(ScenarioUD* scenario, PlatformUD* host, std::unique_ptr<CustomRenderingHeaderUD> header);

  CustomRenderingHeaderUD* Header() const { return static_cast<CustomRenderingHeaderUD*>(header_.get()); }
  PlatformUD* host() const { return host_; }
  std::string Desc() const override { return Header()->desc; }
  void SetDesc(const std::string& text) override { Header()->desc = text; }
  // 74 without a renderer.
  int Valid(const DataFormatUD& format) const override;
  int AddToScenario(ScenarioUD* scenario);

 private:
  PlatformUD* host_;
};
