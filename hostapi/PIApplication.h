#pragma once
// The host's application base: what a plug-in offers the host. The host
// calls these through the plug-in's message map; a plug-in overrides what it
// supports and leaves the rest at the defaults, which do nothing and answer
// "not supported" (0, false, empty text or null).

#include <string>

#include "hostapi/PIDataRecords.h"

namespace PIApp {

class PIApplication_v1_24 {
 public:
  PIApplication_v1_24() = default;
  PIApplication_v1_24(const PIApplication_v1_24&) = delete;
  PIApplication_v1_24& operator=(const PIApplication_v1_24&) = delete;
  virtual ~PIApplication_v1_24() = default;

  // Start-up with the host's command line; the default ignores the arguments
  // and calls StartUp().
  virtual int startUpWithArguments(int argc, char** argv);
  virtual int StartUp() { return 0; }
  // Periodic work; answers 0.
  virtual int Callback() { return 0; }
  virtual int Close() { return 0; }
  virtual std::string Name() { return std::string(); }

  // Network and file locations.
  virtual int closeLocation(const std::string& /*location*/) { return 0; }
  virtual int openLocation(const std::string& /*location*/, int /*port*/, PIData::PINetworkProtocol_t /*protocol*/) {
    return 0;
  }
  virtual int findNetworkLocation(const std::string& /*location*/) { return 0; }

  // Configuration options of the host's configuration file.
  virtual int HandleConfigOption(const std::string& /*option*/, const std::string& /*value*/) { return 0; }
  virtual int SaveConfigOptions(std::string& /*out*/) { return 0; }

  virtual int ListenToEvents(int /*event*/, void* /*data*/) { return 0; }
  virtual int DrawOnRefresh() { return 0; }

  // Which applications the plug-in wants to be loaded in.
  virtual bool LoadInORVIDE() { return false; }
  virtual bool LoadInKurvex() { return false; }
  virtual bool LoadInAsiPad() { return false; }
  virtual bool LoadInLogHost() { return false; }

  virtual int PreDrawOnRefresh() { return 0; }
  virtual int HandleMouseEvent(int /*event*/, int /*x*/, int /*y*/, int /*buttons*/) { return 0; }

  // Terrain raster sets offered by the plug-in.
  virtual void* initializeTerrainRasterSet(const std::string& /*name*/) { return nullptr; }
  virtual int parseTerrainRasterSetToken(void* /*set*/, const std::string& /*token*/) { return 0; }
  virtual std::string getTerrainRasterSetTokenString(void* /*set*/) { return std::string(); }
  virtual void* getTerrainRasterNode(void* /*set*/) { return nullptr; }
  virtual void dereferenceTerrainRasterSet(void* /*set*/) {}
  virtual std::string getTerrainRasterSetInfo(void* /*set*/) { return std::string(); }

  // Texts of the host's plug-in list.
  virtual std::string Description() { return std::string(); }
  virtual std::string Author() { return std::string(); }
  virtual std::string Version() { return std::string(); }
  virtual std::string URL() { return std::string(); }
  virtual std::string ContactInfo() { return std::string(); }

  // The version-10 applications ask these; by default they follow the
  // classic answers.
  virtual bool LoadInORVIDE10() { return LoadInORVIDE(); }
  virtual int ConfigureCommandLine(void* /*parser*/) { return 0; }
  virtual bool LoadInKurvex10() { return LoadInKurvex(); }
};

inline int PIApplication_v1_24::startUpWithArguments(int, char**) { return StartUp(); }

}  // namespace PIApp
