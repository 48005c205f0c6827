// Files that used to crash or hang the host: whatever a file holds, or
// whatever stands under its name, scenario-host ends with a load result.
#include "E2eSupport.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace fs = std::filesystem;

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool SANITIZED = true;
#else
constexpr bool SANITIZED = false;
#endif

class HostileFiles : public e2e::HostRun {
 protected:
  // scenario-host with its address space limited, as `ulimit -v` does.
  e2e::Outcome runLimited(long kilobytes, const std::string& file) {
    const std::string command = "ulimit -v " + std::to_string(kilobytes) + " && exec " + e2e::quote(SCENARIO_HOST) +
                                " --no-progress " + e2e::quote(file) + " 2> " + e2e::quote(path("stderr.txt"));
    e2e::Outcome result;
    const int raw = std::system(("sh -c " + e2e::quote(command)).c_str());
    result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    result.err = e2e::readText(work / "stderr.txt");
    return result;
  }
};

TEST_F(HostileFiles, AHugeNameUnderAMemoryLimitIsAnErrorNotAnAbort) {
  if (SANITIZED) GTEST_SKIP() << "sanitizers reserve more address space than the limit";
  const std::string file = path("huge.asi");
  {
    std::ofstream out(file, std::ios::binary);
    out << "Version 24\nCoordSystem LLA\nDegreeAngles 1\nRefLLA 36.5 -121.9 0\nPlatformID 1\nPlatformName 1 ship\n"
           "PlatformName 1 ";
    const std::string block(1 << 20, 'n');
    for (int i = 0; i < 100; ++i) out << block;
    out << "\nPlatformData 1 0 36.5 -121.9 0\n";
  }
  const e2e::Outcome r = runLimited(450000, file);
  EXPECT_EQ(r.status, 2) << r.err;
  EXPECT_NE(r.err.find("huge.asi:7: error: PlatformName: the line is longer than 1048576 characters and is skipped"),
            std::string::npos)
      << r.err;
}

TEST_F(HostileFiles, NamedPipesAreRefusedWithoutWaitingForAWriter) {
  for (const char* name : {"p.asi", "p.zip"}) {
    const std::string pipe = path(name);
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    // Should scenario-host open the pipe, it would wait for a writer for
    // ever: one is connected after a while, which frees it and shows it.
    std::atomic<bool> done{false};
    std::atomic<bool> someoneWaited{false};
    std::thread unblocker([&] {
      for (int i = 0; i < 200 && !done; ++i) std::this_thread::sleep_for(std::chrono::milliseconds(50));
      const int writer = ::open(pipe.c_str(), O_WRONLY | O_NONBLOCK);
      if (writer >= 0) {
        someoneWaited = true;
        ::close(writer);
      }
    });
    const e2e::Outcome r = run({pipe});
    done = true;
    unblocker.join();
    EXPECT_FALSE(someoneWaited) << name << " was opened for reading";
    EXPECT_EQ(r.status, 3) << name;
    EXPECT_NE(r.err.find("File \"" + pipe + "\" not found or not readable."), std::string::npos) << r.err;
  }
}

}  // namespace
