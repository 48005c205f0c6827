// Listing and unpacking archives made by the zip program and by Python's
// zipfile, with the reference host answering the progress dialog.
#include "pipeline/Unzip.h"

#include "host/ReferenceHost.h"
#include "hostapi/PIGUI.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void writeFile(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

class UnzipTest : public ::testing::Test {
 protected:
  void SetUp() override {
    work_ = fs::temp_directory_path() / ("unzip-test-" + std::to_string(::getpid()) + "-" +
                                         ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(work_);
    fs::create_directories(work_ / "tmp");
    fs::create_directories(work_ / "src");
    // Unpacked files go below TMPDIR; a private one shows what is left behind.
    const char* old = std::getenv("TMPDIR");
    oldTmp_ = old ? old : "";
    hadTmp_ = old != nullptr;
    setenv("TMPDIR", (work_ / "tmp").c_str(), 1);
  }
  void TearDown() override {
    if (host_) host_->uninstall();
    if (hadTmp_) setenv("TMPDIR", oldTmp_.c_str(), 1); else unsetenv("TMPDIR");
    fs::remove_all(work_);
  }

  RefHost::ReferenceHost& startHost(long cancelAfter = 0) {
    RefHost::HostConfig config;
    config.cancelAfter = cancelAfter;
    config.progressBar = false;
    config.echoConsole = false;
    host_ = std::make_unique<RefHost::ReferenceHost>(config);
    host_->install();
    return *host_;
  }

  // Archive made with the zip program, members in the order given.
  std::string zipWithProgram(const std::string& name, const std::vector<std::string>& members) {
    std::string cmd = "cd '" + (work_ / "src").string() + "' && zip -q -X '" + (work_ / name).string() + "'";
    for (const auto& m : members) cmd += " '" + m + "'";
    EXPECT_EQ(std::system(cmd.c_str()), 0) << cmd;
    return (work_ / name).string();
  }

  // Archive made with Python's zipfile; each member is (name in archive, text).
  std::string zipWithPython(const std::string& name, const std::vector<std::pair<std::string, std::string>>& members) {
    fs::path script = work_ / "make.py";
    std::ofstream py(script);
    py << "import zipfile\n";
    py << "with zipfile.ZipFile(r'''" << (work_ / name).string() << "''', 'w', zipfile.ZIP_DEFLATED) as z:\n";
    for (const auto& m : members) py << "    z.writestr(r'''" << m.first << "''', r'''" << m.second << "''')\n";
    py.close();
    std::string cmd = "python3 '" + script.string() + "'";
    EXPECT_EQ(std::system(cmd.c_str()), 0);
    return (work_ / name).string();
  }

  bool tmpIsEmpty() const { return fs::is_empty(work_ / "tmp"); }

  std::vector<std::string> errorTexts() const {
    std::vector<std::string> texts;
    for (const auto& n : host_->notifications())
      if (n.severity == 2) texts.push_back(n.text);
    return texts;
  }

  fs::path work_;
  std::string oldTmp_;
  bool hadTmp_ = false;
  std::unique_ptr<RefHost::ReferenceHost> host_;
};

const std::set<std::string> kAsi{".asi"};

TEST_F(UnzipTest, ListsSupportedMembersInArchiveOrder) {
  startHost();
  writeFile(work_ / "src/b.asi", "Version 24\n");
  writeFile(work_ / "src/a.ASI", "Version 24\n");
  writeFile(work_ / "src/notes.txt", "x");
  writeFile(work_ / "src/d.csv", "1,2");
  std::string zip = zipWithProgram("mixed.zip", {"b.asi", "notes.txt", "a.ASI", "d.csv"});

  PUUnzip::Unzip unzip;
  std::vector<std::string> names;
  EXPECT_EQ(unzip.getSupportedFile(zip, kAsi, names), 0);
  EXPECT_EQ(names, (std::vector<std::string>{"b.asi", "a.ASI"}));
  EXPECT_EQ(unzip.getSupportedFile(zip, {".asi", ".csv"}, names), 1);
  EXPECT_EQ(names.size(), 3u);
  EXPECT_EQ(unzip.getSupportedFile(zip, {".gpx"}, names), -1);
  EXPECT_TRUE(names.empty());
  // Listing alone unpacks nothing.
  EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(UnzipTest, UnpacksPythonArchiveAndRemembersIt) {
  auto& host = startHost();
  std::string zip = zipWithPython("py.zip", {{"dir/one.asi", "Version 24\nRefLat 1\n"}, {"two.asi", "Version 3\n"}});

  PUUnzip::Unzip unzip;
  std::vector<std::string> names;
  ASSERT_EQ(unzip.unzipFile(zip, kAsi, names), 0);
  ASSERT_EQ(names.size(), 2u);
  EXPECT_EQ(readFile(names[0]), "Version 24\nRefLat 1\n");
  EXPECT_EQ(readFile(names[1]), "Version 3\n");
  EXPECT_EQ(fs::path(names[0]).filename(), "one.asi");
  EXPECT_EQ(unzip.lastZipFilename(), zip);
  EXPECT_EQ(unzip.lastFilenames(), names);

  ASSERT_FALSE(host.progressDialogs().empty());
  const auto& dialog = host.progressDialogs().back();
  EXPECT_EQ(dialog.title, "Unzipping File");
  EXPECT_EQ(dialog.label, "Unzipping file py.zip.  Please wait...");
  EXPECT_EQ(dialog.maximum, 100);
  EXPECT_TRUE(dialog.cancelButton);

  unzip.clear();
  EXPECT_TRUE(unzip.lastZipFilename().empty());
  EXPECT_TRUE(unzip.lastFilenames().empty());
  EXPECT_FALSE(fs::exists(names[0]));
  EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(UnzipTest, SecondArchiveReplacesTheFirstAndDestructionCleansUp) {
  startHost();
  std::string first = zipWithPython("first.zip", {{"a.asi", "A"}});
  std::string second = zipWithPython("second.zip", {{"b.asi", "B"}});
  std::vector<std::string> firstNames, secondNames;
  {
    PUUnzip::Unzip unzip;
    ASSERT_EQ(unzip.unzipFile(first, kAsi, firstNames), 0);
    ASSERT_EQ(unzip.unzipFile(second, kAsi, secondNames), 0);
    EXPECT_EQ(unzip.lastZipFilename(), second);
    EXPECT_FALSE(fs::exists(firstNames[0]));
    EXPECT_EQ(readFile(secondNames[0]), "B");
  }
  EXPECT_FALSE(fs::exists(secondNames[0]));
  EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(UnzipTest, RefusesBadArchivesWithOneMessage) {
  startHost();
  writeFile(work_ / "garbage.zip", "PK\x03\x04 this is not really an archive");
  std::string good = zipWithPython("good.zip", {{"a.asi", std::string(5000, 'x')}});
  std::string whole = readFile(good);
  writeFile(work_ / "truncated.zip", whole.substr(0, whole.size() / 2));
  std::string escaping = zipWithPython("escape.zip", {{"../evil.asi", "Version 24\n"}});
  std::string none = zipWithPython("none.zip", {{"a.txt", "x"}});

  PUUnzip::Unzip unzip;
  std::vector<std::string> names;
  for (const std::string& bad : {(work_ / "garbage.zip").string(), (work_ / "truncated.zip").string(), escaping}) {
    SCOPED_TRACE(bad);
    size_t before = errorTexts().size();
    EXPECT_LT(unzip.unzipFile(bad, kAsi, names), 0);
    EXPECT_TRUE(names.empty());
    ASSERT_EQ(errorTexts().size(), before + 1);
    EXPECT_EQ(errorTexts().back(), "Zip file \"" + bad + "\" not valid\n");
  }
  EXPECT_NE(unzip.unzipFile(none, kAsi, names), 0);
  EXPECT_EQ(errorTexts().back(), "Zip file \"" + none + "\" contains no supported formats\n");
  EXPECT_FALSE(fs::exists(work_ / "evil.asi"));
  EXPECT_FALSE(fs::exists(work_ / "tmp" / ".." / "evil.asi"));
  EXPECT_TRUE(unzip.lastZipFilename().empty());
  unzip.clear();
  EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(UnzipTest, CancelDuringUnpackingKeepsThePreviousArchive) {
  startHost();
  std::string small = zipWithPython("small.zip", {{"a.asi", "A"}});
  // A member large enough that unpacking outlasts the first poll of the dialog.
  fs::path script = work_ / "big.py";
  std::ofstream(script) << "import zipfile\n"
                        << "with zipfile.ZipFile(r'''" << (work_ / "big.zip").string()
                        << "''', 'w', zipfile.ZIP_DEFLATED, compresslevel=1) as z:\n"
                        << "    with z.open('big.asi', 'w') as f:\n"
                        << "        block = b'PlatformData 1 0 0 0 0\\n' * 40000\n"
                        << "        for _ in range(200):\n"
                        << "            f.write(block)\n";
  ASSERT_EQ(std::system(("python3 '" + script.string() + "'").c_str()), 0);

  PUUnzip::Unzip unzip;
  std::vector<std::string> names;
  ASSERT_EQ(unzip.unzipFile(small, kAsi, names), 0);
  // A new host whose dialog reports a cancel at the first poll.
  host_->uninstall();
  startHost(/*cancelAfter=*/1);
  EXPECT_EQ(unzip.unzipFile((work_ / "big.zip").string(), kAsi, names), 1);
  EXPECT_TRUE(names.empty());
  EXPECT_EQ(unzip.lastZipFilename(), small);
  ASSERT_EQ(unzip.lastFilenames().size(), 1u);
  EXPECT_EQ(readFile(unzip.lastFilenames()[0]), "A");
  unzip.clear();
  EXPECT_TRUE(tmpIsEmpty());
}

// Archives as an attacker or a careless user makes them: the disk only gets
// what a reader will take, up to a cap, and failures say what failed.
TEST_F(UnzipTest, OnlyTheMembersAReaderTakesAreUnpacked) {
  startHost();
  std::string zip = zipWithPython("mixed.zip", {{"a.asi", "Version 24\n"},
                                                {"junk/big.bin", std::string(3 << 20, 'j')},
                                                {"notes.txt", "n"}});
  PUUnzip::Unzip unzip;
  std::vector<std::string> names;
  ASSERT_EQ(unzip.unzipFile(zip, kAsi, names), 0);
  ASSERT_EQ(names.size(), 1u);
  std::vector<std::string> unpacked;
  for (const auto& entry : fs::recursive_directory_iterator(work_ / "tmp"))
    if (entry.is_regular_file()) unpacked.push_back(entry.path().filename().string());
  EXPECT_EQ(unpacked, std::vector<std::string>{"a.asi"});
}

TEST_F(UnzipTest, WhatAnArchiveUnpacksIsCappedByTheSetting) {
  startHost();
  std::string zip = zipWithPython("big.zip", {{"a.asi", std::string(3 << 20, 'a')}});
  PUUnzip::Unzip unzip;
  std::vector<std::string> names;

  PIGUI::PIRegistry::setValue(PUUnzip::Unzip::MAX_UNZIPPED_MEGABYTES, "2");
  EXPECT_LT(unzip.unzipFile(zip, kAsi, names), 0);
  EXPECT_TRUE(names.empty());
  ASSERT_FALSE(errorTexts().empty());
  EXPECT_EQ(errorTexts().back(),
            "Zip file \"" + zip + "\" unpacks to more than 2 MB, the limit set by \"Maximum Unzipped Megabytes\"\n");
  EXPECT_TRUE(tmpIsEmpty());

  PIGUI::PIRegistry::setValue(PUUnzip::Unzip::MAX_UNZIPPED_MEGABYTES, "4");
  EXPECT_EQ(unzip.unzipFile(zip, kAsi, names), 0);
  // Without a usable value the default holds.
  PIGUI::PIRegistry::setValue(PUUnzip::Unzip::MAX_UNZIPPED_MEGABYTES, "lots");
  EXPECT_EQ(PUUnzip::Unzip::maxUnpackedBytes(), PUUnzip::Unzip::DEFAULT_MAX_UNZIPPED_MEGABYTES << 20);
}

TEST_F(UnzipTest, AFailedWriteIsToldAsAWriteFailure) {
  startHost();
  std::string zip = zipWithPython("two.zip", {{"a.asi", std::string(2 << 20, 'a')}});
  // Files may grow to 1 MB only, as on a disk that is full at that point.
  struct rlimit old;
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
  const auto oldSignal = std::signal(SIGXFSZ, SIG_IGN);
  struct rlimit small = old;
  small.rlim_cur = 1 << 20;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  PUUnzip::Unzip unzip;
  std::vector<std::string> names;
  const int result = unzip.unzipFile(zip, kAsi, names);
  ::setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldSignal);

  EXPECT_LT(result, 0);
  ASSERT_FALSE(errorTexts().empty());
  EXPECT_EQ(errorTexts().back(), "Zip file \"" + zip + "\" could not be unpacked: writing \"a.asi\" failed: " +
                                     std::strerror(EFBIG) + "\n");
  EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(UnzipTest, AnArchiveChangedOnDiskIsNoLongerTheOneUnpacked) {
  startHost();
  std::string zip = zipWithPython("feed.zip", {{"a.asi", "Version 24\n"}});
  PUUnzip::Unzip unzip;
  std::vector<std::string> names;
  ASSERT_EQ(unzip.unzipFile(zip, kAsi, names), 0);
  EXPECT_TRUE(unzip.isCurrent(zip));
  EXPECT_FALSE(unzip.isCurrent(zip + ".other"));
  zipWithPython("feed.zip", {{"b.asi", "Version 23\n"}});
  EXPECT_FALSE(unzip.isCurrent(zip));
  ASSERT_EQ(unzip.unzipFile(zip, kAsi, names), 0);
  EXPECT_EQ(readFile(names.at(0)), "Version 23\n");
  unzip.clear();
  EXPECT_FALSE(unzip.isCurrent(zip));
}

TEST_F(UnzipTest, AMissingTemporaryFolderIsNeitherCreatedNorUsed) {
  startHost();
  std::string zip = zipWithPython("a.zip", {{"a.asi", "Version 24\n"}});
  setenv("TMPDIR", (work_ / "missing" / "tmp").c_str(), 1);
  PUUnzip::Unzip unzip;
  std::vector<std::string> names;
  ASSERT_EQ(unzip.unzipFile(zip, kAsi, names), 0);
  EXPECT_FALSE(fs::exists(work_ / "missing"));
  ASSERT_EQ(names.size(), 1u);
  EXPECT_EQ(names[0].rfind(std::string(P_tmpdir) + "/", 0), 0u) << names[0];
  EXPECT_EQ(readFile(names[0]), "Version 24\n");
  unzip.clear();
  EXPECT_FALSE(fs::exists(fs::path(names[0]).parent_path()));
}

}  // namespace
