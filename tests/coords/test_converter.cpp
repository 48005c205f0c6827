// CoordinateConverter through its public interface: the origin rules, the
// dispatch between every pair of systems, the flat-earth and tangent-plane
// frames, ECI, what travels with a position, and the failure behaviour.
// Physical checks (finite differences, known geometry) stand in for a
// reference where GeographicLib has no counterpart.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "core/Coordinate.h"
#include "core/CoordinateConverter.h"
#include "core/Notify.h"
#include "core/VectorMath.h"

namespace {

using orvCore::Coordinate;
using orvCore::CoordinateConverter;
using orvCore::CoordinateSystem;
using orvCore::Vec3;

constexpr double DEG = M_PI / 180.0;
const std::vector<CoordinateSystem> ALL_SYSTEMS = {orvCore::NED,  orvCore::NWU, orvCore::ENU,   orvCore::LLA,
                                                   orvCore::ECEF, orvCore::ECI, orvCore::XEAST, orvCore::GTP};

class CaptureHandler : public orvNotify::NotifyHandler {
 public:
  void notify(const std::string& text) override { received.push_back(text); }
  std::vector<std::string> received;
};

class ConverterTest : public ::testing::Test {
 protected:
  void SetUp() override {
    previous_ = orvNotify::notifyHandler(orvNotify::ERROR_LEVEL);
    capture_ = std::make_shared<CaptureHandler>();
    orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, capture_);
  }
  void TearDown() override { orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, previous_); }

  const std::vector<std::string>& messages() const { return capture_->received; }
  std::string lastMessage() const { return capture_->received.empty() ? "" : capture_->received.back(); }

  static void expectCleared(const Coordinate& c) {
    EXPECT_EQ(c.system(), orvCore::NONE);
    EXPECT_EQ(c.position(), Vec3());
    EXPECT_FALSE(c.hasOrientation());
    EXPECT_FALSE(c.hasVelocity());
    EXPECT_FALSE(c.hasAcceleration());
    EXPECT_EQ(c.elapsedEciTime(), 0.0);
  }

  // Geodetic positions within 1e-12 rad and 1e-8 m.
  static void expectSamePoint(const Vec3& got, const Vec3& want) {
    EXPECT_NEAR(got.lat(), want.lat(), 1e-12);
    EXPECT_NEAR(got.lon(), want.lon(), 1e-12);
    EXPECT_NEAR(got.alt(), want.alt(), 1e-8);
  }

  // Something with every field set, to see what a failure leaves behind.
  static Coordinate filled() {
    return Coordinate(orvCore::ECEF, Vec3(1, 2, 3), Vec3(0.1, 0.2, 0.3), Vec3(4, 5, 6), Vec3(7, 8, 9), 42.0);
  }

  std::shared_ptr<orvNotify::NotifyHandler> previous_;
  std::shared_ptr<CaptureHandler> capture_;
};

// --- Coordinate -------------------------------------------------------------

TEST(CoordinateTest, SettersRaiseFlagsAndClearResetsThem) {
  Coordinate c(orvCore::LLA, Vec3(0.1, 0.2, 30.0), 12.5);
  EXPECT_FALSE(c.hasOrientation() || c.hasVelocity() || c.hasAcceleration());
  c.setVelocity(1, 2, 3);
  EXPECT_TRUE(c.hasVelocity());
  EXPECT_FALSE(c.hasOrientation() || c.hasAcceleration());

  Coordinate full(orvCore::ECI, Vec3(1, 2, 3), Vec3(4, 5, 6), Vec3(7, 8, 9), Vec3(1, 1, 1), 99.0);
  EXPECT_TRUE(full.hasOrientation() && full.hasVelocity() && full.hasAcceleration());
  full.clear(orvCore::NED, 5.0);
  EXPECT_EQ(full.system(), orvCore::NED);
  EXPECT_EQ(full.elapsedEciTime(), 5.0);
  EXPECT_EQ(full.velocity(), Vec3());
  EXPECT_FALSE(full.hasOrientation() || full.hasVelocity() || full.hasAcceleration());
}

// --- origin -------------------------------------------------------------------

TEST_F(ConverterTest, OriginIsWrappedAndClamped) {
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(30.0, 190.0, 10.0);
  EXPECT_NEAR(conv.referenceLon(), -170.0 * DEG, 1e-15);
  conv.setReferenceOrigin(100.0 * DEG, -3.0 * M_PI, 0.0);  // clamped, not folded
  EXPECT_EQ(conv.referenceLat(), M_PI_2);
  EXPECT_NEAR(std::fabs(conv.referenceLon()), M_PI, 1e-15);
  conv.setReferenceOrigin(Vec3(1.5 * M_PI, 0.0, 0.0));  // wraps to -pi/2
  EXPECT_NEAR(conv.referenceLat(), -M_PI_2, 1e-15);
  EXPECT_EQ(conv.originState(), CoordinateConverter::ORIGIN_DEGENERATE);
  EXPECT_TRUE(messages().empty());
}

TEST_F(ConverterTest, RadiiMatchTheEllipsoidsCurvature) {
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(0.0, 0.0, 0.0);
  EXPECT_NEAR(conv.lonRadius(), orvCore::WGS_A, 1e-6);
  EXPECT_NEAR(conv.latRadius(), orvCore::WGS_A * orvCore::WGS_ONE_MINUS_E2, 1e-6);
  // Elsewhere, against the length of a small arc of the meridian and of the
  // parallel, measured in ECEF.
  for (double latDeg : {-75.0, -20.0, 33.0, 60.0}) {
    conv.setReferenceOriginDegrees(latDeg, 10.0, 0.0);
    const double d = 1e-6;
    Vec3 a, b;
    CoordinateConverter::convertGeodeticPosToEcef(Vec3(latDeg * DEG - d, 0.0, 0.0), a);
    CoordinateConverter::convertGeodeticPosToEcef(Vec3(latDeg * DEG + d, 0.0, 0.0), b);
    EXPECT_NEAR(conv.latRadius(), (b - a).length() / (2 * d), 1e-3);
    CoordinateConverter::convertGeodeticPosToEcef(Vec3(latDeg * DEG, -d, 0.0), a);
    CoordinateConverter::convertGeodeticPosToEcef(Vec3(latDeg * DEG, d, 0.0), b);
    EXPECT_NEAR(conv.lonRadius(), (b - a).length() / (2 * d), 1e-3);
  }
}

TEST_F(ConverterTest, OriginStateNearThePole) {
  CoordinateConverter conv;
  EXPECT_EQ(conv.originState(), CoordinateConverter::ORIGIN_NOT_SET);
  conv.setReferenceOrigin(M_PI_2 - 2e-5, 0.0, 0.0);
  EXPECT_EQ(conv.originState(), CoordinateConverter::ORIGIN_SET);
  conv.setReferenceOrigin(M_PI_2 - 0.5e-5, 0.0, 0.0);
  EXPECT_EQ(conv.originState(), CoordinateConverter::ORIGIN_DEGENERATE);
  conv.setReferenceOrigin(-M_PI_2, 0.0, 0.0);
  EXPECT_EQ(conv.originState(), CoordinateConverter::ORIGIN_DEGENERATE);
  conv.setReferenceOrigin(0.3, 0.0, 0.0);
  EXPECT_EQ(conv.originState(), CoordinateConverter::ORIGIN_SET);
}

TEST_F(ConverterTest, AccessorsWithoutOriginReportAndGoOn) {
  const CoordinateConverter conv;
  EXPECT_EQ(conv.referenceLat(), 0.0);
  EXPECT_EQ(conv.referenceLon(), 0.0);
  EXPECT_EQ(conv.referenceAlt(), 0.0);
  EXPECT_EQ(conv.referenceOrigin(), Vec3());
  EXPECT_EQ(conv.lonRadius(), 0.0);
  EXPECT_EQ(conv.latRadius(), 0.0);
  const std::vector<std::string> expected = {
      "ERROR:  CoordinateConverter reference latitude has not been set\n",
      "ERROR:  CoordinateConverter reference longitude has not been set\n",
      "ERROR:  CoordinateConverter reference altitude has not been set\n",
      "ERROR:  CoordinateConverter reference origin has not been set\n",
      "ERROR:  CoordinateConverter longitude radius has not been set\n",
      "ERROR:  CoordinateConverter latitude radius has not been set\n"};
  EXPECT_EQ(messages(), expected);
}

// --- convert: the frame of the call ---------------------------------------------

TEST_F(ConverterTest, SameObjectIsRefusedAndLeftAlone) {
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(10, 20, 0);
  Coordinate c = filled();
  EXPECT_EQ(conv.convert(c, c, orvCore::LLA), 1);
  EXPECT_EQ(c.system(), orvCore::ECEF);
  EXPECT_EQ(c.position(), Vec3(1, 2, 3));
  EXPECT_EQ(c.elapsedEciTime(), 42.0);
  EXPECT_TRUE(c.hasAcceleration());
  EXPECT_EQ(messages().size(), 1u);
}

TEST_F(ConverterTest, SameSystemCopiesEverythingEvenWithoutOrigin) {
  const CoordinateConverter conv;
  Coordinate out;
  EXPECT_EQ(conv.convert(filled(), out, orvCore::ECEF), 0);
  EXPECT_EQ(out.position(), Vec3(1, 2, 3));
  EXPECT_EQ(out.orientation(), Vec3(0.1, 0.2, 0.3));
  EXPECT_EQ(out.velocity(), Vec3(4, 5, 6));
  EXPECT_EQ(out.acceleration(), Vec3(7, 8, 9));
  EXPECT_EQ(out.elapsedEciTime(), 42.0);
  EXPECT_TRUE(out.hasOrientation() && out.hasVelocity() && out.hasAcceleration());

  Coordinate flat(orvCore::NED, Vec3(5, 6, 7));
  Coordinate flatOut = filled();
  EXPECT_EQ(conv.convert(flat, flatOut, orvCore::NED), 0);
  EXPECT_EQ(flatOut.position(), Vec3(5, 6, 7));
  EXPECT_FALSE(flatOut.hasVelocity());
  EXPECT_TRUE(messages().empty());
}

TEST_F(ConverterTest, UnknownSystemsFailAndClear) {
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(10, 20, 0);
  Coordinate out = filled();
  EXPECT_EQ(conv.convert(Coordinate(orvCore::NONE, Vec3(1, 1, 1)), out, orvCore::LLA), 1);
  expectCleared(out);
  out = filled();
  EXPECT_EQ(conv.convert(Coordinate(static_cast<CoordinateSystem>(9), Vec3(1, 1, 1)), out, orvCore::LLA), 1);
  expectCleared(out);
  out = filled();
  EXPECT_EQ(conv.convert(Coordinate(orvCore::LLA, Vec3()), out, static_cast<CoordinateSystem>(9)), 1);
  expectCleared(out);
  out = filled();
  EXPECT_EQ(conv.convert(Coordinate(orvCore::LLA, Vec3()), out, orvCore::NONE), 1);
  expectCleared(out);
  EXPECT_EQ(messages().size(), 4u);
}

// --- ECEF and LLA ---------------------------------------------------------------

TEST_F(ConverterTest, EarthCentreAndAxisPoints) {
  Vec3 lla(1, 1, 1);
  EXPECT_EQ(CoordinateConverter::convertEcefToGeodeticPos(Vec3(0, 0, 0), lla), 0);
  EXPECT_EQ(lla.lat(), 0.0);
  EXPECT_EQ(lla.alt(), -orvCore::WGS_B);

  CoordinateConverter::convertEcefToGeodeticPos(Vec3(0, 0, -(orvCore::WGS_B + 100.0)), lla);
  EXPECT_EQ(lla.lat(), -M_PI_2);
  EXPECT_NEAR(lla.alt(), 100.0, 1e-8);
  CoordinateConverter::convertEcefToGeodeticPos(Vec3(0, 0, orvCore::WGS_B - 50.0), lla);
  EXPECT_EQ(lla.lat(), M_PI_2);
  EXPECT_NEAR(lla.alt(), -50.0, 1e-8);

  // On the y axis the longitude is exactly +-pi/2.
  CoordinateConverter::convertEcefToGeodeticPos(Vec3(0, orvCore::WGS_A, 0), lla);
  EXPECT_EQ(lla.lon(), M_PI_2);
  CoordinateConverter::convertEcefToGeodeticPos(Vec3(0, -orvCore::WGS_A, 0), lla);
  EXPECT_EQ(lla.lon(), -M_PI_2);

  // The same through convert, with no origin at all.
  const CoordinateConverter conv;
  Coordinate out;
  EXPECT_EQ(conv.convert(Coordinate(orvCore::ECEF, Vec3()), out, orvCore::LLA), 0);
  EXPECT_EQ(out.system(), orvCore::LLA);
  EXPECT_EQ(out.position().alt(), -orvCore::WGS_B);
  EXPECT_TRUE(messages().empty());
}

TEST_F(ConverterTest, NonFiniteInputFailsWithoutHarm) {
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(10, 20, 0);
  const double nan = std::nan("");
  Coordinate out = filled();
  EXPECT_EQ(conv.convert(Coordinate(orvCore::ECEF, Vec3(nan, 1.0, 2.0)), out, orvCore::LLA), 1);
  expectCleared(out);
  EXPECT_EQ(lastMessage(), "ERROR:  convertEcefToGeodetic, no geodetic solution for the position: ECEF\n");
  // Through a longer path the failure still clears the output.
  out = filled();
  EXPECT_EQ(conv.convert(Coordinate(orvCore::ECI, Vec3(HUGE_VAL, 0.0, 0.0), 100.0), out, orvCore::NED), 1);
  expectCleared(out);
  // Where the answer is merely not finite, nothing crashes either.
  for (CoordinateSystem from : ALL_SYSTEMS) {
    for (CoordinateSystem to : ALL_SYSTEMS) {
      Coordinate src(from, Vec3(nan, HUGE_VAL, -HUGE_VAL), Vec3(nan, 0, 0), Vec3(HUGE_VAL, 0, 0));
      conv.convert(src, out, to);
    }
  }
}

TEST_F(ConverterTest, GeodeticVelocityMatchesTheMotionOfThePoint) {
  // Move a point along its local east-north-up velocity for a short time and
  // compare the ECEF displacement with the converted velocity.
  const CoordinateConverter conv;
  for (double latDeg : {-70.0, 0.0, 45.0, 89.0}) {
    const Vec3 lla(latDeg * DEG, 2.0, 1500.0);
    const Vec3 enu(120.0, -35.0, 8.0);
    Coordinate out;
    ASSERT_EQ(conv.convert(Coordinate(orvCore::LLA, lla, Vec3(), enu), out, orvCore::ECEF), 0);

    const double s = std::sin(lla.lat());
    const double n = orvCore::WGS_A / std::sqrt(1 - orvCore::WGS_E2 * s * s);
    const double m = n * orvCore::WGS_ONE_MINUS_E2 / (1 - orvCore::WGS_E2 * s * s);
    const double dt = 1e-3;
    const Vec3 moved(lla.lat() + enu.y() * dt / (m + lla.alt()),
                     lla.lon() + enu.x() * dt / ((n + lla.alt()) * std::cos(lla.lat())), lla.alt() + enu.z() * dt);
    Vec3 p0, p1;
    CoordinateConverter::convertGeodeticPosToEcef(lla, p0);
    CoordinateConverter::convertGeodeticPosToEcef(moved, p1);
    EXPECT_TRUE(orvCore::v3AreEqual(out.velocity(), (p1 - p0) * (1.0 / dt), 1e-3)) << latDeg;
    EXPECT_NEAR(out.velocity().length(), enu.length(), 1e-9);
  }
}

// --- flat-earth frames ----------------------------------------------------------

TEST_F(ConverterTest, FlatFramesScaleTheDifferencesByTheRadii) {
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(40.0, -75.0, 100.0);
  const Coordinate lla(orvCore::LLA, Vec3(40.01 * DEG, -74.98 * DEG, 350.0), Vec3(1.0, 0.1, 0.2),
                       Vec3(3.0, 4.0, 5.0), Vec3(0.3, 0.4, 0.5), 7.0);
  const double north = conv.latRadius() * 0.01 * DEG;
  const double east = conv.lonRadius() * 0.02 * DEG;
  Coordinate ned, nwu, enu;
  ASSERT_EQ(conv.convert(lla, ned, orvCore::NED), 0);
  ASSERT_EQ(conv.convert(lla, nwu, orvCore::NWU), 0);
  ASSERT_EQ(conv.convert(lla, enu, orvCore::ENU), 0);
  EXPECT_TRUE(orvCore::v3AreEqual(ned.position(), Vec3(north, east, -250.0), 1e-8));
  EXPECT_TRUE(orvCore::v3AreEqual(nwu.position(), Vec3(north, -east, 250.0), 1e-8));
  EXPECT_TRUE(orvCore::v3AreEqual(enu.position(), Vec3(east, north, 250.0), 1e-8));
  // The LLA velocity is east, north, up; each frame takes its own order.
  EXPECT_EQ(ned.velocity(), Vec3(4.0, 3.0, -5.0));
  EXPECT_EQ(nwu.velocity(), Vec3(4.0, -3.0, 5.0));
  EXPECT_EQ(enu.velocity(), Vec3(3.0, 4.0, 5.0));
  EXPECT_EQ(ned.acceleration(), Vec3(0.4, 0.3, -0.5));
  // Orientation and ECI time travel unchanged.
  EXPECT_EQ(ned.orientation(), Vec3(1.0, 0.1, 0.2));
  EXPECT_EQ(nwu.elapsedEciTime(), 7.0);

  // Swaps between the frames agree with the direct conversions.
  for (CoordinateSystem from : {orvCore::NED, orvCore::NWU, orvCore::ENU}) {
    const Coordinate& src = from == orvCore::NED ? ned : (from == orvCore::NWU ? nwu : enu);
    for (CoordinateSystem to : {orvCore::NED, orvCore::NWU, orvCore::ENU}) {
      const Coordinate& want = to == orvCore::NED ? ned : (to == orvCore::NWU ? nwu : enu);
      Coordinate got;
      ASSERT_EQ(conv.convert(src, got, to), 0);
      EXPECT_EQ(got.system(), to);
      EXPECT_TRUE(orvCore::v3AreEqual(got.position(), want.position(), 1e-9));
      EXPECT_TRUE(orvCore::v3AreEqual(got.velocity(), want.velocity(), 0.0));
      EXPECT_TRUE(orvCore::v3AreEqual(got.acceleration(), want.acceleration(), 0.0));
    }
    Coordinate back;
    ASSERT_EQ(conv.convert(src, back, orvCore::LLA), 0);
    EXPECT_TRUE(orvCore::v3AreEqual(back.position(), lla.position(), 1e-12));
    EXPECT_TRUE(orvCore::v3AreEqual(back.velocity(), lla.velocity(), 0.0));
  }
  EXPECT_TRUE(messages().empty());
}

TEST_F(ConverterTest, DateLineDifferenceWraps) {
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(0.0, 179.0, 0.0);
  Coordinate enu;
  ASSERT_EQ(conv.convert(Coordinate(orvCore::LLA, Vec3(0.0, -179.0 * DEG, 0.0)), enu, orvCore::ENU), 0);
  EXPECT_NEAR(enu.position().x(), conv.lonRadius() * 2.0 * DEG, 1e-6);
  EXPECT_GT(enu.position().x(), 0.0);
  EXPECT_LT(enu.position().x(), 300000.0);

  // Back across the line, the longitude comes out wrapped.
  Coordinate lla;
  ASSERT_EQ(conv.convert(Coordinate(orvCore::ENU, Vec3(400000.0, 0.0, 0.0)), lla, orvCore::LLA), 0);
  // 400 km east of 179 E on the equator is about 3.59 degrees further.
  EXPECT_NEAR(lla.position().lon(), (179.0 + 400000.0 / orvCore::WGS_A / DEG - 360.0) * DEG, 1e-12);
}

TEST_F(ConverterTest, FailuresReportClearAndLeaveTheRestWorking) {
  const CoordinateConverter none;
  CoordinateConverter pole;
  pole.setReferenceOriginDegrees(90.0, 0.0, 0.0);
  const Coordinate lla(orvCore::LLA, Vec3(89.0 * DEG, 0.5, 10.0));
  const Coordinate ecef(orvCore::ECEF, Vec3(1e5, 0, 6.4e6));
  const Coordinate ned(orvCore::NED, Vec3(1, 2, 3)), nwu(orvCore::NWU, Vec3(1, 2, 3)), enu(orvCore::ENU, Vec3(1, 2, 3));
  const Coordinate xeast(orvCore::XEAST, Vec3(1, 2, 3));
  struct Case {
    const CoordinateConverter& conv;
    const Coordinate& in;
    CoordinateSystem to;
    const char* message;
  };
  const Case cases[] = {
      {none, lla, orvCore::NED, "convertGeodeticToFlat, reference origin not set: NED"},
      {none, enu, orvCore::LLA, "convertFlatToGeodetic, reference origin not set: ENU"},
      {none, ecef, orvCore::NWU, "convertEcefToFlat, reference origin not set: NWU"},
      {none, nwu, orvCore::ECEF, "convertFlatToEcef, reference origin not set: NWU"},
      {none, lla, orvCore::XEAST, "convertGeodeticToXEast, reference origin not set: LLA"},
      {none, xeast, orvCore::LLA, "convertXEastToGeodetic, reference origin not set: XEAST"},
      {none, xeast, orvCore::ECI, "convertXEastToEcef, reference origin not set: XEAST"},
      {none, ecef, orvCore::GTP, "convertEcefToXEast, reference origin not set: ECEF"},
      {pole, lla, orvCore::NED, "convertGeodeticToFlat, degenerate reference origin at/near pole: NED"},
      {pole, nwu, orvCore::LLA, "convertFlatToGeodetic, degenerate reference origin at/near pole: NWU"},
      {pole, ecef, orvCore::ENU, "convertEcefToFlat, degenerate reference origin at/near pole: ENU"},
      {pole, enu, orvCore::ECEF, "convertFlatToEcef, degenerate reference origin at/near pole: ENU"},
      {pole, ned, orvCore::GTP, "convertFlatToEcef, degenerate reference origin at/near pole: NED"},
  };
  for (const Case& c : cases) {
    Coordinate out = filled();
    EXPECT_EQ(c.conv.convert(c.in, out, c.to), 1) << c.message;
    expectCleared(out);
    EXPECT_EQ(lastMessage(), std::string("ERROR:  ") + c.message + "\n");
  }
  const size_t failures = messages().size();

  // Geodetic, ECEF and ECI need no origin; with a degenerate one the tangent
  // planes still work too.
  Coordinate out, back;
  EXPECT_EQ(none.convert(lla, out, orvCore::ECI), 0);
  EXPECT_EQ(none.convert(out, back, orvCore::LLA), 0);
  expectSamePoint(back.position(), lla.position());
  EXPECT_EQ(pole.convert(lla, out, orvCore::GTP), 0);
  EXPECT_EQ(pole.convert(out, back, orvCore::LLA), 0);
  expectSamePoint(back.position(), lla.position());
  EXPECT_EQ(messages().size(), failures);
}

TEST_F(ConverterTest, StaticOperationsCheckTheirInput) {
  struct Case {
    int (*op)(const Coordinate&, Coordinate&);
    CoordinateSystem wrong;
    const char* message;
  };
  const Case cases[] = {
      {&CoordinateConverter::swapNedEnu, orvCore::NWU, "swapNedEnu, invalid coordinate system: NWU"},
      {&CoordinateConverter::swapNedNwu, orvCore::ENU, "swapNedNwu, invalid coordinate system: ENU"},
      {&CoordinateConverter::convertEnuToNwu, orvCore::NED, "convertEnuToNwu, invalid coordinate system: NED"},
      {&CoordinateConverter::convertNwuToEnu, orvCore::LLA, "convertNwuToEnu, invalid coordinate system: LLA"},
      {&CoordinateConverter::convertEciToEcef, orvCore::ECEF, "convertEciToEcef, invalid coordinate system: ECEF"},
      {&CoordinateConverter::convertEcefToEci, orvCore::ECI, "convertEcefToEci, invalid coordinate system: ECI"},
      {[](const Coordinate& i, Coordinate& o) { return CoordinateConverter::convertEcefToGeodetic(i, o); },
       orvCore::LLA, "convertEcefToGeodetic, invalid coordinate system: LLA"},
      {[](const Coordinate& i, Coordinate& o) { return CoordinateConverter::convertGeodeticToEcef(i, o); },
       orvCore::GTP, "convertGeodeticToEcef, invalid coordinate system: GTP"},
  };
  for (const Case& c : cases) {
    Coordinate out = filled();
    EXPECT_EQ(c.op(Coordinate(c.wrong, Vec3(1, 2, 3)), out), 1);
    expectCleared(out);
    EXPECT_EQ(lastMessage(), std::string("ERROR:  ") + c.message + "\n");
  }

  // The swaps work in place.
  Coordinate ned(orvCore::NED, Vec3(1, 2, 3), Vec3(0.5, 0, 0), Vec3(4, 5, 6));
  EXPECT_EQ(CoordinateConverter::swapNedEnu(ned, ned), 0);
  EXPECT_EQ(ned.system(), orvCore::ENU);
  EXPECT_EQ(ned.position(), Vec3(2, 1, -3));
  EXPECT_EQ(ned.velocity(), Vec3(5, 4, -6));
  EXPECT_EQ(ned.orientation(), Vec3(0.5, 0, 0));
}

// --- ECI ------------------------------------------------------------------------

TEST_F(ConverterTest, EciTurnsWithTheEarth) {
  const CoordinateConverter conv;
  const Vec3 ecefPos(orvCore::WGS_A, 0.0, 1000.0);
  // At time 0 the frames coincide.
  Coordinate eci;
  ASSERT_EQ(conv.convert(Coordinate(orvCore::ECEF, ecefPos, 0.0), eci, orvCore::ECI), 0);
  EXPECT_EQ(eci.position(), ecefPos);
  // A quarter turn later the earth-fixed point has moved to +Y in inertial space.
  const double quarter = M_PI_2 / orvCore::EARTH_ROTATION_RATE;
  ASSERT_EQ(conv.convert(Coordinate(orvCore::ECEF, ecefPos, quarter), eci, orvCore::ECI), 0);
  EXPECT_TRUE(orvCore::v3AreEqual(eci.position(), Vec3(0.0, orvCore::WGS_A, 1000.0), 1e-6));
  EXPECT_EQ(eci.elapsedEciTime(), quarter);
  EXPECT_FALSE(eci.hasVelocity());

  // A point at rest on the earth moves east at omega * r in inertial space.
  Coordinate rest(orvCore::ECEF, ecefPos, 0.0);
  rest.setVelocity(0, 0, 0);
  ASSERT_EQ(conv.convert(rest, eci, orvCore::ECI), 0);
  EXPECT_TRUE(orvCore::v3AreEqual(eci.velocity(), Vec3(0, orvCore::EARTH_ROTATION_RATE * orvCore::WGS_A, 0), 1e-12));
}

TEST_F(ConverterTest, EciVelocityAndAccelerationMatchFiniteDifferences) {
  // An inertial trajectory r(t) = r0 + v0 t + a0 t^2 / 2, seen in ECEF: the
  // converted velocity and acceleration must be the derivatives of the
  // converted positions.
  const CoordinateConverter conv;
  const Vec3 r0(5.0e6, -3.0e6, 2.0e6), v0(1200.0, 6500.0, -300.0), a0(-4.0, 2.0, -7.0);
  const double t = 5000.0, h = 0.5;
  auto ecefAt = [&](double tt) {
    const Vec3 r = r0 + v0 * tt + a0 * (0.5 * tt * tt);
    const Vec3 v = v0 + a0 * tt;
    Coordinate out;
    EXPECT_EQ(conv.convert(Coordinate(orvCore::ECI, r, Vec3(), v, a0, tt), out, orvCore::ECEF), 0);
    return out;
  };
  const Coordinate before = ecefAt(t - h), now = ecefAt(t), after = ecefAt(t + h);
  const Vec3 vel = (after.position() - before.position()) * (1.0 / (2 * h));
  const Vec3 acc = (after.position() - now.position() * 2.0 + before.position()) * (1.0 / (h * h));
  EXPECT_TRUE(orvCore::v3AreEqual(now.velocity(), vel, 1e-3));
  EXPECT_TRUE(orvCore::v3AreEqual(now.acceleration(), acc, 1e-3));
  EXPECT_EQ(now.elapsedEciTime(), t);

  // And back to ECI unchanged.
  Coordinate back;
  ASSERT_EQ(conv.convert(now, back, orvCore::ECI), 0);
  EXPECT_TRUE(orvCore::v3AreEqual(back.position(), r0 + v0 * t + a0 * (0.5 * t * t), 1e-6));
  EXPECT_TRUE(orvCore::v3AreEqual(back.velocity(), v0 + a0 * t, 1e-9));
  EXPECT_TRUE(orvCore::v3AreEqual(back.acceleration(), a0, 1e-9));
}

TEST_F(ConverterTest, EciOrientationOfAnEarthFixedBodyTurnsWithTheEarth) {
  const CoordinateConverter conv;
  const double t = 1000.0;
  Coordinate eci;
  ASSERT_EQ(conv.convert(Coordinate(orvCore::ECEF, Vec3(7e6, 0, 0), Vec3(0.2, 0, 0), t), eci, orvCore::ECI), 0);
  EXPECT_NEAR(eci.orientation().yaw(), 0.2 + orvCore::EARTH_ROTATION_RATE * t, 1e-12);
  EXPECT_NEAR(eci.orientation().pitch(), 0.0, 1e-12);
}

// --- tangent planes ---------------------------------------------------------------

TEST_F(ConverterTest, GtpShiftsThenTurnsThePlane) {
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(25.0, -80.0, 0.0);
  conv.setTangentPlaneOffsets(1000.0, -2000.0, M_PI_2);
  Coordinate gtp;
  // A point 100 m north of the plane's offset lies on the turned plane's x axis.
  Coordinate xeast(orvCore::XEAST, Vec3(1000.0, -1900.0, 5.0), Vec3(0.0, 0.1, 0.2));
  xeast.setVelocity(0.0, 10.0, 1.0);
  ASSERT_EQ(conv.convert(xeast, gtp, orvCore::GTP), 0);
  EXPECT_TRUE(orvCore::v3AreEqual(gtp.position(), Vec3(100.0, 0.0, 5.0), 1e-12));
  EXPECT_TRUE(orvCore::v3AreEqual(gtp.velocity(), Vec3(10.0, 0.0, 1.0), 1e-12));
  EXPECT_NEAR(gtp.orientation().yaw(), M_PI_2, 1e-15);
  // The heading still points along the velocity: yaw is atan2(vx, vy) in
  // both planes.
  EXPECT_NEAR(std::atan2(gtp.velocity().x(), gtp.velocity().y()), gtp.orientation().yaw(), 1e-12);

  // A yaw that goes past 2 pi wraps.
  conv.setTangentPlaneRotation(1.0);
  xeast.setOrientation(2 * M_PI - 0.5, 0, 0);
  ASSERT_EQ(conv.convert(xeast, gtp, orvCore::GTP), 0);
  EXPECT_NEAR(gtp.orientation().yaw(), 0.5, 1e-12);
  Coordinate back;
  ASSERT_EQ(conv.convert(gtp, back, orvCore::XEAST), 0);
  EXPECT_NEAR(back.orientation().yaw(), 2 * M_PI - 0.5, 1e-12);
  EXPECT_TRUE(orvCore::v3AreEqual(back.position(), xeast.position(), 1e-9));
}

TEST_F(ConverterTest, LlaToGtpAndBackWithOffsetsAndRotation) {
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(-12.5, 130.0, 50.0);
  conv.setTangentPlaneOffsets(-3500.0, 12000.0, 0.7);
  for (double dLat : {-0.5, 0.0, 0.3}) {
    for (double dLon : {-0.4, 0.2}) {
      const Coordinate lla(orvCore::LLA, Vec3((-12.5 + dLat) * DEG, (130.0 + dLon) * DEG, 2500.0),
                           Vec3(5.5, 0.3, -0.4), Vec3(40.0, -20.0, 2.0), Vec3(0.1, 0.2, -0.3), 11.0);
      Coordinate gtp, back;
      ASSERT_EQ(conv.convert(lla, gtp, orvCore::GTP), 0);
      EXPECT_EQ(gtp.system(), orvCore::GTP);
      ASSERT_EQ(conv.convert(gtp, back, orvCore::LLA), 0);
      expectSamePoint(back.position(), lla.position());
      EXPECT_TRUE(orvCore::v3AreEqual(back.velocity(), lla.velocity(), 1e-10));
      EXPECT_TRUE(orvCore::v3AreEqual(back.acceleration(), lla.acceleration(), 1e-12));
      EXPECT_TRUE(orvCore::v3AreEqual(back.orientation(), lla.orientation(), 1e-10));
      EXPECT_EQ(back.elapsedEciTime(), 11.0);
    }
  }
}

// --- every pair of systems ----------------------------------------------------------

class AllPairsTest : public ConverterTest {
 protected:
  void SetUp() override {
    ConverterTest::SetUp();
    conv_.setReferenceOriginDegrees(35.0, 179.8, 120.0);
    conv_.setTangentPlaneOffsets(250.0, -400.0, 0.3);
  }
  // The test point in any system, taken there from LLA.
  Coordinate in(CoordinateSystem system, bool withExtras) const {
    Coordinate lla(orvCore::LLA, Vec3(35.02 * DEG, -179.95 * DEG, 900.0), 300.0);
    if (withExtras) {
      lla.setOrientation(1.2, 0.1, -0.2);
      lla.setVelocity(30.0, -15.0, 2.0);
      lla.setAcceleration(0.5, 0.25, -0.1);
    }
    Coordinate out;
    EXPECT_EQ(conv_.convert(lla, out, system), 0);
    return out;
  }
  CoordinateConverter conv_;
};

TEST_F(AllPairsTest, EveryPathKeepsTheFlagsItWasGiven) {
  for (bool extras : {false, true}) {
    for (CoordinateSystem from : ALL_SYSTEMS) {
      const Coordinate src = in(from, extras);
      for (CoordinateSystem to : ALL_SYSTEMS) {
        Coordinate out = filled();
        ASSERT_EQ(conv_.convert(src, out, to), 0) << from << " -> " << to;
        EXPECT_EQ(out.system(), to);
        EXPECT_EQ(out.hasVelocity(), extras) << from << " -> " << to;
        EXPECT_EQ(out.hasAcceleration(), extras) << from << " -> " << to;
        EXPECT_EQ(out.hasOrientation(), extras) << from << " -> " << to;
        EXPECT_EQ(out.elapsedEciTime(), 300.0) << from << " -> " << to;
      }
    }
  }
  EXPECT_TRUE(messages().empty());
}

TEST_F(AllPairsTest, DirectPathsAgreeWithGoingThroughLla) {
  for (CoordinateSystem from : ALL_SYSTEMS) {
    const Coordinate src = in(from, true);
    for (CoordinateSystem to : ALL_SYSTEMS) {
      Coordinate direct, viaLla;
      ASSERT_EQ(conv_.convert(src, direct, to), 0);
      const Coordinate expected = in(to, true);
      // Latitude and longitude scaled to meters, so one tolerance fits all.
      const double scale = to == orvCore::LLA ? orvCore::WGS_A : 1.0;
      const Vec3 d = direct.position() - expected.position();
      EXPECT_TRUE(orvCore::v3AreEqual(Vec3(d.x() * scale, d.y() * scale, d.z()), Vec3(), 1e-7)) << from << " -> " << to;
      EXPECT_TRUE(orvCore::v3AreEqual(direct.velocity(), expected.velocity(), 1e-9)) << from << " -> " << to;
      EXPECT_TRUE(orvCore::v3AreEqual(direct.acceleration(), expected.acceleration(), 1e-9)) << from << " -> " << to;
      double a[3][3], b[3][3];
      orvCore::d3EulertoDCM(direct.orientation(), a);
      orvCore::d3EulertoDCM(expected.orientation(), b);
      for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) EXPECT_NEAR(a[i][j], b[i][j], 1e-10) << from << " -> " << to;
    }
  }
}

}  // namespace
