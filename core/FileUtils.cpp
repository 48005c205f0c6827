#include "core/FileUtils.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include "core/Tokenizer.h"

namespace UTILS {

namespace {

bool statMode(const std::string& path, mode_t type) {
  if (path.empty()) return false;
  struct stat info;
  if (::stat(path.c_str(), &info) != 0) return false;
  return (info.st_mode & S_IFMT) == type;
}

bool exists(const std::string& path) {
  struct stat info;
  return ::stat(path.c_str(), &info) == 0;
}

std::string slashes(const std::string& path) {
  std::string out(path);
  for (char& c : out)
    if (c == '\\') c = '/';
  return out;
}

bool startsWith(const std::string& text, const std::string& start) { return text.compare(0, start.size(), start) == 0; }

}  // namespace

bool fileIsRelative(const std::string& path) {
  return startsWith(path, "./") || startsWith(path, "../") || startsWith(path, ".\\") || startsWith(path, "..\\");
}

bool fileIsAbsolute(const std::string& path) { return !path.empty() && (path[0] == '/' || path[0] == '\\'); }

int fileRemove(const std::string& path) { return ::unlink(path.c_str()); }

int fileRecycle(const std::string& path) { return fileRemove(path); }

bool fileIsFile(const std::string& path) { return statMode(path, S_IFREG); }

bool fileIsDirectory(const std::string& path) { return statMode(path, S_IFDIR); }

std::string fileTempDir() {
  std::string dir = "/tmp";
  for (const char* name : {"TMPDIR", "TMP", "TEMP"}) {
    if (const char* value = std::getenv(name)) {
      dir = value;
      break;
    }
  }
  if (!dir.empty()) dir += '/';
  return dir;
}

std::string fileNormalize(const std::string& path) {
  const size_t last = path.find_last_not_of('/');
  return last == std::string::npos ? std::string() : path.substr(0, last + 1);
}

std::string fileGetLine(const std::string& path, size_t number) {
  std::ifstream in(path);
  std::string line;
  for (size_t i = 1; i <= number && orvCore::getStrippedLine(in, line); ++i)
    if (i == number) return line;
  return std::string();
}

std::string fileGetLastNonEmptyLine(const std::string& path, size_t& number) {
  number = 0;
  std::ifstream in(path);
  std::string line;
  std::string last;
  for (size_t i = 1; orvCore::getStrippedLine(in, line); ++i) {
    if (line.empty()) continue;
    last = line;
    number = i;
  }
  return last;
}

std::vector<char> readFileIntoBuffer(const std::string& path, size_t& size) {
  size = 0;
  std::ifstream in(path, std::ios::binary);
  if (!in) return {};
  std::vector<char> buffer;
  char chunk[65536];
  while (in.read(chunk, sizeof(chunk)) || in.gcount() > 0)
    buffer.insert(buffer.end(), chunk, chunk + in.gcount());
  if (in.bad()) return {};
  size = buffer.size();
  return buffer;
}

bool writeBufferToFile(const std::string& path, size_t size, const char* buffer) {
  if (buffer == nullptr && size > 0) return false;
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) return false;
  out.write(buffer, static_cast<std::streamsize>(size));
  out.close();
  return !out.fail();
}

std::string getTempFileName(const std::string& prefix, const std::string& suffix) {
  // Started once from the process clock and the pid, then counted up, so
  // that names differ within and between processes.
  static std::atomic<unsigned long> counter(static_cast<unsigned long>(std::clock()) +
                                            static_cast<unsigned long>(::getpid()) * 100000UL);
  std::string dir = fileTempDir();
  // A temporary folder that does not exist is not used, for whoever makes the
  // name would have to create it on the way and leave it behind: the system's
  // own folder serves instead, as it does for tmpfile().
  if (!dir.empty() && !fileIsDirectory(dir)) dir = std::string(P_tmpdir) + "/";
  const std::string stem = prefix.empty() ? "tmpfile" : prefix;
  for (int attempt = 0; attempt < 10000; ++attempt) {
    const std::string name = dir + stem + std::to_string(counter++) + suffix;
    if (!exists(name)) return name;
  }
  return std::string();
}

bool hasWindowsLineEndings(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string line;
  if (!std::getline(in, line)) return false;
  return line.find('\r') != std::string::npos;
}

std::string fileBaseName(const std::string& path) {
  const std::string clean = slashes(path);
  const size_t slash = clean.rfind('/');
  return slash == std::string::npos ? clean : clean.substr(slash + 1);
}

std::string filePath(const std::string& path) {
  const std::string clean = slashes(path);
  const size_t slash = clean.rfind('/');
  return slash == std::string::npos ? std::string() : clean.substr(0, slash);
}

std::string getCurrentDirectory() {
  std::vector<char> buffer(4096);
  while (::getcwd(buffer.data(), buffer.size()) == nullptr) {
    if (errno != ERANGE || buffer.size() > (1u << 20)) return std::string();
    buffer.resize(buffer.size() * 2);
  }
  return std::string(buffer.data());
}

std::string validBaseName(const std::string& name) {
  const size_t first = name.find_first_not_of(orvCore::STR_WHITE_SPACE_CHARS);
  if (first == std::string::npos) return std::string();
  const size_t last = name.find_last_not_of(orvCore::STR_WHITE_SPACE_CHARS);
  static const std::string removed = "\\:*?<>|()&;#\"";
  std::string out;
  for (char c : name.substr(first, last + 1 - first)) {
    if (c == '/')
      out += '-';
    else if (c == ' ')
      out += '_';
    else if (removed.find(c) == std::string::npos)
      out += c;
  }
  return out;
}

int makePath(const std::string& path) {
  if (path.empty()) return -1;
  if (fileIsDirectory(path)) return 0;
  size_t pos = 0;
  while (pos != std::string::npos) {
    pos = path.find('/', pos + 1);
    const std::string part = path.substr(0, pos);
    if (part.empty() || fileIsDirectory(part)) continue;
    if (::mkdir(part.c_str(), 0775) != 0 && !(errno == EEXIST && fileIsDirectory(part))) return -1;
  }
  return 0;
}

std::string fileFindNewFileName(const std::string& prefix, const std::string& suffix) {
  for (int n = 0; n < 10000; ++n) {
    const std::string name = n == 0 ? prefix + suffix : prefix + "_" + std::to_string(n) + suffix;
    if (!fileIsFile(name) && !fileIsDirectory(name)) return name;
  }
  return std::string();
}

bool fileIsDirectoryWriteable(const std::string& path) {
  if (!fileIsDirectory(path)) return false;
  const std::string dir = (!path.empty() && path.back() == '/') ? path : path + "/";
  const std::string name = fileFindNewFileName(dir + "temp", ".txt");
  if (name.empty()) return false;
  std::ofstream out(name);
  if (!out) return false;
  out.close();
  fileRemove(name);
  return true;
}

}  // namespace UTILS
