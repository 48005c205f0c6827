// The keyword table: stand-by commands, replacement, look-up without regard
// to case, and the keywords whose command depends on the version.

#include <gtest/gtest.h>

#include <cctype>
#include <memory>
#include <set>
#include <string>

#include "SpineTestSupport.h"
#include "pipeline/AsiKeywords.h"
#include "pipeline/NullParser.h"

using FileReaderPlugin::ASI_KEYWORD_COUNT;
using FileReaderPlugin::ASI_KEYWORDS;
using FileReaderPlugin::CommandParser;
using FileReaderPlugin::NullParser;
using FileReaderPlugin::usesDeprecatedCommand;
using spinetest::TestParser;

namespace {

// Counts its own deletions, to check who owns what.
class CountedNull : public NullParser {
 public:
  CountedNull(const std::string& name, int* deleted) : NullParser(name), deleted_(deleted) {}
  ~CountedNull() override { ++*deleted_; }

 private:
  int* deleted_;
};

}  // namespace

TEST(KeywordTable, HoldsOneHundredTwentyDistinctKeywords) {
  std::set<std::string> lowered;
  for (const char* keyword : ASI_KEYWORDS) {
    std::string word(keyword);
    for (char& c : word) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    lowered.insert(word);
  }
  EXPECT_EQ(lowered.size(), ASI_KEYWORD_COUNT);
  EXPECT_EQ(ASI_KEYWORD_COUNT, 120u);

  TestParser parser;
  parser.fillNull();
  EXPECT_EQ(parser.tableSize(), 120u);
  EXPECT_EQ(lowered.count("version"), 0u);
}

TEST(KeywordTable, NamesKeywordsOfEveryFamily) {
  TestParser parser;
  parser.fillNull();
  for (const char* keyword : {"ReferenceYear", "RefLLA", "File", "PlatformID", "PlatformOriOffset",
                              "BeamID", "BeamDataTarget", "GateID", "GateData", "DataTableRow",
                              "ProjectorInterpolateFOV", "LaserOri", "LOBDrawStyle",
                              "CustomRenderingColor"}) {
    ASSERT_NE(parser.lookUp(keyword), nullptr) << keyword;
    EXPECT_EQ(parser.lookUp(keyword)->name(), keyword);
  }
  for (const char* unknown : {"Version", "DataKeyLock", "DTEDMap", "", "PlatformIDs"})
    EXPECT_EQ(parser.lookUp(unknown), nullptr) << unknown;
}

TEST(KeywordTable, LookUpIgnoresCase) {
  TestParser parser;
  parser.fillNull();
  CommandParser* command = parser.lookUp("PlatformID");
  ASSERT_NE(command, nullptr);
  EXPECT_EQ(parser.lookUp("PLATFORMID"), command);
  EXPECT_EQ(parser.lookUp("platformid"), command);
  EXPECT_EQ(parser.lookUp("pLaTfOrMiD"), command);
}

TEST(KeywordTable, ReplaceDeletesTheOldCommandAndAddsNewKeywords) {
  int deleted = 0;
  {
    TestParser parser;
    parser.add(new CountedNull("BeamID", &deleted));
    parser.replace(new CountedNull("BEAMID", &deleted));
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(parser.lookUp("beamid")->name(), "BEAMID");
    parser.replace(new CountedNull("Extra", &deleted));
    EXPECT_NE(parser.lookUp("extra"), nullptr);
    EXPECT_EQ(parser.tableSize(), 2u);
  }
  // The table deletes what it holds.
  EXPECT_EQ(deleted, 3);
}

TEST(KeywordTable, NullParserIsInertAndClonesItsName) {
  NullParser parser("BeamDataBody");
  parser.setLineNumber(12);
  parser.executeStage1({"BeamDataBody", "1", "2", "3"});
  parser.transmit();
  parser.setMessage(PICommon::PI_NOTIFY_ERROR, "x");
  EXPECT_FALSE(parser.hasError());
  EXPECT_FALSE(parser.hasWarning());
  EXPECT_EQ(parser.lineNumber(), 0u);
  std::unique_ptr<CommandParser> copy(parser.clone());
  EXPECT_EQ(copy->name(), "BeamDataBody");
  EXPECT_NE(copy.get(), &parser);
}

TEST(VersionDependentKeywords, DeprecatedUpToTheirLastOldVersion) {
  EXPECT_TRUE(usesDeprecatedCommand("Classification", 4));
  EXPECT_FALSE(usesDeprecatedCommand("Classification", 5));
  EXPECT_TRUE(usesDeprecatedCommand("GenericData", 6));
  EXPECT_FALSE(usesDeprecatedCommand("GenericData", 7));
  EXPECT_TRUE(usesDeprecatedCommand("ImageFile", 13));
  EXPECT_FALSE(usesDeprecatedCommand("ImageFile", 14));
  EXPECT_TRUE(usesDeprecatedCommand("imagefile", 2));
  EXPECT_FALSE(usesDeprecatedCommand("PlatformData", 2));
}
