// The two converters as files on disk: what the ASI text holds for several
// satellites, the GOG files, a file that gives no point, and where the
// Kepler output goes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "importers/Kepler2ASI.h"
#include "importers/TLE2ASI.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

const char* const kSets =
    "ISS (ZARYA)\n"
    "1 25544U 98067A   05207.31276620  .00009213  00000-0  73642-4 0  9958\n"
    "2 25544  51.6451  60.5367 0003083 157.4370 169.9096 15.71943135381834\n"
    "MINOTAUR R/B\n"
    "1 28872U 05037B   05333.02012661  .25992681  00000-0  24476-3 0  1534\n"
    "2 28872  96.4736 157.9986 0303955 244.0492 110.6523 16.46015938 10708\n";

const char* const kShot = "ind 1\ntzero 0\ntend 60\ndt 10\nstatevec 0 20925646.3 0 0 2000 6000 0\n";

class SatelliteConvert : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("satconv-" + std::to_string(::getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name) << text;
    return (folder_ / name).string();
  }
  std::string read(const std::string& name) {
    std::ifstream in(folder_ / name);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }
  static size_t count(const std::string& text, const std::string& what) {
    size_t n = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
  }

  // Runs a conversion, keeping what it told on the issue stream.
  template <typename F>
  int quietly(F convert, std::string* told = nullptr) {
    ::testing::internal::CaptureStderr();
    const int result = convert();
    const std::string text = ::testing::internal::GetCapturedStderr();
    if (told) *told = text;
    return result;
  }

  fs::path folder_;
};

TEST_F(SatelliteConvert, SatellitesShareOneHeaderAndEachGetsItsGogFile) {
  TLE2ASI::TleSettings settings;
  settings.inputFile = write("two.tle", kSets);
  settings.span = 1.0;
  settings.writeGog = true;
  std::string told;
  ASSERT_EQ(quietly([&] { return TLE2ASI::convert(settings); }, &told), 0);
  EXPECT_THAT(told, HasSubstr("Code [6] occurred with MINOTAUR R/B"));

  const std::string asi = read("two.tle.asi");
  EXPECT_EQ(count(asi, "Version\t"), 1u);
  // Each platform's id is its satellite's catalogue number.
  EXPECT_LT(asi.find("Version\t"), asi.find("PlatformID\t25544"));
  EXPECT_THAT(asi, HasSubstr("ReferenceYear\t2005\n"));
  EXPECT_THAT(asi, HasSubstr("PlatformName\t25544 \"ISS (ZARYA)\"\n"));
  EXPECT_THAT(asi, HasSubstr("PlatformName\t28872 \"MINOTAUR R/B\"\n"));
  EXPECT_EQ(count(asi, "PlatformData\t25544 "), 60u);
  // The rocket body decays 50 to 55 minutes after its epoch.
  EXPECT_GE(count(asi, "PlatformData\t28872 "), 51u);
  EXPECT_LE(count(asi, "PlatformData\t28872 "), 55u);

  // One GOG per satellite, named after it with the slash made safe.
  const std::string gog = read("ISS (ZARYA).gog");
  EXPECT_EQ(gog.rfind("version 2\nstart\npoints\npointsize 2\ndepthbuffer true\naltitudeUnits meters\n"
                      "linecolor hex 0x8000ff00\nlla ",
                      0),
            0u)
      << gog;
  EXPECT_EQ(count(gog, "\nlla "), 60u);
  EXPECT_EQ(gog.substr(gog.size() - 6), "\nend\n\n");
  EXPECT_TRUE(fs::exists(folder_ / "MINOTAUR R_B.gog"));
  EXPECT_EQ(TLE2ASI::gogFileName(".."), "_...gog");
}

TEST_F(SatelliteConvert, FilesThatGiveNoPointFail) {
  TLE2ASI::TleSettings settings;
  settings.inputFile = write("short.tle", kSets);
  settings.span = 0.01;  // 36 s, less than one step
  std::string told;
  EXPECT_EQ(quietly([&] { return TLE2ASI::convert(settings); }, &told), -1);
  EXPECT_THAT(told, HasSubstr("has a point to write"));

  settings.inputFile = write("empty.tle", "\n\n");
  EXPECT_EQ(quietly([&] { return TLE2ASI::convert(settings); }, &told), -1);
  EXPECT_THAT(told, HasSubstr("No element sets found in TLE file"));

  // An output that can't be opened has its own answer.
  settings.inputFile = write("iss.tle", std::string(kSets).substr(0, std::string(kSets).find("MINOTAUR")));
  settings.span = 1.0;
  settings.outputFile = (folder_ / "no-such-folder" / "iss.asi").string();
  EXPECT_EQ(quietly([&] { return TLE2ASI::convert(settings); }, &told), -2);
  EXPECT_THAT(told, HasSubstr("Cannot write the ASI file <" + settings.outputFile + ">"));
  settings.outputFile.clear();

  settings.inputFile = (folder_ / "missing.tle").string();
  EXPECT_EQ(quietly([&] { return TLE2ASI::convert(settings); }, &told), -1);
  EXPECT_THAT(told, HasSubstr("Cannot open input TLE file <" + settings.inputFile + ">"));
}

TEST_F(SatelliteConvert, KeplerOutputLandsBesideTheInput) {
  std::string written;
  const std::string plain = write("shot.kp", kShot);
  ASSERT_EQ(quietly([&] { return KEPLER2ASI::convert(plain, 100.0, &written); }), 0);
  EXPECT_EQ(written, (folder_ / "shot.kp.asi").string());
  const std::string asi = read("shot.kp.asi");
  EXPECT_THAT(asi, HasSubstr("RefLLA\t22.5 -160 0\n"));
  EXPECT_THAT(asi, HasSubstr("PlatformData\t1 \"100.00000000\" "));
  EXPECT_THAT(asi, HasSubstr("PlatformData\t1 \"150.00000000\" "));

  // An "otfile" keeps its name but not its folder.
  const std::string named = write("named.kp", std::string(kShot) + "otfile \"/elsewhere/out.asi\"\n");
  ASSERT_EQ(quietly([&] { return KEPLER2ASI::convert(named, 0.0, &written); }), 0);
  EXPECT_EQ(written, (folder_ / "out.asi").string());
  EXPECT_TRUE(fs::exists(folder_ / "out.asi"));

  // Nor may it name the input itself.
  const std::string self = write("self.kp", std::string(kShot) + "otfile self.kp\n");
  std::string told;
  EXPECT_EQ(quietly([&] { return KEPLER2ASI::convert(self, 0.0); }, &told), -1);
  EXPECT_THAT(told, HasSubstr("Invalid output file name (self.kp)"));
  EXPECT_THAT(read("self.kp"), HasSubstr("otfile self.kp"));

  EXPECT_EQ(quietly([&] { return KEPLER2ASI::convert("", 0.0); }, &told), -1);
  EXPECT_EQ(told, "No Kepler file specified\n");
  EXPECT_EQ(quietly([&] { return KEPLER2ASI::convert("/no/such.kp", 0.0); }, &told), -1);
  EXPECT_EQ(told, "Could not open (/no/such.kp)\n");
}

}  // namespace
