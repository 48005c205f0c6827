#pragma once
// Runs scenario-host as a process in a private working folder (also its
// TMPDIR, so that left-over temporary files show) and reads what it wrote.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace e2e {

namespace fs = std::filesystem;

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

inline std::string readText(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

inline std::string quote(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

inline std::string hex(const std::string& text) {
  static const char digits[] = "0123456789abcdef";
  std::string out;
  for (unsigned char c : text) {
    out += digits[c >> 4];
    out += digits[c & 15];
  }
  return out;
}

inline std::string data(const std::string& name) { return std::string(ORV_TEST_DATA_DIR) + "/" + name; }

inline std::string example(const std::string& name) {
  return std::string(ORV_TEST_DATA_DIR) + "/../../examples/" + name;
}

class HostRun : public ::testing::Test {
 protected:
  void SetUp() override {
    work = fs::temp_directory_path() /
           ("e2e-" + std::to_string(::getpid()) + "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(work);
    fs::create_directories(work / "tmp");
  }
  void TearDown() override { fs::remove_all(work); }

  Outcome run(const std::vector<std::string>& args) {
    std::string command = "cd " + quote(work.string()) + " && TMPDIR=" + quote((work / "tmp").string()) + " " +
                          quote(SCENARIO_HOST) + " --no-progress";
    for (const std::string& a : args) command += " " + quote(a);
    command += " 2> " + quote((work / "stderr.txt").string());
    Outcome result;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return result;
    char buffer[4096];
    std::size_t n;
    while ((n = std::fread(buffer, 1, sizeof(buffer), pipe)) > 0) result.out.append(buffer, n);
    const int raw = ::pclose(pipe);
    result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    result.err = readText(work / "stderr.txt");
    return result;
  }

  // A ZIP made with Python's zipfile, members in the order given.
  std::string zip(const std::string& name, const std::vector<std::pair<std::string, std::string>>& members) {
    const fs::path script = work / "zip.py";
    std::ofstream py(script);
    py << "import zipfile\nwith zipfile.ZipFile(r'''" << (work / name).string() << "''', 'w') as z:\n";
    for (const auto& m : members) py << "    z.writestr(r'''" << m.first << "''', bytes.fromhex('" << hex(m.second) << "'))\n";
    if (members.empty()) py << "    pass\n";
    py.close();
    EXPECT_EQ(std::system(("python3 " + quote(script.string())).c_str()), 0);
    fs::remove(script);
    return (work / name).string();
  }

  std::string path(const std::string& name) const { return (work / name).string(); }

  // Writes a file into the working folder and answers its path.
  std::string write(const std::string& name, const std::string& text) {
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }

  // Texts of the logged messages up to a severity (1 fatal, 2 error, 3 warning), all by default.
  std::vector<std::string> messageTexts(int worst = 1 << 30) const {
    std::vector<std::string> texts;
    for (const auto& m : jsonLines("messages.jsonl"))
      if (m["severity"].get<int>() <= worst) texts.push_back(m["text"]);
    return texts;
  }

  // The same texts run together.
  std::string messages(int worst) const {
    std::string all;
    for (const std::string& text : messageTexts(worst)) all += text;
    return all;
  }

  nlohmann::json json(const std::string& name) const { return nlohmann::json::parse(readText(work / name)); }

  std::vector<nlohmann::json> jsonLines(const std::string& name) const {
    std::vector<nlohmann::json> lines;
    std::istringstream in(readText(work / name));
    for (std::string line; std::getline(in, line);)
      if (!line.empty()) lines.push_back(nlohmann::json::parse(line));
    return lines;
  }

  int countOps(const std::vector<nlohmann::json>& trace, const std::string& op) const {
    int count = 0;
    for (const auto& line : trace) count += line.value("op", "") == op;
    return count;
  }

  bool tmpIsEmpty() const { return fs::is_empty(work / "tmp"); }

  fs::path work;
};

}  // namespace e2e
