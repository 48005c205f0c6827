#include "host/cli/PluginLibrary.h"

#include <dlfcn.h>
#include <unistd.h>

#include <climits>

namespace RefHost {

PluginLibrary::~PluginLibrary() { close(); }

std::string PluginLibrary::besideExecutable() {
  char buffer[PATH_MAX];
  const ssize_t length = ::readlink("/proc/self/exe", buffer, sizeof(buffer) - 1);
  std::string folder = ".";
  if (length > 0) {
    std::string self(buffer, static_cast<std::size_t>(length));
    const std::string::size_type slash = self.rfind('/');
    if (slash != std::string::npos) folder = self.substr(0, slash);
  }
  return folder + "/libFileReaderPlugin.so";
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
