// The door itself: the function-map globals, the missing-map notice, the
// context override and the version queries.

#include <gtest/gtest.h>

#include "hostapi/PIBase.h"
#include "hostapi/PIData.h"
#include "recording_map.h"

namespace {

const char* const kMissingMapNotice =
    "Invalid Plug-in API Support Function Map.  Plug-in API calls are being made outside of the context of a "
    "loaded plug-in.\n"
    "API service request has not been processed.\n";

TEST(HostApiMissingMap, HandleWritesTheTwoLinesAndAnswersZero) {
  PIBase::setFunctionMap(nullptr, nullptr);
  int record = 5;
  testing::internal::CaptureStderr();
  const uint64_t answer = handle(PI_SET_WIND_SPEED, &record);
  const std::string err = testing::internal::GetCapturedStderr();
  EXPECT_EQ(answer, 0u);
  EXPECT_EQ(err, kMissingMapNotice);
}

TEST(HostApiMissingMap, WrappersGetZeroAndTheNotice) {
  PIBase::setFunctionMap(nullptr, nullptr);
  testing::internal::CaptureStderr();
  const uint64_t id = PIData::createPlatform(PIData::PIPlatformHeader(), PIData::PIPlatformPoint());
  const std::string err = testing::internal::GetCapturedStderr();
  EXPECT_EQ(id, 0u);
  EXPECT_EQ(err, kMissingMapNotice);
}

TEST(HostApiMissingMap, OverrideCallsPrintTheNoticeThemselves) {
  PIBase::setFunctionMap(nullptr, nullptr);
  testing::internal::CaptureStderr();
  EXPECT_EQ(PIBase::getOverriddenThisPointer(), nullptr);
  PIBase::pushOverrideThisPointer(reinterpret_cast<void*>(8));
  const std::string err = testing::internal::GetCapturedStderr();
  EXPECT_EQ(err, std::string(kMissingMapNotice) + kMissingMapNotice);
}

class HostApiDoor : public WithRecordingMap {};

TEST_F(HostApiDoor, HandleDispatchesWithMapContextAndGlobalAddress) {
  int record = 0;
  map.responder = [](PIServerFunctions_t, void*) { return uint64_t{42}; };
  EXPECT_EQ(handle(PI_GET_OBJECT_TYPE, &record), 42u);
  ASSERT_EQ(map.calls.size(), 1u);
  EXPECT_EQ(map.calls[0].code, PI_GET_OBJECT_TYPE);
  EXPECT_EQ(map.calls[0].map, &map);
  EXPECT_EQ(map.calls[0].context, &pluginContext);
  EXPECT_EQ(map.calls[0].mapGlobal, PIBase::functionMapAddress());
  EXPECT_EQ(*map.calls[0].mapGlobal, &map);
}

TEST_F(HostApiDoor, OverriddenContextReplacesThePluginContextUntilPopped) {
  int other = 0;
  PIBase::pushOverrideThisPointer(&other);
  EXPECT_EQ(PIBase::getOverriddenThisPointer(), &other);
  PIData::setWindSpeed(3.0);
  PIBase::popOverrideThisPointer();
  EXPECT_EQ(PIBase::getOverriddenThisPointer(), nullptr);
  PIData::setWindSpeed(4.0);
  ASSERT_EQ(map.calls.size(), 2u);
  EXPECT_EQ(map.calls[0].context, &other);
  EXPECT_EQ(map.calls[1].context, &pluginContext);
}

TEST_F(HostApiDoor, OverrideRequestsTravelWithNullContext) {
  PIBase::pushOverrideThisPointer(&pluginContext);
  EXPECT_EQ(map.overrideRequestContext, nullptr);
  EXPECT_GE(map.overrideRequests, 1);
  EXPECT_TRUE(map.calls.empty());
}

TEST(HostApiVersion, QueriesAgreeWithEachOther) {
  EXPECT_EQ(PIBase::versionString(), std::to_string(PIBase::majorVersion()) + "." +
                                         std::to_string(PIBase::minorVersion()) + "." +
                                         std::to_string(PIBase::revisionVersion()));
  EXPECT_DOUBLE_EQ(PIBase::legacyApiVersion(), PIBase::majorVersion() + PIBase::minorVersion() / 100.0);
  EXPECT_GE(PIBase::buildNumber(), 12700);
}

}  // namespace
