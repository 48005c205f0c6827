#pragma once
// "PlatformData <id> <time> <position x3> [orientation] [speed | velocity x3]":
// one time-tagged state of a platform, in the platform's frame as it stands at
// this line. The columns are told apart by counting the tokens. This is the
// line of which big files are made, so stage 1 reads numbers in place and
// allocates nothing on the good path.

#include <string>
#include <vector>

#include "asi/PlatformParser.h"

namespace AsiInterface {

class PlatformData : public PlatformParser {
 public:
  explicit PlatformData(std::shared_ptr<ScenarioProvider> provider)
      : PlatformParser("PlatformData", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

  uint64_t id() const { return id_; }
  // The point as stage 1 built it, frame included.
  const PIData::PIPlatformPoint& point() const { return point_; }

 protected:
  // Tokens 3 to 5, with the range check of degree positions. False after
  // reporting.
  bool parsePosition_(const std::vector<std::string>& tokens);
  // Latitude and longitude (or x and y) alone; false when a column is
  // missing or no number.
  bool readHorizontal_(const std::vector<std::string>& tokens);
  // Euler angles or quaternion columns; sets the place of the speed column.
  // False after reporting.
  bool parseOrientation_(const std::vector<std::string>& tokens, const PlatformEntity& platform,
                         size_t& speedColumn);
  // A speed turned into a velocity, three velocity columns, or none. False
  // after reporting.
  bool parseVelocity_(const std::vector<std::string>& tokens, size_t speedColumn);
  // Velocity along yaw and pitch in the axes of the point's frame.
  bool velocityFromSpeed_(double speed);

  uint64_t id_ = 0;
  PIData::PIPlatformPoint point_;
};

}  // namespace AsiInterface
