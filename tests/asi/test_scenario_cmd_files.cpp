// Side files of the scenario: what loads on the display application, when
// it loads, the once-per-file rules, the range configuration found through
// the file locator, and the commands that are no longer served.

#include <filesystem>

#include "asi/LliResolver.h"
#include "asi/MetadataResolver.h"
#include "test_scenario_cmd_support.h"

using namespace ScnTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class FileLoadTest : public ScnFixture {
 protected:
  // Writes each named file into the test's folder; answers "Keyword path..." lines.
  std::string line(const std::string& keyword, const std::vector<std::string>& files) {
    std::string text = keyword;
    for (const std::string& name : files) text += " " + writeFile(name, "content of " + name);
    return text + "\n";
  }
  std::string missing(const std::string& name) const { return (dir_ / name).string(); }
};

class PlotHostTest : public FileLoadTest {
 protected:
  PlotHostTest() { plot_ = true; }
};

class RangeFileTest : public ScnFixture {
 protected:
  RangeFileTest() {
    locateDir_ = (std::filesystem::temp_directory_path() / ("scn_cmd_locate_" + std::to_string(getpid()))).string();
    std::filesystem::create_directories(locateDir_);
  }
  ~RangeFileTest() override { std::filesystem::remove_all(locateDir_); }
};

class NoLocatorTest : public ScnFixture {};
class RetiredCommandTest : public ScnFixture {};

}  // namespace

// --- loads and their moments -------------------------------------------------------

TEST_F(FileLoadTest, TerrainRuleViewAndMediaFilesLoadWithViewAndMediaLast) {
  const std::string text = header() + line("ViewFile", {"a.vew"}) + line("MediaFile", {"b.mpg"}) +
                           line("ITConfigFile", {"c.cfg"}) + line("RuleFile", {"d.rul"}) + ship();
  ASSERT_EQ(0, runFile(text));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  // View and media files wait until every entity of the file is loaded.
  EXPECT_THAT(loads(), ElementsAre("loadTerrainConfiguration c.cfg", "removeAllPrefRules", "loadPrefRuleFile d.rul",
                                   "loadViewFile a.vew", "loadMediaFile b.mpg"));
}

TEST_F(FileLoadTest, OverlaysWaitForTheScenarioFrameAndEachFailureWarns) {
  const std::string text = header() + "GOGFile " + missing("gone.gog") + " " + writeFile("a.gog", "x") + "\n" +
                           "TestID 1 ship\n" + line("GOGFile", {"b.gog"}) + "TestData 1 0\n";
  ASSERT_EQ(0, runFile(text));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 4 GOGFile: Problems loading GOG file; check console for error messages"));
  // The first line loads at the flush (TestID), behind it in the file the rest.
  EXPECT_THAT(loads(), ElementsAre("loadGOGFile a.gog", "loadGOGFile b.gog"));
  EXPECT_EQ(0, host_->displayLoads()[0].at("hostId").get<uint64_t>());
  EXPECT_TRUE(host_->displayLoads()[0].at("flag").get<bool>());
}

// Terrain and rule files warn when the host refuses them; view and media
// files leave the reporting to the host.
TEST_F(FileLoadTest, FailedLoadsWarn) {
  const std::string text = header() + "ITConfigFile " + missing("t.cfg") + "\nRuleFile " + missing("r.rul") +
                           "\nViewFile " + missing("v.vew") + "\nMediaFile " + missing("m.mpg") + "\n" + ship();
  EXPECT_EQ(0, runFile(text));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 4 ITConfigFile: Problems loading Terrain Configuration; check console for error messages",
                          "Line 5 RuleFile: Problems loading Preference Rule file; check console for error messages"));
}

TEST_F(FileLoadTest, TerrainRuleAndViewFilesAreTakenOncePerFile) {
  const std::string text = header() + line("ITConfigFile", {"a.cfg"}) + line("ITConfigFile", {"b.cfg"}) +
                           line("RuleFile", {"a.rul"}) + line("RuleFile", {"b.rul"}) + line("ViewFile", {"a.vew"}) +
                           line("ViewFile", {"b.vew"}) + ship();
  EXPECT_EQ(0, runFile(text));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 5 ITConfigFile: Can only specified the command once",
                                             "Line 7 RuleFile: Can only specified the command once",
                                             "Line 9 ViewFile: Can only specified the command once"));
  EXPECT_THAT(loads(), ElementsAre("loadTerrainConfiguration a.cfg", "removeAllPrefRules", "loadPrefRuleFile a.rul",
                                   "loadViewFile a.vew"));
}

TEST_F(FileLoadTest, MediaFilesAreTakenOncePerKind) {
  const std::string text = header() + line("MediaFile", {"a.lst"}) + line("MediaFile", {"b.tmd"}) +
                           line("MediaFile", {"c.toc"}) + line("MediaFile", {"d.mpg"}) + line("MediaFile", {"e.mpg"}) +
                           line("MediaFile", {"f.TOC"}) + ship();
  EXPECT_EQ(0, runFile(text));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 5 MediaFile: Can only specified the command once per file type",
                                             "Line 9 MediaFile: Can only specified the command once per file type"));
  EXPECT_THAT(loads(), ElementsAre("loadMediaFile a.lst", "loadMediaFile c.toc", "loadMediaFile d.mpg",
                                   "loadMediaFile e.mpg"));
}

TEST_F(FileLoadTest, ImageFileIsATerrainConfigurationUpToVersion13AndMediaFrom14) {
  ASSERT_EQ(0, runFile(header(13) + line("ImageFile", {"a.img"}) + line("ImageFile", {"b.img"}) + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 5 ImageFile: Can only specified the command once"));
  EXPECT_THAT(loads(), ElementsAre("loadTerrainConfiguration a.img"));

  ASSERT_EQ(0, runFile(header(14) + line("ImageFile", {"c.img", "d.img"}) + line("ImageFile", {"e.img"}) + ship()));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(loads(), ElementsAre("loadTerrainConfiguration a.img", "loadMediaFile c.img", "loadMediaFile d.img",
                                   "loadMediaFile e.img"));
}

TEST_F(FileLoadTest, AnAppendedFileLoadsOnlyOverlaysAndItsRules) {
  AsiInterface::MetadataResolver resolver;
  const std::string text = header() + line("ITConfigFile", {"a.cfg"}) + line("ViewFile", {"a.vew"}) +
                           line("MediaFile", {"a.mpg"}) + line("ImageFile", {"a.img"}) + line("RuleFile", {"a.rul"}) +
                           line("GOGFile", {"a.gog"}) + ship();
  ASSERT_EQ(0, runFile(text, true, &resolver));
  // Appending keeps the host's rules: no removal before the load.
  EXPECT_THAT(loads(), ElementsAre("loadPrefRuleFile a.rul", "loadGOGFile a.gog"));
}

TEST_F(FileLoadTest, AnAppendedFileOfAnIdentifiedFeedLoadsNoRules) {
  AsiInterface::LliResolver resolver("feed");
  ASSERT_EQ(0, runFile(header() + line("RuleFile", {"a.rul"}) + ship(), true, &resolver));
  EXPECT_THAT(loads(), IsEmpty());
}

TEST_F(FileLoadTest, ArgumentCountsAreChecked) {
  EXPECT_EQ(0, runFile(header() + "ITConfigFile\nMediaFile a b\nGOGFile\nImageFile\nFile\n" + ship()));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 4 ITConfigFile: Expecting 1 argument", "Line 5 MediaFile: Expecting 1 argument",
                          "Line 6 GOGFile: Expecting at least 1 argument", "Line 7 ImageFile: Expecting at least 1 argument",
                          "Line 8 File: Expecting 1 argument"));
  EXPECT_THAT(loads(), IsEmpty());
}

TEST_F(PlotHostTest, ThePlotApplicationLoadsNoSideFiles) {
  const std::string text = header() + line("ITConfigFile", {"a.cfg"}) + line("RuleFile", {"a.rul"}) +
                           line("ViewFile", {"a.vew"}) + line("MediaFile", {"a.mpg"}) + line("GOGFile", {"a.gog"}) +
                           line("ImageFile", {"a.img"}) + "File range.xml\n" + ship();
  ASSERT_EQ(0, runFile(text));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(host_->displayLoads(), IsEmpty());
  EXPECT_THAT(host_->locatorQueries(), IsEmpty());
}

// --- range configuration through the file locator ---------------------------------------

TEST_F(RangeFileTest, TheLocatedFileIsSentAsTextAfterAllEntities) {
  const std::string path = locateDir_ + "/range.xml";
  std::ofstream(path) << "<range>\n  <site/>\n</range>\n";
  ASSERT_EQ(0, runFile(header() + "File range.xml\n" + ship()));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(host_->locatorQueries(), ElementsAre("range.xml"));
  ASSERT_EQ(1u, host_->displayLoads().size());
  const auto& load = host_->displayLoads()[0];
  EXPECT_EQ("loadRangeConfiguration", load.at("op").get<std::string>());
  EXPECT_EQ(path, load.at("name").get<std::string>());
  EXPECT_FALSE(load.at("flag").get<bool>());
  EXPECT_EQ(std::string("<range>\n  <site/>\n</range>\n").size(), load.at("bytes").get<size_t>());
}

TEST_F(RangeFileTest, UnfoundOrNonXmlFilesWarn) {
  ASSERT_EQ(0, runFile(header() + "File nowhere.xml\nFile range.txt\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 5 File: Unsupported file format",
                                             "Line 4 File: Failed to find file: nowhere.xml"));
  EXPECT_THAT(host_->locatorQueries(), ElementsAre("nowhere.xml"));
  EXPECT_THAT(host_->displayLoads(), IsEmpty());
}

TEST_F(RangeFileTest, AnEmptyFileIsRefusedByTheHost) {
  std::ofstream(locateDir_ + "/empty.xml").flush();
  ASSERT_EQ(0, runFile(header() + "File empty.xml\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 4 File: Failed to load file: " + locateDir_ + "/empty.xml"));
}

TEST_F(RangeFileTest, AnAppendedFileSendsNoRangeConfiguration) {
  std::ofstream(locateDir_ + "/range.xml") << "<range/>";
  ASSERT_EQ(0, runFile(header() + "File range.xml\n" + ship(), true));
  EXPECT_THAT(host_->locatorQueries(), IsEmpty());
  EXPECT_THAT(host_->displayLoads(), IsEmpty());
}

TEST_F(NoLocatorTest, WithoutTheServiceTheFileIsReported) {
  ASSERT_EQ(0, runFile(header() + "File range.xml\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 4 File: No service to find file: range.xml"));
}

// --- commands no longer served ------------------------------------------------------------

TEST_F(RetiredCommandTest, EachLineSaysItIsNoLongerSupported) {
  ASSERT_EQ(0, runFile(header() + "SoundFile a.wav 0 10\nSoundFile b.wav 0 10\nDEDMap x y\nWVSMap a b\nWVSMap\n" +
                       "SoundFile c.wav -5 1\n" + ship()));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 4 SoundFile: SoundFile keyword is no longer supported.",
                          "Line 5 SoundFile: Can only specified the command once",
                          "Line 5 SoundFile: SoundFile keyword is no longer supported.",
                          "Line 6 DEDMap: The ASI Loader no longer supports the DEDMap command",
                          "Line 6 DEDMap: DEDFile is no longer supported.",
                          "Line 7 WVSMap: WVSFile is no longer supported.",
                          "Line 8 WVSMap: Expecting at least 1 argument",
                          "Line 8 WVSMap: WVSFile is no longer supported.",
                          "Line 9 SoundFile: Can only specified the command once",
                          "Line 9 SoundFile: SoundFile keyword is no longer supported."));
  EXPECT_THAT(host_->displayLoads(), IsEmpty());
}

TEST_F(RetiredCommandTest, SoundFileTimesMayNotBeStatic) {
  EXPECT_EQ(2, runFile(header() + "SoundFile a.wav -1 10\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 4 SoundFile: Invalid time",
                                             "Line 4 SoundFile: SoundFile keyword is no longer supported."));
}
