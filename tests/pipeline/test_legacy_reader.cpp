// The reader of side formats with a stand-in importer for ".gpx": archive
// members in name order, cancel, and the issue texts.
#include "pipeline/LegacyReader.h"

#include "host/ReferenceHost.h"
#include "pipeline/Unzip.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

class LegacyReaderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    work_ = fs::temp_directory_path() / ("legacy-" + std::to_string(::getpid()) + "-" +
                                         ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(work_);
    fs::create_directories(work_ / "src");
  }
  void TearDown() override {
    if (host_) host_->uninstall();
    fs::remove_all(work_);
  }
  void startHost(long cancelAfter = 0) {
    RefHost::HostConfig config;
    config.progressBar = false;
    config.echoConsole = false;
    config.cancelAfter = cancelAfter;
    host_ = std::make_unique<RefHost::ReferenceHost>(config);
    host_->install();
  }
  // A ".gpx" importer that makes one platform per file, named by the file's
  // first line, and fails on a first line "broken".
  std::unique_ptr<FileReaderPlugin::LegacyReader> reader(bool append) {
    ImporterEntry entry;
    entry.extensions = {".gpx"};
    entry.notice = "Reading GPX file: ";
    entry.fatalText = "Fatal error when loading GPX file\n";
    entry.load = [this](const std::string& path, ScenarioUD& s, ScenarioUD::PercentCallback* progress) {
      std::ifstream in(path);
      std::string name;
      std::getline(in, name);
      reads_.push_back(fs::path(path).filename().string());
      if (progress) progress->updateProgress(100);
      if (name == "broken") return static_cast<int>(UD_FATAL);
      auto* p = new PlatformUD(&s, std::make_unique<PlatformHeaderUD>());
      p->SetUniqueID(s.NewId());
      p->SetDesc(name);
      p->AddToScenario(&s);
      const double lla[3] = {0.5, 0.5, 0.0};
      p->AddState(static_cast<double>(reads_.size()), lla, nullptr, nullptr);
      return 0;
    };
    auto r = std::make_unique<FileReaderPlugin::LegacyReader>(unzip_, ImporterTable{entry});
    r->setAppend(append, nullptr);
    return r;
  }
  std::string file(const std::string& name, const std::string& text) {
    std::ofstream(work_ / "src" / name, std::ios::binary) << text;
    return (work_ / "src" / name).string();
  }
  std::string zip(const std::string& name, const std::vector<std::string>& members) {
    std::string cmd = "cd '" + (work_ / "src").string() + "' && zip -q -X '" + (work_ / name).string() + "'";
    for (const auto& m : members) cmd += " '" + m + "'";
    EXPECT_EQ(std::system(cmd.c_str()), 0);
    return (work_ / name).string();
  }
  std::vector<std::string> warnings() const {
    std::vector<std::string> out;
    for (const auto& n : host_->notifications())
      if (n.severity == 3) out.push_back(n.text);
    return out;
  }

  fs::path work_;
  PUUnzip::Unzip unzip_;
  std::unique_ptr<RefHost::ReferenceHost> host_;
  std::vector<std::string> reads_;
};

TEST_F(LegacyReaderTest, ArchiveMembersAreReadInNameOrderTheLaterOnesAppended) {
  startHost();
  file("b.gpx", "bravo\n");
  file("a.gpx", "alpha\n");
  file("c.gpx", "charlie\n");
  const std::string archive = zip("tracks.zip", {"b.gpx", "c.gpx", "a.gpx"});
  ASSERT_EQ(reader(false)->read(archive), 0);
  EXPECT_EQ(reads_, (std::vector<std::string>{"a.gpx", "b.gpx", "c.gpx"}));
  const nlohmann::json dump = host_->toJson();
  EXPECT_EQ(dump["scenario"]["fileName"], archive);
  // Each file appended: all three platforms are there.
  ASSERT_EQ(dump["objects"].size(), 3u);
  EXPECT_EQ(dump["objects"][0]["header"]["name"], "alpha");
  EXPECT_EQ(dump["objects"][2]["header"]["name"], "charlie");
  EXPECT_EQ(host_->waitCursorDepth(), 0);
  // The dialog ends at the top of the scale.
  ASSERT_FALSE(host_->progressDialogs().empty());
  EXPECT_EQ(host_->progressDialogs().back().value, 1000);
}

TEST_F(LegacyReaderTest, AFailingFileEndsTheLoadAndItsIssuesAreWarnings) {
  startHost();
  file("a.gpx", "broken\n");
  file("b.gpx", "bravo\n");
  EXPECT_EQ(reader(false)->read(zip("tracks.zip", {"a.gpx", "b.gpx"})), -1);
  EXPECT_EQ(reads_, std::vector<std::string>{"a.gpx"});
  EXPECT_EQ(warnings(), std::vector<std::string>{"Fatal error when loading GPX file\n\n"});
  EXPECT_TRUE(host_->toJson()["objects"].empty());
}

TEST_F(LegacyReaderTest, CancelReturnsOneWithoutIssueTexts) {
  startHost(1);
  EXPECT_EQ(reader(false)->read(file("a.csv", "no marker\n")), 1);
  EXPECT_TRUE(warnings().empty());
  EXPECT_EQ(host_->waitCursorDepth(), 0);
}

TEST_F(LegacyReaderTest, AnAppendedFileKeepsTheHostScenario) {
  startHost();
  ASSERT_EQ(reader(false)->read(file("a.gpx", "alpha\n")), 0);
  ASSERT_EQ(reader(true)->read(file("b.gpx", "bravo\n")), 0);
  const nlohmann::json dump = host_->toJson();
  EXPECT_EQ(dump["objects"].size(), 2u);
  EXPECT_EQ(dump["scenario"]["fileName"], (work_ / "src" / "a.gpx").string());
}

}  // namespace
