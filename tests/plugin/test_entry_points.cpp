// The OPI_ entry points and the message map, called as a host calls them.
#include "plugin/PluginEntry.h"

#include <gtest/gtest.h>

#include <string>

#include "PluginTestSupport.h"
#include "hostapi/PIBase.h"
#include "hostapi/PIGUI.h"
#include "plugin/FileReadPlugin.h"

namespace {

using namespace FileReaderPlugin;

std::string text(intptr_t answer) { return answer ? std::string(reinterpret_cast<const char*>(answer)) : "<null>"; }

class EntryPointTest : public PluginHostTest {
 protected:
  void TearDown() override {
    OPI_CleanUpPlugin();
    PluginHostTest::TearDown();
  }
};

TEST(EntryPoints, VersionQueries) {
  EXPECT_EQ(OPI_MinimumVersion(), 12700);
  EXPECT_EQ(OPI_GetCompilerVersion(), 831);
  EXPECT_EQ(OPI_GetBitWidth(), 64);
  EXPECT_EQ(OPI_IsDebugMode(), 0);
  EXPECT_DOUBLE_EQ(OPI_VersionInfo(), PIBase::legacyApiVersion());
  EXPECT_EQ(OPI_VersionInfoEx(2), PIBase::revisionVersion());
  EXPECT_EQ(OPI_VersionInfoEx(1), PIBase::minorVersion());
  EXPECT_EQ(OPI_VersionInfoEx(0), PIBase::majorVersion());
  EXPECT_EQ(OPI_VersionInfoEx(7), PIBase::majorVersion());
}

TEST(EntryPoints, DispatchBeforeInitializationAnswersZero) {
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_NAME), 0);
}

TEST_F(EntryPointTest, MessageMapReachesThePlugin) {
  RefHost::ReferenceHost& h = start();
  EXPECT_EQ(OPI_InitializeFunctionMap(&h, &h), 0);
  EXPECT_EQ(PIBase::functionMap(), &h);

  EXPECT_EQ(text(OPI_PluginDispatchFunction(OPI_NAME)), "File_Reader_Plugin");
  EXPECT_EQ(text(OPI_PluginDispatchFunction(OPI_DESCRIPTION)), "ORVIDE/Kurvex Plug-in for reading the ASI format.");
  EXPECT_FALSE(text(OPI_PluginDispatchFunction(OPI_VERSION)).empty());
  EXPECT_FALSE(text(OPI_PluginDispatchFunction(OPI_AUTHOR)).empty());
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_LOAD_IN_ORVIDE), 1);
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_LOAD_IN_KURVEX), 1);
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_LOAD_IN_ASIPAD), 0);
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_LOAD_IN_LOGHOST), 0);
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_LOAD_IN_ORVIDE10), 1);
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_LOAD_IN_KURVEX10), 1);
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_CALLBACK), 0);
  // Slots the plug-in leaves at the base's defaults.
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_HANDLE_MOUSE_EVENT, 1, 2, 3, 4), 0);
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_INITIALIZE_TERRAIN_RASTER_SET, "dted"), 0);
  EXPECT_EQ(text(OPI_PluginDispatchFunction(OPI_GET_TERRAIN_RASTER_SET_INFO, nullptr)), "");
  // Unknown messages answer 0.
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_MESSAGE_COUNT), 0);
  EXPECT_EQ(OPI_PluginDispatchFunction(-1), 0);
}

TEST_F(EntryPointTest, WhatAHostCallThrowsIsToldAndAnswersMinusOne) {
  RefHost::HostConfig config;
  config.outOfMemory = {"registerFileHandler"};
  RefHost::ReferenceHost& h = start(config);
  ASSERT_EQ(OPI_InitializeFunctionMap(&h, &h), 0);
  char* argv[] = {const_cast<char*>("host")};
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_START_UP, 1, argv), -1);
  EXPECT_TRUE(notified("Plug-in request 0 failed: out of memory\n"));
}

TEST_F(EntryPointTest, StartUpOpenLocationAndCleanUp) {
  RefHost::ReferenceHost& h = start();
  OPI_InitializeFunctionMap(&h, &h);
  char name[] = "host";
  char* argv[] = {name, nullptr};
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_START_UP, 1, argv), 0);
  EXPECT_EQ(h.actions().size(), 2u);
  EXPECT_EQ(FileReadPlugin::callbackFunctors().size(), 2u);

  const std::string path = data("e2e_reflat_first.asi");
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_OPEN_LOCATION, path.c_str(), 0, 0), -1);
  ASSERT_EQ(h.messageBoxes().size(), 1u);
  EXPECT_EQ(h.messageBoxes()[0].first, "File Import Error");

  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_CLOSE), 0);
  PIGarbageCollector::global();  // made on first use; clean-up must release it
  OPI_CleanUpPlugin();
  EXPECT_TRUE(FileReadPlugin::callbackFunctors().empty());
  EXPECT_EQ(OPI_PluginDispatchFunction(OPI_NAME), 0);
}

}  // namespace
