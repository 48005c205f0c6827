#include "host/HostServices.h"

#include <sys/stat.h>
#include <unistd.h>

namespace RefHost {

std::string locateInFolder(const std::string& folder, const std::string& name) {
  if (folder.empty() || name.empty()) return std::string();
  const std::size_t slash = name.find_last_of("/\\");
  const std::string base = slash == std::string::npos ? name : name.substr(slash + 1);
  if (base.empty() || base == "." || base == "..") return std::string();
  std::string path = folder;
  if (path.back() != '/') path += '/';
  path += base;
  struct stat info {};
  if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode) || access(path.c_str(), R_OK) != 0)
    return std::string();
  return path;
}

}  // namespace RefHost
