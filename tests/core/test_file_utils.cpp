#include "core/FileUtils.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

// Each test gets a fresh directory and restores the temp variables it touches.
class FileUtilsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"TMPDIR", "TMP", "TEMP"}) {
      const char* value = std::getenv(name);
      saved_.push_back(value ? std::make_pair(true, std::string(value)) : std::make_pair(false, std::string()));
    }
    std::string pattern = std::string(ORV_BINARY_DIR) + "/coretext_fileutils_XXXXXX";
    ASSERT_NE(mkdtemp(&pattern[0]), nullptr);
    dir_ = pattern;
  }
  void TearDown() override {
    const char* names[] = {"TMPDIR", "TMP", "TEMP"};
    for (size_t i = 0; i < 3; ++i) {
      if (saved_[i].first)
        setenv(names[i], saved_[i].second.c_str(), 1);
      else
        unsetenv(names[i]);
    }
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
  }
  std::string write(const std::string& name, const std::string& content) {
    const std::string path = dir_ + "/" + name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }
  std::string dir_;
  std::vector<std::pair<bool, std::string>> saved_;
};

}  // namespace

TEST(PathShape, RelativeAndAbsolute) {
  for (const char* path : {"./a", "../a", ".\\a", "..\\a"}) EXPECT_TRUE(UTILS::fileIsRelative(path)) << path;
  for (const char* path : {"", "a/b", ".a", "/a", "..a"}) EXPECT_FALSE(UTILS::fileIsRelative(path)) << path;
  EXPECT_TRUE(UTILS::fileIsAbsolute("/a"));
  EXPECT_TRUE(UTILS::fileIsAbsolute("\\a"));
  EXPECT_FALSE(UTILS::fileIsAbsolute(""));
  EXPECT_FALSE(UTILS::fileIsAbsolute("a/b"));
}

TEST(PathShape, BaseNamePathAndNormalize) {
  EXPECT_EQ(UTILS::fileBaseName("C:\\data\\x.asi"), "x.asi");
  EXPECT_EQ(UTILS::fileBaseName("/a/b/c.zip"), "c.zip");
  EXPECT_EQ(UTILS::fileBaseName("plain"), "plain");
  EXPECT_EQ(UTILS::filePath("C:\\data\\x.asi"), "C:/data");
  EXPECT_EQ(UTILS::filePath("/a/b/c.zip"), "/a/b");
  EXPECT_EQ(UTILS::filePath("plain"), "");
  EXPECT_EQ(UTILS::fileNormalize("/a/b///"), "/a/b");
  EXPECT_EQ(UTILS::fileNormalize("/a/b"), "/a/b");
}

TEST(PathShape, ValidBaseName) {
  EXPECT_EQ(UTILS::validBaseName("  my ship/one (2) \r\n"), "my_ship-one_2");
  EXPECT_EQ(UTILS::validBaseName("a\\b:c*d?e<f>g|h&i;j#k\"l"), "abcdefghijkl");
  EXPECT_EQ(UTILS::validBaseName(" \t "), "");
}

TEST_F(FileUtilsTest, TempDirFollowsTheEnvironment) {
  setenv("TMPDIR", "/first", 1);
  setenv("TMP", "/second", 1);
  EXPECT_EQ(UTILS::fileTempDir(), "/first/");
  unsetenv("TMPDIR");
  EXPECT_EQ(UTILS::fileTempDir(), "/second/");
  unsetenv("TMP");
  setenv("TEMP", "/third", 1);
  EXPECT_EQ(UTILS::fileTempDir(), "/third/");
  unsetenv("TEMP");
  EXPECT_EQ(UTILS::fileTempDir(), "/tmp/");
  setenv("TMPDIR", "", 1);
  EXPECT_EQ(UTILS::fileTempDir(), "") << "a set but empty TMPDIR wins and stays empty";
}

TEST_F(FileUtilsTest, TypesOfPaths) {
  const std::string file = write("f.txt", "x");
  EXPECT_TRUE(UTILS::fileIsFile(file));
  EXPECT_FALSE(UTILS::fileIsDirectory(file));
  EXPECT_TRUE(UTILS::fileIsDirectory(dir_));
  EXPECT_FALSE(UTILS::fileIsFile(dir_));
  EXPECT_FALSE(UTILS::fileIsFile(""));
  EXPECT_FALSE(UTILS::fileIsDirectory(""));
  EXPECT_FALSE(UTILS::fileIsFile(dir_ + "/missing"));
  EXPECT_EQ(UTILS::fileRemove(file), 0);
  EXPECT_FALSE(UTILS::fileIsFile(file));
  EXPECT_EQ(UTILS::fileRemove(file), -1);
  EXPECT_EQ(UTILS::fileRecycle(write("g.txt", "y")), 0);
  EXPECT_FALSE(UTILS::fileIsFile(dir_ + "/g.txt"));
}

TEST_F(FileUtilsTest, LinesOfAFile) {
  const std::string path = write("lines.txt", "one  \r\ntwo\n\n   \nthree\t\n\n  \n");
  EXPECT_EQ(UTILS::fileGetLine(path, 1), "one");
  EXPECT_EQ(UTILS::fileGetLine(path, 2), "two");
  EXPECT_EQ(UTILS::fileGetLine(path, 5), "three");
  EXPECT_EQ(UTILS::fileGetLine(path, 0), "");
  EXPECT_EQ(UTILS::fileGetLine(path, 99), "");
  size_t number = 99;
  EXPECT_EQ(UTILS::fileGetLastNonEmptyLine(path, number), "three");
  EXPECT_EQ(number, 5u);
  EXPECT_EQ(UTILS::fileGetLine(dir_ + "/missing", 1), "");
  EXPECT_EQ(UTILS::fileGetLastNonEmptyLine(dir_ + "/missing", number), "");
  EXPECT_EQ(number, 0u);
}

TEST_F(FileUtilsTest, WindowsLineEndings) {
  EXPECT_TRUE(UTILS::hasWindowsLineEndings(write("dos.txt", "a\r\nb\n")));
  EXPECT_FALSE(UTILS::hasWindowsLineEndings(write("unix.txt", "a\nb\r\n")));
  EXPECT_FALSE(UTILS::hasWindowsLineEndings(dir_ + "/missing"));
}

TEST_F(FileUtilsTest, BufferRoundTripIsBinarySafe) {
  std::string data("a\0b\r\n\xff", 6);
  data += std::string(200000, 'z');
  const std::string path = dir_ + "/blob.bin";
  ASSERT_TRUE(UTILS::writeBufferToFile(path, data.size(), data.data()));
  size_t size = 0;
  const std::vector<char> back = UTILS::readFileIntoBuffer(path, size);
  EXPECT_EQ(size, data.size());
  EXPECT_EQ(std::string(back.begin(), back.end()), data);
  size = 5;
  EXPECT_TRUE(UTILS::readFileIntoBuffer(dir_ + "/missing", size).empty());
  EXPECT_EQ(size, 0u);
  EXPECT_FALSE(UTILS::writeBufferToFile(dir_ + "/no/such/dir/x", 1, "x"));
}

TEST_F(FileUtilsTest, MakePathCreatesEveryLevel) {
  const std::string deep = dir_ + "/a/b/c";
  EXPECT_EQ(UTILS::makePath(deep), 0);
  EXPECT_TRUE(UTILS::fileIsDirectory(deep));
  struct stat info;
  ASSERT_EQ(stat((dir_ + "/a").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0700, 0700u);
  EXPECT_EQ(UTILS::makePath(deep), 0) << "an existing directory is success";
  EXPECT_EQ(UTILS::makePath(deep + "/"), 0);
  const std::string file = write("blocker", "x");
  EXPECT_EQ(UTILS::makePath(file + "/sub"), -1);
  EXPECT_EQ(UTILS::makePath(""), -1);
}

TEST_F(FileUtilsTest, NewNamesAvoidExistingFilesAndDirectories) {
  const std::string prefix = dir_ + "/out";
  EXPECT_EQ(UTILS::fileFindNewFileName(prefix, ".asi"), prefix + ".asi");
  write("out.asi", "x");
  const std::string second = UTILS::fileFindNewFileName(prefix, ".asi");
  EXPECT_NE(second, prefix + ".asi");
  EXPECT_FALSE(UTILS::fileIsFile(second));
  ASSERT_EQ(mkdir(second.c_str(), 0775), 0);
  const std::string third = UTILS::fileFindNewFileName(prefix, ".asi");
  EXPECT_NE(third, second);
  EXPECT_NE(third, prefix + ".asi");
}

TEST_F(FileUtilsTest, TempFileNamesAreUniqueInTheTempDir) {
  setenv("TMPDIR", dir_.c_str(), 1);
  std::set<std::string> names;
  for (int i = 0; i < 50; ++i) {
    const std::string name = UTILS::getTempFileName("scene", ".asi");
    ASSERT_EQ(name.compare(0, dir_.size() + 1, dir_ + "/"), 0) << name;
    EXPECT_NE(name.find("scene"), std::string::npos);
    EXPECT_EQ(name.substr(name.size() - 4), ".asi");
    EXPECT_FALSE(UTILS::fileIsFile(name));
    names.insert(name);
    write(UTILS::fileBaseName(name), "taken");
  }
  EXPECT_EQ(names.size(), 50u);
  EXPECT_NE(UTILS::getTempFileName("", "").find("/tmpfile"), std::string::npos) << "empty prefix";
}

TEST_F(FileUtilsTest, WriteableDirectory) {
  EXPECT_TRUE(UTILS::fileIsDirectoryWriteable(dir_));
  EXPECT_FALSE(UTILS::fileIsDirectoryWriteable(dir_ + "/missing"));
  write("temp.txt", "keep me");
  EXPECT_TRUE(UTILS::fileIsDirectoryWriteable(dir_ + "/"));
  EXPECT_EQ(UTILS::fileGetLine(dir_ + "/temp.txt", 1), "keep me") << "an existing file is not clobbered";
  EXPECT_EQ(UTILS::fileFindNewFileName(dir_ + "/temp", ".txt"), dir_ + "/temp_1.txt") << "probe removed";
}

TEST(WorkingDirectory, MatchesTheProcess) {
  char buffer[4096];
  ASSERT_NE(getcwd(buffer, sizeof(buffer)), nullptr);
  EXPECT_EQ(UTILS::getCurrentDirectory(), std::string(buffer));
}
