#include "host/cli/PluginLibrary.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <string>

namespace RefHost {

PluginLibrary::~PluginLibrary() { close(); }

#ifndef SCENARIO_HOST_PLUGIN_DIR
#define SCENARIO_HOST_PLUGIN_DIR "lib/scenario-host"
#endif

namespace {

constexpr const char* LIBRARY_NAME = "libFileReaderPlugin.so";

std::string executableFolder() {
  char buffer[PATH_MAX];
  const ssize_t length = ::readlink("/proc/self/exe", buffer, sizeof(buffer) - 1);
  std::string folder = ".";
  if (length > 0) {
    std::string self(buffer, static_cast<std::size_t>(length));
    const std::string::size_type slash = self.rfind('/');
    if (slash != std::string::npos) folder = self.substr(0, slash);
  }
  return folder;
}

bool isFile(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

}  // namespace

std::string PluginLibrary::besideExecutable() { return executableFolder() + "/" + LIBRARY_NAME; }

std::string PluginLibrary::findDefault() {
  const char* named = std::getenv("SCENARIO_HOST_PLUGIN");
  if (named && *named) return named;
  const std::string folder = executableFolder();
  for (const std::string& candidate :
       {folder + "/" + LIBRARY_NAME, folder + "/../" + SCENARIO_HOST_PLUGIN_DIR + "/" + LIBRARY_NAME,
        folder + "/../lib/scenario-host/" + LIBRARY_NAME, folder + "/../lib/" + LIBRARY_NAME})
    if (isFile(candidate)) return candidate;
  return besideExecutable();
}

namespace {
template <typename T>
bool lookUp(void* handle, const char* name, T& out, std::string& error) {
  out = reinterpret_cast<T>(::dlsym(handle, name));
  if (!out && error.empty()) error = std::string("entry point ") + name + " not found";
  return out != nullptr;
}
}  // namespace

bool PluginLibrary::open(const std::string& path) {
  close();
  path_ = path;
  error_.clear();
  // A path without a slash would make dlopen search the library path.
  const std::string name = path.find('/') == std::string::npos ? "./" + path : path;
  handle_ = ::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle_) {
    const char* why = ::dlerror();
    error_ = why ? why : "dlopen failed";
    return false;
  }
  bool ok = lookUp(handle_, "OPI_InitializeFunctionMap", initializeFunctionMap, error_);
  ok = lookUp(handle_, "OPI_PluginDispatchFunction", dispatch, error_) && ok;
  ok = lookUp(handle_, "OPI_VersionInfo", versionInfo, error_) && ok;
  ok = lookUp(handle_, "OPI_VersionInfoEx", versionInfoEx, error_) && ok;
  ok = lookUp(handle_, "OPI_MinimumVersion", minimumVersion, error_) && ok;
  ok = lookUp(handle_, "OPI_GetCompilerVersion", compilerVersion, error_) && ok;
  ok = lookUp(handle_, "OPI_GetBitWidth", bitWidth, error_) && ok;
  ok = lookUp(handle_, "OPI_IsDebugMode", isDebugMode, error_) && ok;
  ok = lookUp(handle_, "OPI_CleanUpPlugin", cleanUp, error_) && ok;
  if (!ok) close();
  return ok;
}

void PluginLibrary::close() {
  if (handle_) ::dlclose(handle_);
  handle_ = nullptr;
  initializeFunctionMap = nullptr;
  dispatch = nullptr;
  versionInfo = nullptr;
  versionInfoEx = nullptr;
  minimumVersion = nullptr;
  compilerVersion = nullptr;
  bitWidth = nullptr;
  isDebugMode = nullptr;
  cleanUp = nullptr;
}

}  // namespace RefHost
