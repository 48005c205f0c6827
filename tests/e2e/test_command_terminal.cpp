// scenario-host on a terminal: the progress bar in a pseudo-terminal, and
// Ctrl-C during a long load, which cancels it as the dialog's button would.
#include <fcntl.h>
#include <pty.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstring>

#include "E2eSupport.h"

namespace {

class Terminal : public e2e::HostRun {
 protected:
  // A file of one platform with `points` points, named `name`.
  std::string longFile(const std::string& name, int points) {
    std::ofstream out(path(name));
    out << "Version 24\nReferenceYear 2024\nCoordSystem LLA\nDegreeAngles 1\nRefLLA 50 -1 0\nPlatformID 1\n"
           "PlatformName 1 ship\n";
    for (int i = 0; i < points; ++i) out << "PlatformData 1 " << i << " 50." << (100000 + i) << " -1.1 0\n";
    return path(name);
  }

  // Runs scenario-host in the child: stdout and stderr to files of the
  // working folder unless stderr is the terminal.
  [[noreturn]] void exec(const std::vector<std::string>& args, bool stderrToFile) {
    if (::chdir(work.c_str()) != 0) ::_exit(126);
    const int out = ::open("stdout.txt", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    ::dup2(out, 1);
    if (stderrToFile) {
      const int err = ::open("stderr.txt", O_WRONLY | O_CREAT | O_TRUNC, 0644);
      ::dup2(err, 2);
    }
    std::vector<char*> argv{const_cast<char*>(SCENARIO_HOST)};
    for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    ::execv(SCENARIO_HOST, argv.data());
    ::_exit(127);
  }

  // Polls a file of the working folder until it holds `text`.
  bool waitForText(const std::string& name, const std::string& text, double seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (std::chrono::steady_clock::now() < end) {
      if (e2e::readText(work / name).find(text) != std::string::npos) return true;
      ::usleep(10000);
    }
    return false;
  }

  static int waitFor(pid_t pid) {
    int raw = 0;
    ::waitpid(pid, &raw, 0);
    return raw;
  }
};

// Bar lines as drawn: each draw starts with "\r\033[K".
std::vector<std::string> barLines(const std::string& screen) {
  std::vector<std::string> lines;
  const std::string draw = "\r\033[K";
  for (std::size_t at = screen.find(draw); at != std::string::npos;) {
    const std::size_t from = at + draw.size();
    at = screen.find(draw, from);
    std::string line = screen.substr(from, at == std::string::npos ? std::string::npos : at - from);
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

std::size_t columns(const std::string& text) {
  std::size_t n = 0;
  for (unsigned char c : text) n += (c & 0xC0) != 0x80;
  return n;
}

TEST_F(Terminal, TheProgressBarFitsSixtyColumnsAndShowsRateAndTimeLeft) {
  const std::string name = "a_recorded_exercise_with_a_name_far_longer_than_the_terminal_is_wide_" +
                           std::string(30, 'x') + ".asi";
  const std::string file = longFile(name, 300000);
  int master = -1;
  winsize size{};
  size.ws_row = 24;
  size.ws_col = 60;
  const auto start = std::chrono::steady_clock::now();
  const pid_t pid = ::forkpty(&master, nullptr, nullptr, &size);
  ASSERT_GE(pid, 0);
  if (pid == 0) exec({file}, false);
  std::string screen;
  char buffer[4096];
  for (ssize_t n; (n = ::read(master, buffer, sizeof buffer)) > 0;) screen.append(buffer, static_cast<std::size_t>(n));
  ::close(master);
  const int raw = waitFor(pid);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  ASSERT_TRUE(WIFEXITED(raw));
  EXPECT_EQ(WEXITSTATUS(raw), 0) << screen;

  const std::vector<std::string> lines = barLines(screen);
  ASSERT_GE(lines.size(), 10u) << screen;
  bool rate = false;
  for (const std::string& line : lines) {
    EXPECT_LE(columns(line), 59u) << line;
    EXPECT_EQ(line.find('\n'), std::string::npos) << line;
    EXPECT_NE(line.find("% "), std::string::npos) << line;
    EXPECT_NE(line.find(" left"), std::string::npos) << line;
    EXPECT_NE(line.find(" Reading file a_"), std::string::npos) << line;
    rate = rate || line.find("B/s") != std::string::npos;
  }
  if (seconds > 1.0) {
    EXPECT_TRUE(rate) << "no rate in " << lines.size() << " lines";
  }

  // Not a terminal: no bar, and no carriage return in the log.
  const pid_t piped = ::fork();
  if (piped == 0) exec({longFile("short.asi", 2000)}, true);
  EXPECT_EQ(WEXITSTATUS(waitFor(piped)), 0);
  EXPECT_EQ(e2e::readText(work / "stderr.txt").find('\r'), std::string::npos);
}

// Runs scenario-host with the trace going into a pipe that this test reads,
// so that the load can't run ahead: once the plug-in has asked its first
// isCanceled, SIGINT goes out `signals` times. Answers the wait status.
class Interrupt : public Terminal {
 public:
  int load(std::vector<std::string> args, int signals) {
    const std::string fifo = path("trace.fifo");
    EXPECT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    args.insert(args.begin(), {"--no-progress", "--trace", fifo});
    const pid_t pid = ::fork();
    if (pid == 0) exec(args, true);
    // Opened without waiting for the writer, so that a child that never
    // opens it can't hang the test: until it does, reads give nothing.
    const int trace = ::open(fifo.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_GE(trace, 0);
    bool sent = false, opened = false;
    std::string pending;
    char buffer[65536];
    while (trace >= 0) {
      const ssize_t n = ::read(trace, buffer, sizeof buffer);
      if (n > 0) {
        opened = true;
        pending.append(buffer, static_cast<std::size_t>(n));
      } else if (n == 0 && opened) {
        break;  // the writer closed: the trace is complete
      } else {
        int status = 0;
        if (!opened && ::waitpid(pid, &status, WNOHANG) == pid) return status;
        ::usleep(1000);
        continue;
      }
      if (!sent && pending.find("\"op\":\"isCanceled\"") != std::string::npos) {
        for (int i = 0; i < signals; ++i) {
          // Signals of one kind don't queue: the next goes once this one
          // has been taken, which the handler's notice tells.
          ::kill(pid, SIGINT);
          if (i + 1 < signals) waitForText("stderr.txt", "interrupted", 10.0);
        }
        sent = true;
      }
      // Only the unfinished last line is kept.
      const std::size_t end = pending.rfind('\n');
      if (end != std::string::npos) pending.erase(0, end + 1);
    }
    if (trace >= 0) ::close(trace);
    EXPECT_TRUE(sent);
    return waitFor(pid);
  }
};

TEST_F(Interrupt, CtrlCCancelsTheLoadAndEveryOutputIsComplete) {
  const int points = 50000;
  const int raw = load({"--dump", "dump.json", "--messages", "messages.jsonl", longFile("long.asi", points)}, 1);
  ASSERT_TRUE(WIFEXITED(raw));
  EXPECT_EQ(WEXITSTATUS(raw), 1);
  const std::string out = e2e::readText(work / "stdout.txt");
  EXPECT_NE(out.find("result 1 (canceled)"), std::string::npos) << out;
  EXPECT_NE(out.find("exit:      1\n"), std::string::npos);
  EXPECT_NE(e2e::readText(work / "stderr.txt").find("interrupted: canceling the load"), std::string::npos);

  const auto dump = json("dump.json");
  const int kept = dump["statistics"]["points"];
  EXPECT_GT(kept, 0);
  EXPECT_LT(kept, points);
  EXPECT_EQ(dump["objects"][0]["data"]["points"]["records"].size(), static_cast<std::size_t>(kept));
  const auto messages = jsonLines("messages.jsonl");
  ASSERT_FALSE(messages.empty());
  EXPECT_EQ(messages.back()["text"], "File loading canceled by user.\n");
}

TEST_F(Interrupt, ASecondCtrlCEndsTheProcessAtOnce) {
  const int raw = load({longFile("long.asi", 50000)}, 2);
  EXPECT_TRUE(WIFSIGNALED(raw) && WTERMSIG(raw) == SIGINT) << raw;
}

TEST_F(Interrupt, FilesAfterAnInterruptedOneAreNotLoaded) {
  const int raw = load({longFile("long.asi", 50000), longFile("more.asi", 10)}, 1);
  EXPECT_EQ(WEXITSTATUS(raw), 1);
  const std::string out = e2e::readText(work / "stdout.txt");
  EXPECT_NE(out.find("more.asi  not loaded (interrupted)"), std::string::npos) << out;
}

}  // namespace
