// Reader selection and the ZIP reader, with a stand-in for the ASI reader
// that claims ".asi" files exactly as the real one does and records its reads.
#include "pipeline/ReaderFactory.h"

#include "host/ReferenceHost.h"
#include "hostapi/PIData.h"
#include "pipeline/Unzip.h"
#include "pipeline/ZipReader.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using FileReaderPlugin::FileReader;

namespace {

struct ReadLog {
  std::vector<std::pair<std::string, bool>> reads;  // base name, append
  int resultOf(const std::string& name) const {
    auto it = results.find(name);
    return it == results.end() ? 0 : it->second;
  }
  std::map<std::string, int> results;
};

class StandInAsiReader : public FileReader {
 public:
  explicit StandInAsiReader(std::shared_ptr<ReadLog> log) : log_(std::move(log)) {}
  int read(const std::string& path) override {
    std::string name = fs::path(path).filename().string();
    log_->reads.emplace_back(name, append_);
    return log_->resultOf(name);
  }
  int canReadFile(const std::string& path) const override {
    if (fs::path(path).extension().string() != ".asi" && fs::path(path).extension().string() != ".ASI")
      return NOT_THIS_FORMAT;
    return canReadAsiFile(path);
  }
  int getScenarioIdentifier(const std::string& path, std::string& id) const override {
    return readAsiScenarioIdentifier(path, id);
  }
  void setAppend(bool append, AsiInterface::Resolver*) override { append_ = append; }
  FileReader* clone() const override { return new StandInAsiReader(*this); }
  void getSupportedFileExtensions(std::map<std::string, std::string>& e) const override {
    e["*.asi"] = "ASCII Scenario Input File";
  }

 private:
  std::shared_ptr<ReadLog> log_;
  bool append_ = false;
};

class ReaderSelectionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    work_ = fs::temp_directory_path() /
            ("selection-" + std::to_string(::getpid()) + "-" +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(work_);
    fs::create_directories(work_ / "src");
    RefHost::HostConfig config;
    config.progressBar = false;
    config.echoConsole = false;
    host_ = std::make_unique<RefHost::ReferenceHost>(config);
    host_->install();
    log_ = std::make_shared<ReadLog>();
    factory_ = std::make_unique<FileReaderPlugin::ReaderFactory>(std::make_shared<StandInAsiReader>(log_));
  }
  void TearDown() override {
    factory_.reset();
    host_->uninstall();
    fs::remove_all(work_);
  }

  std::string file(const std::string& name, const std::string& text) {
    fs::path p = work_ / "src" / name;
    std::ofstream(p, std::ios::binary) << text;
    return p.string();
  }
  std::string zip(const std::string& name, const std::vector<std::string>& members) {
    std::string cmd = "cd '" + (work_ / "src").string() + "' && zip -q -X '" + (work_ / name).string() + "'";
    for (const auto& m : members) cmd += " '" + m + "'";
    EXPECT_EQ(std::system(cmd.c_str()), 0);
    return (work_ / name).string();
  }
  std::string lastError() const {
    for (auto it = host_->notifications().rbegin(); it != host_->notifications().rend(); ++it)
      if (it->severity == 2) return it->text;
    return "";
  }

  fs::path work_;
  std::unique_ptr<RefHost::ReferenceHost> host_;
  std::shared_ptr<ReadLog> log_;
  std::unique_ptr<FileReaderPlugin::ReaderFactory> factory_;
};

TEST_F(ReaderSelectionTest, ZipReaderReadsMembersInArchiveOrderOnce) {
  file("b.asi", "# Scenario Identifier: feed\nVersion 24\n");
  file("a.asi", "# Scenario Identifier: feed\nVersion 24\n");
  std::string path = zip("feed.zip", {"b.asi", "a.asi"});
  auto reader = factory_->createReader(path);
  ASSERT_TRUE(reader);

  std::string id;
  ASSERT_EQ(reader->getScenarioIdentifier(path, id), 0);
  EXPECT_EQ(id, " feed");
  ASSERT_EQ(factory_->unzip().lastZipFilename(), path);
  const auto unpacked = factory_->unzip().lastFilenames();
  size_t dialogs = host_->progressDialogs().size();

  reader->setAppend(false, nullptr);
  EXPECT_EQ(reader->read(path), 0);
  // The archive was not unpacked a second time.
  EXPECT_EQ(host_->progressDialogs().size(), dialogs);
  EXPECT_EQ(factory_->unzip().lastFilenames(), unpacked);
  ASSERT_EQ(log_->reads.size(), 2u);
  EXPECT_EQ(log_->reads[0], std::make_pair(std::string("b.asi"), false));
  EXPECT_EQ(log_->reads[1], std::make_pair(std::string("a.asi"), true));
  EXPECT_EQ(PIData::getScenarioFileName(), path);
}

TEST_F(ReaderSelectionTest, ZipReaderStopsAtTheFirstFailingMember) {
  file("a.asi", "Version 24\n");
  file("b.asi", "Version 24\n");
  file("c.asi", "Version 24\n");
  std::string path = zip("three.zip", {"a.asi", "b.asi", "c.asi"});
  log_->results["b.asi"] = 2;
  auto reader = factory_->createReader(path);
  ASSERT_TRUE(reader);
  reader->setAppend(true, nullptr);
  EXPECT_EQ(reader->read(path), 2);
  ASSERT_EQ(log_->reads.size(), 2u);
  EXPECT_TRUE(log_->reads[0].second);
}

TEST_F(ReaderSelectionTest, LegacyFormatsThatDoNotLoadFailHonestly) {
  auto reader = factory_->createReader(file("track.gpx", "<gpx>"));
  ASSERT_TRUE(reader);
  std::string id = "stale";
  EXPECT_EQ(reader->getScenarioIdentifier("track.gpx", id), 0);
  EXPECT_TRUE(id.empty());
  EXPECT_EQ(reader->read((work_ / "src/track.gpx").string()), -1);
  EXPECT_EQ(host_->notifications().back().text, "Fatal error when loading GPX file\n\n");
  EXPECT_EQ(host_->notifications().back().severity, 3);
}

// Runs `check`; if it has not answered within ten seconds it is stuck
// opening the named pipe `fifo`, so a writer is connected to free it and the
// test fails rather than hangs.
template <typename Check>
auto withoutBlocking(const std::string& fifo, Check check) {
  auto answer = std::async(std::launch::async, check);
  if (answer.wait_for(std::chrono::seconds(10)) == std::future_status::timeout) {
    ADD_FAILURE() << "blocked opening the named pipe " << fifo;
    const int writer = ::open(fifo.c_str(), O_WRONLY | O_NONBLOCK);
    auto result = answer.get();
    if (writer >= 0) ::close(writer);
    return result;
  }
  return answer.get();
}

TEST_F(ReaderSelectionTest, NamedPipesAndFoldersAreNotReadableAndNeverOpened) {
  for (const char* name : {"p.asi", "p.zip", "p.csv"}) {
    const std::string path = (work_ / name).string();
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const bool chosen = withoutBlocking(path, [&] { return factory_->createReader(path) != nullptr; });
    EXPECT_FALSE(chosen) << name;
    EXPECT_EQ(lastError(), "File \"" + path + "\" not found or not readable.\n");
    std::string id = "stale";
    EXPECT_EQ(withoutBlocking(path, [&] { return FileReader::readAsiScenarioIdentifier(path, id); }), -1);
  }
  fs::create_directories(work_ / "folder.asi");
  EXPECT_EQ(FileReader::canReadAsiFile((work_ / "folder.asi").string()), FileReader::NOT_READABLE);
  // A link to a regular file is that file.
  fs::create_symlink(file("real.asi", "Version 3\n"), work_ / "link.asi");
  EXPECT_TRUE(factory_->createReader((work_ / "link.asi").string()));
}

}  // namespace
