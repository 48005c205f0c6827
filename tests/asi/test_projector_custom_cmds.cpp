// Projectors and custom rendering objects: created at their own line once
// their host exists, the raster-file rule, field of view in the file's angle
// units, what a merge or an append changes, host refusals, and the
// end-of-file checks that a hostless custom rendering object passes.

#include "asi/LliResolver.h"
#include "test_drawable_cmd_support.h"

using namespace DrawableCmdTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double DEG = 0.017453292519943295;
const double TWO_PI = 6.283185307179586;

class ProjectorTest : public DrawableFixture {};
class CustomRenderingTest : public DrawableFixture {};

class RefusingHostTest : public RefusingDrawableFixture {};

}  // namespace

// --- projectors --------------------------------------------------------------

TEST_F(ProjectorTest, CreatedAtItsLineWithRasterFieldOfViewAndOnOff) {
  startAll();
  provider_->setIsDegrees(true);
  platformWithData(1, "ship");
  lines({"Projector 1 1 searchlight", "ProjectorFOV 1 5 30", "ProjectorRasterFile 1 beam.png",
         "ProjectorInterpolateFOV 1 1", "ProjectorFOV 1 5 30", "ProjectorFOV 1 6 360", "ProjectorOn 1 5 1",
         "ProjectorOn 1 9 0"});
  EXPECT_THAT(texts(),
              ElementsAre("Line 5 ProjectorFOV: Must specify raster file via the ProjectorRasterFile command"));

  // Projector 1 is not platform 1: projectors are numbered apart.
  const RefHost::HostObject* projector = held(1, true);
  ASSERT_NE(nullptr, projector);
  EXPECT_EQ(RefHost::KIND_PROJECTOR, projector->kind);
  EXPECT_EQ(held(1)->id, projector->parent);
  EXPECT_EQ("searchlight", projector->header.name);
  EXPECT_EQ("beam.png", projector->settings["rasterFile"]);
  EXPECT_EQ(true, projector->settings["interpolateFov"]);
  // A full circle stays a full circle.
  const Records fov = records(1, RefHost::SERIES_PROJECTOR_FOV, true);
  ASSERT_EQ(2u, fov.size());
  EXPECT_NEAR(30 * DEG, fov[0][1], 1e-12);
  EXPECT_DOUBLE_EQ(TWO_PI, fov[1][1]);
  EXPECT_EQ((Records{{5, 1}, {9, 0}}), records(1, RefHost::SERIES_STATUS, true));

  provider_->setIsDegrees(false);
  line("ProjectorFOV 1 7 0.5");
  EXPECT_EQ(0.5, records(1, RefHost::SERIES_PROJECTOR_FOV, true).back()[1]);
}

TEST_F(ProjectorTest, OnABeamItWaitsForTheBeamAndANeverCreatedBeamReportsItself) {
  startAll();
  declare(1, "ship");
  lines({"BeamID 1 5", "BeamType 5 absolute", "HorzBW 5 10", "VertBW 5 5", "BeamID 1 6", "Projector 5 1 onBeam",
         "Projector 6 2 onIdleBeam", "BeamDataRAE 5 10 0 0 1000"});
  EXPECT_EQ(nullptr, held(1, true));
  // The platform's data creates the platform, which creates the beam,
  // which creates the projector.
  line("PlatformData 1 0 0.1 0.2 0");
  ASSERT_NE(nullptr, held(5));
  ASSERT_NE(nullptr, held(1, true));
  EXPECT_EQ(held(5)->id, held(1, true)->parent);

  EXPECT_EQ(1, provider_->didComplete(messages_));
  EXPECT_THAT(texts(), ElementsAre("Incomplete definition for Beam 6"));
}

TEST_F(ProjectorTest, BadHostsIdsAndValues) {
  startAll();
  platformWithData(1, "ship");
  lines({"Laser 1 10 l", "Projector 10 3 p", "Projector x 3 p", "Projector 9 3 p", "Projector 1 y p", "Projector 1 1 p",
         "Projector 1 1 again", "ProjectorFOV 7 5 30", "ProjectorFOV 1 5 wide", "ProjectorOn 1 5 on",
         "ProjectorInterpolateFOV 1 maybe", "ProjectorRasterFile x f", "ProjectorOn 1 -2 1"});
  EXPECT_THAT(texts(),
              ElementsAre("Line 5 Projector: Invalid Host ID", "Line 6 Projector: Invalid Host ID",
                          "Line 7 Projector: Invalid Host ID", "Line 8 Projector: Invalid Projector ID",
                          "Line 10 Projector: Projector ID already used", "Line 11 ProjectorFOV: Invalid Projector ID",
                          "Line 12 ProjectorFOV: Invalid angle", "Line 13 ProjectorOn: Invalid state",
                          "Line 14 ProjectorInterpolateFOV: Invalid state",
                          "Line 15 ProjectorRasterFile: Invalid Projector ID", "Line 16 ProjectorOn: Invalid time"));
  EXPECT_EQ(1u, hostCount(RefHost::KIND_PROJECTOR));
  EXPECT_EQ("p", held(1, true)->header.name);
}

TEST_F(ProjectorTest, AMergedProjectorKeepsItsSettingsAndAnAppendNeedsNoRasterForOnOff) {
  startAll();
  PIData::PIPlatformHeader platformHeader;
  platformHeader.name = "held";
  const uint64_t platformId = PIData::createPlatform(platformHeader, PIData::PIPlatformPoint());
  PIData::PIProjectorHeader projectorHeader;
  projectorHeader.name = "lamp";
  const uint64_t projectorId = PIData::createProjector(platformId, projectorHeader);
  AsiInterface::LliResolver resolver("feed");
  resolver.setPlatformId(1, platformHeader, platformId);
  resolver.setProjectorId(platformId, 1, projectorHeader, projectorId);
  provider_->setResolver(&resolver);
  provider_->setAppending(true);

  platformWithData(1, "ship");
  lines({"Projector 1 1 lamp", "ProjectorOn 1 4 1", "ProjectorFOV 1 5 0.5", "ProjectorRasterFile 1 new.png",
         "ProjectorInterpolateFOV 1 1", "Projector 1 2 fresh", "ProjectorOn 1 4 1", "ProjectorOn 2 4 1",
         "ProjectorFOV 2 5 0.5"});
  EXPECT_THAT(texts(),
              ElementsAre("Line 12 ProjectorFOV: Must specify raster file via the ProjectorRasterFile command"));
  EXPECT_EQ(2u, hostCount(RefHost::KIND_PROJECTOR));
  const RefHost::HostObject* merged = held(1, true);
  ASSERT_NE(nullptr, merged);
  EXPECT_EQ(projectorId, merged->id);
  EXPECT_FALSE(merged->settings.contains("rasterFile"));
  EXPECT_FALSE(merged->settings.contains("interpolateFov"));
  EXPECT_EQ((Records{{5, 0.5}}), records(1, RefHost::SERIES_PROJECTOR_FOV, true));
  EXPECT_EQ((Records{{4, 1}, {4, 1}}), records(1, RefHost::SERIES_STATUS, true));
  EXPECT_EQ((Records{{4, 1}}), records(2, RefHost::SERIES_STATUS, true));
}

// --- custom rendering ----------------------------------------------------------

TEST_F(CustomRenderingTest, AHostlessObjectAloneMakesAScenario) {
  startAll();
  lines({"CustomRendering 0 30 overlay weather", "CustomRenderingColor 30 5 blue"});
  EXPECT_THAT(texts(), IsEmpty());
  const RefHost::HostObject* object = held(30);
  ASSERT_NE(nullptr, object);
  EXPECT_EQ(0u, object->parent);
  EXPECT_EQ("overlay", object->header.name);
  EXPECT_EQ("weather", object->header.renderer);
  EXPECT_EQ(30u, object->originalId);
  EXPECT_EQ((Records{{5, double(0x0000FF80u)}}), records(30, RefHost::SERIES_COLOR));
  EXPECT_EQ(0, provider_->didComplete(messages_));
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(CustomRenderingTest, AHostedObjectWaitsForItsPlatformWhichMustBeOne) {
  startAll();
  declare(1, "ship");
  lines({"LOBID 1 2", "CustomRendering 1 31 trail line", "CustomRenderingColor 31 5 red", "CustomRendering 2 32 x r",
         "CustomRendering -1 33 x r", "CustomRendering 1 y x r", "CustomRendering 1 31 again r",
         "CustomRenderingColor x 5 red", "CustomRenderingColor 99 5 red"});
  EXPECT_EQ(nullptr, held(31));
  line("PlatformData 1 0 0.1 0.2 0");
  ASSERT_NE(nullptr, held(31));
  EXPECT_EQ(held(1)->id, held(31)->parent);
  EXPECT_EQ(1u, records(31, RefHost::SERIES_COLOR).size());
  EXPECT_THAT(texts(),
              ElementsAre("Line 6 CustomRendering: Invalid custom rendering host.  Custom rendering must have a "
                          "platform host or no host.",
                          "Line 7 CustomRendering: Expecting positive number for Host ID",
                          "Line 8 CustomRendering: Expecting positive number for the Custom Rendering ID",
                          "Line 9 CustomRendering: Custom Rendering ID already used",
                          "Line 10 CustomRenderingColor: Expecting positive number for the CustomRenderingID",
                          "Line 11 CustomRenderingColor: Could not find corresponding Custom Rendering entity"));
}

TEST_F(RefusingHostTest, RefusedCreationsAndTheirDataAreReported) {
  startAll();
  platformWithData(1, "ship");
  lines({"Projector 1 1 p", "ProjectorRasterFile 1 a.png", "ProjectorInterpolateFOV 1 1", "ProjectorFOV 1 5 0.5",
         "ProjectorOn 1 5 1", "CustomRendering 1 30 c r", "CustomRenderingColor 30 5 red"});
  provider_->getCustomRenderingEntity(30)->setUniqueId(999);
  line("CustomRenderingColor 30 6 red");
  EXPECT_THAT(
      texts(),
      ElementsAre("Line 4 Projector: Failed to create projector; check console for error messages",
                  "Line 5 ProjectorRasterFile: Failed to set raster file name; check console for error messages",
                  "Line 6 ProjectorInterpolateFOV: Failed to set projector FOV interpolation; check console for "
                  "error messages",
                  "Line 7 ProjectorFOV: Failed to set ProjectorFOV angle; check console for error messages",
                  "Line 8 ProjectorOn: Failed to set projector status; check console for error messages",
                  "Line 9 CustomRendering: Failed to create Custom Rendering; check console for error messages",
                  "Line 11 CustomRenderingColor: Failed to set Custom Rendering color; check console for error "
                  "messages"));
  EXPECT_EQ(3, messages_.messages[0].severity);
  EXPECT_EQ(2, messages_.messages[3].severity);
  EXPECT_EQ(2, messages_.messages[5].severity);
}
