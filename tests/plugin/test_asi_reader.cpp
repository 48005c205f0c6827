// AsiReader and AsiParser against the reference host: format checks, the
// identifier scan, the table, the host's scenario before the first line, the
// progress dialog and the end-of-file result.
#include "asi/host/AsiReader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "PluginTestSupport.h"
#include "asi/LliResolver.h"
#include "asi/ScenarioProvider.h"
#include "asi/host/AsiParser.h"
#include "hostapi/PIData.h"
#include "pipeline/CommandParser.h"
#include "pipeline/MessageManager.h"

namespace {

class CapturedMessages : public FileReaderPlugin::MessageManager {
 public:
  std::vector<std::string> texts;

 protected:
  void writeMessage_(PICommon::NotifySeverity, const std::string& text, unsigned long) override {
    texts.push_back(text);
  }
};

class AsiReaderTest : public PluginHostTest {
 protected:
  void SetUp() override { start(); }
  std::string write(const std::string& name, const std::string& content) {
    const std::string path = ::testing::TempDir() + name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }
};

TEST_F(AsiReaderTest, ClaimsAsiFilesByExtensionAndFirstCommand) {
  AsiReader::AsiReader reader;
  EXPECT_EQ(reader.canReadFile(data("e2e_no_id.asi")), 0);
  EXPECT_EQ(reader.canReadFile(write("UPPER.ASI", "Version 3\n")), 0);
  EXPECT_EQ(reader.canReadFile(data("e2e_reflat_first.asi")), 3);
  EXPECT_EQ(reader.canReadFile(data("e2e_empty.asi")), 2);
  EXPECT_EQ(reader.canReadFile(data("e2e_not_asi.xyz")), 4);
  EXPECT_EQ(reader.canReadFile("/no/such/file.asi"), 1);

  std::map<std::string, std::string> extensions;
  reader.getSupportedFileExtensions(extensions);
  ASSERT_EQ(extensions.size(), 1u);
  EXPECT_EQ(extensions["*.asi"], "ASCII Scenario Input File");
}

TEST_F(AsiReaderTest, CloneKeepsAppendAndResolver) {
  AsiReader::AsiReader reader;
  AsiInterface::LliResolver resolver("x");
  reader.setAppend(true, &resolver);
  std::unique_ptr<FileReaderPlugin::FileReader> copy(reader.clone());
  auto* asi = dynamic_cast<AsiReader::AsiReader*>(copy.get());
  ASSERT_NE(asi, nullptr);
  EXPECT_TRUE(asi->append());
  EXPECT_EQ(asi->resolver(), &resolver);
}

TEST_F(AsiReaderTest, ScenarioIdentifierComesFromTheCommentAboveTheFirstCommand) {
  AsiReader::AsiReader reader;
  std::string id = "stale";
  EXPECT_EQ(reader.getScenarioIdentifier(data("e2e_alpha.asi"), id), 0);
  EXPECT_EQ(id, " alpha");
  EXPECT_EQ(reader.getScenarioIdentifier(write("late.asi", "Version 3\n# Scenario Identifier: late\n"), id), 0);
  EXPECT_EQ(id, "");
  EXPECT_EQ(reader.getScenarioIdentifier("/no/such/file.asi", id), -1);
  EXPECT_TRUE(notified("Could not open file \"/no/such/file.asi\""));
  EXPECT_EQ(reader.getScenarioIdentifier(write("only-comments.asi", "# nothing\n\n"), id), -1);
  EXPECT_TRUE(notified("Could not read file"));
}

TEST_F(AsiReaderTest, ReadShowsItsDialogAndFailsWithoutAnEntity) {
  AsiReader::AsiReader reader;
  EXPECT_EQ(reader.read(data("e2e_alpha.asi")), -1);
  ASSERT_EQ(host->progressDialogs().size(), 1u);
  const auto& dialog = host->progressDialogs()[0];
  EXPECT_EQ(dialog.title, "Reading File");
  EXPECT_EQ(dialog.label, "Reading file e2e_alpha.asi.  Please wait...");
  EXPECT_TRUE(dialog.cancelButton);
  EXPECT_EQ(dialog.maximum, 1000);
  EXPECT_TRUE(dialog.destroyed);
  EXPECT_TRUE(notified("Must define at least one non-static independent entity"));
  // No time-tagged platform arrived, so the clock is left alone.
  EXPECT_EQ(requests("clockAutoConfigureBeginEnd"), 0);
  EXPECT_TRUE(host->scenario().settings().initialized);
  EXPECT_EQ(host->scenario().settings().name, data("e2e_alpha.asi"));
}

TEST_F(AsiReaderTest, UnknownKeywordsAreReportedAsInformation) {
  AsiReader::AsiReader reader;
  reader.read(data("e2e_unknown.asi"));
  EXPECT_TRUE(notified("The following 1 commands are unsupported:"));
  EXPECT_TRUE(notified("Command \"FooBar\" appeared 2 times"));
}

TEST_F(AsiReaderTest, ImportReplacesTheHostsScenarioAndAppendRenamesIt) {
  PIData::initializeScenario("old.asi", 0, PIData::PI_PROTOCOL_NONE, false);
  AsiReader::AsiParser importer(PICommon::PI_HOST_ORVIDE);
  importer.populateCommands(24);
  importer.initializeScenario("new.asi");
  EXPECT_EQ(requests("deleteScenario"), 1);
  EXPECT_FALSE(importer.provider()->isAppending());
  EXPECT_EQ(host->scenario().settings().name, "new.asi");

  trace.str("");
  AsiReader::AsiParser appender(PICommon::PI_HOST_ORVIDE);
  appender.setAppend(true);
  appender.populateCommands(24);
  appender.initializeScenario("more.asi");
  EXPECT_EQ(requests("deleteScenario"), 0);
  EXPECT_EQ(requests("initializeScenario"), 0);
  EXPECT_TRUE(appender.provider()->isAppending());
  EXPECT_EQ(appender.previousScenarioFileName(), "new.asi");
  EXPECT_EQ(host->scenario().settings().fileName, "more.asi");
}

TEST_F(AsiReaderTest, AppendToAnEmptyHostStartsAScenario) {
  AsiReader::AsiParser parser(PICommon::PI_HOST_ORVIDE);
  parser.setAppend(true);
  parser.populateCommands(24);
  parser.initializeScenario("first.asi");
  EXPECT_FALSE(parser.provider()->isAppending());
  EXPECT_EQ(requests("initializeScenario"), 1);
}

TEST_F(AsiReaderTest, ParserTableAndProvider) {
  AsiReader::AsiParser parser(PICommon::PI_HOST_KURVEX);
  CapturedMessages messages;
  EXPECT_FALSE(parser.hasNonStaticPlatforms());
  EXPECT_EQ(parser.didComplete(messages), -1);
  ASSERT_EQ(messages.texts.size(), 1u);
  EXPECT_EQ(messages.texts[0], "The file is either empty or the file lacks a Version command.");

  AsiInterface::LliResolver resolver("feed");
  parser.setResolver(&resolver);
  parser.populateCommands(7);
  ASSERT_NE(parser.provider(), nullptr);
  EXPECT_EQ(parser.provider()->version(), 7);
  EXPECT_EQ(parser.provider()->resolver(), &resolver);
  EXPECT_EQ(parser.provider()->host(), PICommon::PI_HOST_KURVEX);
  AsiInterface::Entity* scenario = parser.provider()->getEntity(0);
  ASSERT_NE(scenario, nullptr);
  EXPECT_EQ(scenario->typeName(), "Scenario");
  EXPECT_TRUE(scenario->doesExist());
  EXPECT_EQ(scenario->uniqueId(), 0u);

  for (const char* keyword : {"PLATFORMID", "platformid", "PlatformID"}) {
    FileReaderPlugin::CommandParser* command = parser.getCommand({keyword, "3"});
    ASSERT_NE(command, nullptr) << keyword;
    EXPECT_EQ(command->name(), "PlatformID");
  }
  EXPECT_EQ(parser.getCommand({}), nullptr);
  EXPECT_EQ(parser.getCommand({"Version", "24"}), nullptr);
  EXPECT_EQ(parser.getCommand({"DTEDMap"}), nullptr);
  EXPECT_NE(parser.getCommand({"beamdatabody", "1", "2", "3"}), nullptr);

  // Without the one non-static platform the read against the host fails.
  EXPECT_EQ(parser.didComplete(messages), -1);
  EXPECT_EQ(messages.texts.back(), "Must define at least one non-static independent entity");
}

TEST_F(AsiReaderTest, ParserWithoutResolverStillGivesTheCommandsOne) {
  AsiReader::AsiParser parser(PICommon::PI_HOST_ORVIDE);
  parser.populateCommands(24);
  EXPECT_NE(parser.provider()->resolver(), nullptr);
  parser.initializeScenario("x.asi");
}

}  // namespace
