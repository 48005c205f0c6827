#pragma once
// Stage 1 of the commands that set the scenario as a whole: reference year,
// reference frame, angle unit, classification, description and wind. Most of
// them change the provider only; the frame reaches the host at the flush.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "asi/ScnCommandBase.h"

namespace AsiInterface {

// The engine consumes the file's Version line before the table exists; the
// class has nothing to do.
class Version : public ScnCommand {
 public:
  explicit Version(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("Version", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>&) override {}
};

class ReferenceYear : public ScnCommand {
 public:
  explicit ReferenceYear(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("ReferenceYear", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class CoordSystem : public ScnCommand {
 public:
  explicit CoordSystem(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("CoordSystem", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class RefLat : public ScnCommand {
 public:
  explicit RefLat(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("RefLat", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class RefLon : public ScnCommand {
 public:
  explicit RefLon(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("RefLon", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class RefAlt : public ScnCommand {
 public:
  explicit RefAlt(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("RefAlt", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

// "RefLLA": the frame changes only when all three values parse.
class ReferenceLla : public ScnCommand {
 public:
  explicit ReferenceLla(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("RefLLA", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class TangentPlaneOffset : public ScnCommand {
 public:
  explicit TangentPlaneOffset(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("TangentPlaneOffset", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

// "ReferenceTimeECI": seconds of the day; out of range keeps 0.
class ReferenceTimeEci : public ScnCommand {
 public:
  explicit ReferenceTimeEci(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("ReferenceTimeECI", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class MagneticVariance : public ScnCommand {
 public:
  explicit MagneticVariance(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("MagneticVariance", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class VerticalDatum : public ScnCommand {
 public:
  explicit VerticalDatum(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("VerticalDatum", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class DegreeAngles : public ScnCommand {
 public:
  explicit DegreeAngles(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("DegreeAngles", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

// Text with an optional colour (0xRRGGBBAA once parsed; white without one).
class Classification : public ScnCommand {
 public:
  explicit Classification(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("Classification", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

  const std::string& text() const { return text_; }
  uint32_t color() const { return color_; }

 protected:
  std::string text_;
  uint32_t color_ = 0xFFFFFFFF;
};

// The numeric classification of old files: a level number picks a banner
// text and colour. The host-bound class of the same name reads the text form
// instead (see AsiReader::ClassificationDeprecated).
class ClassificationDeprecated : public Classification {
 public:
  explicit ClassificationDeprecated(std::shared_ptr<ScenarioProvider> provider)
      : Classification(std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;
};

class ScenarioInfo : public ScnCommand {
 public:
  explicit ScenarioInfo(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("ScenarioInfo", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  std::string text_;
};

class WindSpeed : public ScnCommand {
 public:
  explicit WindSpeed(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("WindSpeed", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  double value_ = 0.0;
};

// Always degrees in the file, whatever DegreeAngles says; radians here.
class WindAngle : public ScnCommand {
 public:
  explicit WindAngle(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("WindAngle", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  double value_ = 0.0;
};

}  // namespace AsiInterface
