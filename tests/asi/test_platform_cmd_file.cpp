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

TEST_F(PlatformFileTest, LinesBeyondThePoolEachReadAfreshAfterBadOnes) {
  // More data lines than the engine has items, so each item carries several
  // lines in turn; every 497th line has a bad latitude, and a later line in
  // the same item must inherit neither its failure nor its values.
  const int lines = 12000;
  std::string text = SHIP_FILE;
  for (int i = 1; i <= lines; ++i) {
    const bool bad = i % 497 == 0;
    text += "PlatformData 1 " + std::to_string(100 + i) + (bad ? " north" : " 30.5") + " -80 " +
            std::to_string(i) + " 90 0 0 10\n";
  }
  EXPECT_EQ(0, read("plat_pool.asi", text, resolver_));
  const int bad = lines / 497;
  ASSERT_EQ(static_cast<size_t>(bad), messages_.messages.size());
  // The header holds 10 lines; the data line i is file line 10 + i.
  EXPECT_EQ(10u + 497u, messages_.messages.front().line);
  EXPECT_EQ("Line 11938 PlatformData: Invalid platform position", messages_.messages.back().text);

  const RefHost::Series& points = hostPlatform("Blue Ship")->data(RefHost::SERIES_POINTS);
  ASSERT_EQ(static_cast<size_t>(2 + lines - bad), points.count());
  for (size_t i = 2; i < points.count(); ++i) {
    const double* point = points.record(i);
    // Time and altitude both name the data line.
    ASSERT_DOUBLE_EQ(point[0] - 100.0, point[3]) << "point " << i;
    ASSERT_NEAR(30.5 * DEG, point[1], 1e-12) << "point " << i;
  }
}
