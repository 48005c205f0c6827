#pragma once
// The named services that the reference host offers: the signal service,
// which records every signal raised, and the file locator, which looks a
// name up in one configured folder.

#include <functional>
#include <string>
#include <vector>

#include "hostapi/PIServices.h"

namespace RefHost {

class HostSignalService : public PluginClient::Interfaces::SignalInterface {
 public:
  // `onRaise` sees every signal; it answers what raiseSignal answers.
  explicit HostSignalService(std::function<int(const std::string&)> onRaise) : onRaise_(std::move(onRaise)) {}
  int raiseSignal(const std::string& name) override { return onRaise_(name); }

 private:
  std::function<int(const std::string&)> onRaise_;
};

class HostFileLocator : public PluginClient::Interfaces::FileLocatorInterface {
 public:
  explicit HostFileLocator(std::function<std::string(const std::string&, int)> onFind) : onFind_(std::move(onFind)) {}
  std::string findFile(const std::string& name, int fileKind) override { return onFind_(name, fileKind); }

 private:
  std::function<std::string(const std::string&, int)> onFind_;
};

// The path of `name`'s last component inside `folder` when that names a
// regular, readable file; empty otherwise.
std::string locateInFolder(const std::string& folder, const std::string& name);

}  // namespace RefHost
