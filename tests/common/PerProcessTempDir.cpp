// ctest runs the cases of one test program as parallel processes, and
// testing::TempDir() is the same "/tmp/" for all of them, so two cases that
// write a file of the same name would race. Each test process gets a
// temporary folder of its own through TEST_TMPDIR, which TempDir() reads,
// and removes it when it ends.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace {

struct PerProcessTempDir {
  std::filesystem::path path;
  pid_t owner = getpid();

  PerProcessTempDir() {
    const char* base = std::getenv("TMPDIR");
    std::error_code ignored;
    path = std::filesystem::path(base && *base ? base : "/tmp") / ("orv-test-" + std::to_string(owner));
    if (std::filesystem::create_directories(path, ignored) || std::filesystem::is_directory(path, ignored))
      setenv("TEST_TMPDIR", (path.string() + "/").c_str(), 1);
  }
  ~PerProcessTempDir() {
    if (getpid() != owner) return;  // a forked child leaves its parent's folder alone
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
};

const PerProcessTempDir tempDir;

}  // namespace
