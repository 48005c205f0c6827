// The format check of ASI files and the scenario-identifier scan.

#include <gtest/gtest.h>

#include "SpineTestSupport.h"
#include "pipeline/FileReader.h"

using FileReaderPlugin::FileReader;
using spinetest::TempFile;

namespace {
int check(const std::string& content) { return FileReader::canReadAsiFile(TempFile(content).path()); }
}  // namespace

TEST(CanReadAsiFile, AcceptsAWellFormedVersionAsFirstCommand) {
  EXPECT_EQ(check("Version 3\nPlatformID 1\n"), 0);
  EXPECT_EQ(check("# a comment\n\n   \nVERSION 24 // trailing\n"), 0);
  EXPECT_EQ(check("\"Version\" '7'"), 0);
  EXPECT_EQ(check("Version 3\r\n"), 0);
  // The value is judged later, by the engine.
  EXPECT_EQ(check("Version -5\n"), 0);
  EXPECT_EQ(check("Version 0\n"), 0);
}

TEST(CanReadAsiFile, RefusesAFirstCommandThatIsNotVersion) {
  EXPECT_EQ(check("RefLat 10\nVersion 3\n"), 3);
  EXPECT_EQ(check("Version\n"), 3);
  EXPECT_EQ(check("Version 3 4\n"), 3);
  EXPECT_EQ(check("Version three\n"), 3);
  EXPECT_EQ(check("Version 3.5\n"), 3);
  EXPECT_EQ(check("Version +3\n"), 3);
  EXPECT_EQ(check("Version 3//x\nRefLat 1"), 0);
  EXPECT_EQ(check(std::string("Ver\0sion 3\n", 11)), 3);
}

TEST(CanReadAsiFile, EmptyOrCommentOnlyFilesHaveNoCommand) {
  EXPECT_EQ(check(""), 2);
  EXPECT_EQ(check("# only\n// comments\n\n"), 2);
}

TEST(CanReadAsiFile, AMissingFileIsNotReadable) {
  EXPECT_EQ(FileReader::canReadAsiFile("/nonexistent/dir/a.asi"), 1);
}

TEST(ScenarioIdentifier, TakesTheCommentAboveTheFirstCommand) {
  TempFile file("# first\n\n# Scenario Identifier: abc \nVersion 3\n");
  std::string id = "stale";
  EXPECT_EQ(FileReader::scanAsiScenarioIdentifier(file.path(), id),
            FileReader::IdentifierScan::FOUND_OR_NONE);
  // The rest of the line as it stands, leading blank kept, trailing cut.
  EXPECT_EQ(id, " abc");
}

TEST(ScenarioIdentifier, IsEmptyWhenTheFirstCommandComesFirst) {
  TempFile file("Version 3\n# Scenario Identifier: late\n");
  std::string id = "stale";
  EXPECT_EQ(FileReader::scanAsiScenarioIdentifier(file.path(), id),
            FileReader::IdentifierScan::FOUND_OR_NONE);
  EXPECT_EQ(id, "");
  EXPECT_EQ(FileReader::readAsiScenarioIdentifier(file.path(), id), 0);
}

TEST(ScenarioIdentifier, OnlyTheExactKeyAtTheLineStartCounts) {
  std::string id;
  TempFile indented(" # Scenario Identifier: a\n// Scenario Identifier: b\n#Scenario Identifier: c\n"
                    "# scenario identifier: d\n# Scenario Identifier:\nVersion 3\n");
  EXPECT_EQ(FileReader::scanAsiScenarioIdentifier(indented.path(), id),
            FileReader::IdentifierScan::FOUND_OR_NONE);
  EXPECT_EQ(id, "");
  TempFile bare("# Scenario Identifier:x\r\nVersion 3\n");
  FileReader::scanAsiScenarioIdentifier(bare.path(), id);
  EXPECT_EQ(id, "x");
}

TEST(ScenarioIdentifier, FailsWithoutACommandOrAFile) {
  std::string id;
  TempFile comments("# nothing here\n\n");
  EXPECT_EQ(FileReader::scanAsiScenarioIdentifier(comments.path(), id),
            FileReader::IdentifierScan::NO_COMMAND);
  EXPECT_EQ(FileReader::scanAsiScenarioIdentifier("/nonexistent/a.asi", id),
            FileReader::IdentifierScan::CANNOT_OPEN);
  // An identifier found before the end still counts without a command.
  TempFile onlyId("# Scenario Identifier: lone\n");
  EXPECT_EQ(FileReader::scanAsiScenarioIdentifier(onlyId.path(), id),
            FileReader::IdentifierScan::FOUND_OR_NONE);
  EXPECT_EQ(id, " lone");
}
