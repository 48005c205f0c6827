// The range file as a whole: which format it is, the origin, the banner
// settings and the overlays.

#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <fstream>

#include "document/ErrorCodesUD.h"
#include "importers/csv/CSVFile.h"
#include "support_csv.h"

namespace {

constexpr double kDeg = 0.017453292519943295;

TEST(CsvFileFormat, ScoreHeaderGivesTheScoreOriginAndOverlays) {
  CsvLoad load = loadCsv(scoreFile(scorePos("LTS", 1, "10:00:00", 33.1, -118.5, 0, 0, 0)));
  ASSERT_EQ(load.result, 0);
  EXPECT_NE(load.out.find("Parsing File : "), std::string::npos);
  // No ORG line: the scenario's origin is left alone.
  EXPECT_FALSE(load.scenario->hasReferenceOrigin());
  EXPECT_EQ(load.scenario->getExternalFile(EFT_GOG_FILE),
            (std::vector<std::string>{"!SOCAL_Overlays.gog", "States.gog"}));
  EXPECT_EQ(load.scenario->coordSystem(), orvCore::LLA);
}

TEST(CsvFileFormat, PmrfHeaderSetsTheRangeOriginEvenWithoutAnOrgLine) {
  CsvLoad load = loadCsv(pmrfFile(""));
  ASSERT_EQ(load.result, 0);
  EXPECT_EQ(load.scenario->getExternalFile(EFT_GOG_FILE), (std::vector<std::string>{"hawaii_isles.gog"}));
  ASSERT_TRUE(load.scenario->hasReferenceOrigin());
  const orvCore::Vec3 origin = load.scenario->converter().referenceOrigin();
  EXPECT_NEAR(origin[0], 22.119439197 * kDeg, 1e-12);
  EXPECT_NEAR(origin[1], -159.91949881 * kDeg, 1e-12);
  EXPECT_TRUE(load.err.empty()) << load.err;
}

TEST(CsvFileFormat, KnownOrgIsQuietAndAnUnknownOneWarnsButIsUsed) {
  CsvLoad known = loadCsv(scoreFile("", "ORG,33.026669,-118.578636,x,12.5\n"));
  EXPECT_EQ(known.err.find("WARNING"), std::string::npos);
  EXPECT_NEAR(known.scenario->converter().referenceOrigin()[2], 12.5, 1e-9);

  CsvLoad other = loadCsv(scoreFile("", "ORG,30,-120,x\n"));
  ASSERT_EQ(other.result, 0);
  EXPECT_NE(other.err.find("Reference origin from ORG line is not recognized."), std::string::npos);
  const orvCore::Vec3 origin = other.scenario->converter().referenceOrigin();
  EXPECT_NEAR(origin[0], 30 * kDeg, 1e-12);
  EXPECT_NEAR(origin[1], -120 * kDeg, 1e-12);
  EXPECT_EQ(origin[2], 0.0);  // no field 4
}

TEST(CsvFileFormat, OrgInTheRangesWholeDegreeChoosesTheFormatWithoutHeader) {
  CsvLoad load = loadCsv("SRC,range,run\nORG,33.5,-118.2,0,0\n" + scorePos("LTS", 1, "10:00:00", 33.1, -118.5, 0, 0, 0));
  ASSERT_EQ(load.result, 0);
  EXPECT_NE(load.err.find("WARNING"), std::string::npos);
  EXPECT_EQ(load.scenario->platforms().size(), 1u);
}

TEST(CsvFileFormat, AnythingElseIsRefusedWithTheConverterMessage) {
  CsvLoad load = loadCsv("COM,nothing here\nLEG,1,2,3\n");
  EXPECT_EQ(load.result, 1);
  EXPECT_NE(load.err.find("Currently Brumara .csv to .asi file converter only handles only PMRF and SCORE .csv files"),
            std::string::npos);
}

TEST(CsvFileFormat, OriginBeyondAnyWholeDegreeChoosesNoFormat) {
  EXPECT_EQ(loadCsv("COM,x\nORG,33,1e300,0,0\n").result, 1);
  EXPECT_EQ(loadCsv("COM,x\nORG,nan,-118.5,0,0\n").result, 1);
  EXPECT_EQ(loadCsv("COM,x\nORG,-1e300,-159.5,0,0\n").result, 1);
}

TEST(CsvFileSettings, ClassificationLevelsAreCaseSensitive) {
  const std::pair<const char*, const char*> cases[] = {{"FOUO", "FOR OFFICIAL USE ONLY"},
                                                       {"CONFIDENTIAL", "CONFIDENTIAL"},
                                                       {"SECRET", "SECRET"},
                                                       {"secret", "UNCLASSIFIED"},
                                                       {"UNCLAS", "UNCLASSIFIED"}};
  for (const auto& c : cases) {
    CsvLoad load = loadCsv(scoreFile("", std::string("CLA,") + c.first + "\n"));
    EXPECT_EQ(load.scenario->classification(), c.second) << c.first;
  }
}

TEST(CsvFileSettings, SourceLineBecomesTheDescription) {
  CsvLoad load = loadCsv(scoreFile("", "SRC,SOCAL,Exercise 7\n"));
  EXPECT_EQ(load.scenario->desc(), "SOCAL  Exercise 7");
}

TEST(CsvFileEntry, ProgressRisesAndACancelStopsTheLoad) {
  std::string body;
  for (int i = 0; i < 20000; ++i) body += scorePos("LTS", i % 5, "10:00:" + std::to_string(i % 60), 33, -118, 0, 0, 0);
  const std::string path = "/tmp/orv_csv_progress_" + std::to_string(getpid()) + ".csv";
  std::ofstream(path) << scoreFile(body);

  std::vector<int> seen;
  ScenarioUD::PercentCallbackAdapter watch([&seen](int percent) {
    seen.push_back(percent);
    return false;
  });
  ScenarioUD whole;
  testing::internal::CaptureStdout();
  EXPECT_EQ(loadRangeFile(path, whole, &watch), UD_NO_ERROR);
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_LT(seen[0], seen[1]);
  EXPECT_LE(seen[1], 100);

  ScenarioUD::PercentCallbackAdapter cancel([](int) { return true; });
  ScenarioUD canceled;
  EXPECT_EQ(loadRangeFile(path, canceled, &cancel), UD_USER_CANCEL);
  testing::internal::GetCapturedStdout();
  std::remove(path.c_str());
}

TEST(CsvFileEntry, NeitherRangeIsFatal) {
  const std::string path = "/tmp/orv_csv_neither_" + std::to_string(getpid()) + ".csv";
  std::ofstream(path) << "COM,x\n";
  ScenarioUD scenario;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_TRUE(udIsFatalError(loadRangeFile(path, scenario, nullptr)));
  testing::internal::GetCapturedStderr();
  testing::internal::GetCapturedStdout();
  std::remove(path.c_str());
}

}  // namespace
