#pragma once
// The plug-in as the host sees it: a shared library opened with dlopen and
// its OPI_ entry points looked up by name. Nothing of the plug-in is linked
// into the host; every call goes through these pointers.

#include <cstdint>
#include <string>

#include "plugin/PluginEntry.h"

namespace RefHost {

class PluginLibrary {
 public:
  PluginLibrary() = default;
  ~PluginLibrary();
  PluginLibrary(const PluginLibrary&) = delete;
  PluginLibrary& operator=(const PluginLibrary&) = delete;

  // Opens the library and finds every entry point; false with error() set
  // when the library or one of the entry points is missing.
  bool open(const std::string& path);
  void close();
  bool isOpen() const { return handle_ != nullptr; }
  const std::string& error() const { return error_; }
  const std::string& path() const { return path_; }

  // "libFileReaderPlugin.so" in the folder of the running executable.
  static std::string besideExecutable();
  // Where the plug-in is looked for when no path is given: the file that
  // $SCENARIO_HOST_PLUGIN names; else beside the executable (a build tree);
  // else in the installed plug-in folder of the executable's prefix
  // (lib/scenario-host/, or the library folder the build chose), or lib/. The first that exists; besideExecutable() if none does.
  static std::string findDefault();

  OPI_InitializeFunctionMap_t initializeFunctionMap = nullptr;
  OPI_PluginDispatchFunction_t dispatch = nullptr;
  OPI_VersionInfo_t versionInfo = nullptr;
  OPI_VersionInfoEx_t versionInfoEx = nullptr;
  OPI_IntQuery_t minimumVersion = nullptr;
  OPI_IntQuery_t compilerVersion = nullptr;
  OPI_IntQuery_t bitWidth = nullptr;
  OPI_IntQuery_t isDebugMode = nullptr;
  OPI_CleanUpPlugin_t cleanUp = nullptr;

 private:
  void* handle_ = nullptr;
  std::string path_;
  std::string error_;
};

}  // namespace RefHost
