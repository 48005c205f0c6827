// A whole ASI file through the read engine and the keyword table: the
// platform commands together with the scenario commands that set the frame.

#include "AsiTestSupport.h"
#include "asi/LliResolver.h"

using namespace AsiTest;

namespace {

const double DEG = 0.017453292519943295;

class PlatformFileTest : public AsiFileFixture {
 protected:
  const RefHost::HostObject* hostPlatform(const std::string& name) {
    return host_->scenario().find(host_->scenario().findByName(RefHost::KIND_PLATFORM, name));
  }

  AsiInterface::LliResolver resolver_{"plat"};
};

const char* const SHIP_FILE =
    "Version 24\n"
    "CoordSystem LLA\n"
    "RefLLA 30 -80 0\n"
    "DegreeAngles 1\n"
    "PlatformType 1 ship\n"
    "PLATFORMID 1\n"
    "platformname 1 \"Blue Ship\"\n"
    "\"PlatformIcon\" 1 ship.opt\n"
    "PlatformData 1 0 30 -80 0 90 0 0 10\n"
    "PlatformData 1 10 30.001 -80 0 90 0 0 10\n";

}  // namespace

TEST_F(PlatformFileTest, AFileDefinesItsFrameAndCreatesItsPlatform) {
  EXPECT_EQ(0, read("plat_ship.asi", SHIP_FILE, resolver_));
  EXPECT_TRUE(messages_.messages.empty()) << messages_.texts()[0];
  const auto& origin = host_->scenario().settings().originLLA;
  ASSERT_TRUE(origin.has_value());
  EXPECT_NEAR(30 * DEG, (*origin)[0], 1e-12);
  EXPECT_NEAR(-80 * DEG, (*origin)[1], 1e-12);

  const RefHost::HostObject* ship = hostPlatform("Blue Ship");
  ASSERT_NE(nullptr, ship);
  EXPECT_EQ("ship.opt", ship->header.icon);
  EXPECT_EQ(1u, ship->data(RefHost::SERIES_CATEGORY).count());
  const RefHost::Series& points = ship->data(RefHost::SERIES_POINTS);
  ASSERT_EQ(2u, points.count());
  const double* second = points.record(1);
  EXPECT_DOUBLE_EQ(10.0, second[0]);
  EXPECT_NEAR(30.001 * DEG, second[1], 1e-12);
  // Heading east at 10 m/s in east-north-up axes.
  EXPECT_NEAR(10.0, second[7], 1e-9);
  EXPECT_NEAR(0.0, second[8], 1e-9);
  EXPECT_TRUE(parsers_.back()->hasNonStaticPlatforms());
}
