#pragma once
// The reference host: a function map that serves every request of the host
// door from an in-memory scenario, with the host's interface state beside it
// (settings store, actions, file handlers, dialogs, services). It records a
// trace of every request and a log of every notification, and dumps the
// whole scenario as JSON. Formats: docs/reference-host.md.
//
// In-process use:   RefHost::ReferenceHost host(config); host.install();
//                   ... plug-in code calling the PIData/PICommon wrappers ...
//                   host.writeDump(std::cout);
// A loaded plug-in gets the host through OPI_InitializeFunctionMap(&host, ctx).

#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/HostConfig.h"
#include "host/HostRecords.h"
#include "host/HostScenario.h"
#include "hostapi/PIFunctionMap.h"

namespace PICommon {
class PICallbackFunctor;
class FileImportExportDelegateV2;
class ServiceClient;
}  // namespace PICommon

namespace RefHost {

class ProgressBar;
class HostSignalService;
class HostFileLocator;
struct Request;

struct Notification {
  std::int64_t severity = 0;
  std::string text;
  std::string prefix;
};

struct MenuAction {
  std::uint64_t handle = 0;
  std::string name;
  std::string group;
  PICommon::PICallbackFunctor* callback = nullptr;
};

struct HotKey {
  std::string action;
  std::uint32_t key = 0;
};

struct FileHandler {
  std::string pattern;
  std::string description;
  std::int32_t flag = 0;
  PICommon::FileImportExportDelegateV2* delegate = nullptr;  // null: plain handler
};

struct ProgressDialogState {
  std::uint64_t handle = 0;
  std::string title;
  std::string label;
  bool cancelButton = false;
  std::int64_t minimum = 0;
  std::int64_t maximum = 0;
  std::int64_t value = 0;
  bool visible = false;
  bool destroyed = false;
};

class ReferenceHost : public PIFunctionMap {
 public:
  explicit ReferenceHost(HostConfig config = HostConfig());
  ~ReferenceHost() override;
  ReferenceHost(const ReferenceHost&) = delete;
  ReferenceHost& operator=(const ReferenceHost&) = delete;

  // Makes this host the plug-in client's function map (in-process use).
  // `context` is the plug-in context that handle() passes; null means this.
  void install(void* context = nullptr);
  // Detaches the client again if this host is installed.
  void uninstall();

  std::uint64_t dispatch(PIFunctionMap* map, void* context, PIServerFunctions_t code, void* params,
                         PIFunctionMap** mapGlobal) override;

  const HostConfig& config() const { return config_; }
  HostScenario& scenario() { return scenario_; }
  const HostScenario& scenario() const { return scenario_; }

  // Outputs. The trace and the notification log are written line by line as
  // requests arrive; null turns them off (the default).
  void setTraceStream(std::ostream* out) { trace_ = out; }
  void setNotificationLogStream(std::ostream* out) { notifyLog_ = out; }
  // The scenario with the host's interface state, as one JSON document,
  // streamed (one object per line). toJson() parses it back, for small runs.
  void writeDump(std::ostream& out) const;
  nlohmann::json toJson() const;

  // Interface state, for a driver and for tests.
  const std::vector<Notification>& notifications() const { return notifications_; }
  const std::vector<std::pair<std::string, std::string>>& messageBoxes() const { return messageBoxes_; }
  const std::vector<std::string>& consoleLines() const { return console_; }
  const std::vector<std::string>& signalsRaised() const { return signals_; }
  // Names that the file locator was asked for, in order.
  const std::vector<std::string>& locatorQueries() const { return locatorQueries_; }
  const std::vector<nlohmann::json>& displayLoads() const { return displayLoads_; }
  const std::map<std::string, std::string>& registry() const { return registry_; }
  const std::vector<MenuAction>& actions() const { return actions_; }
  const std::vector<HotKey>& hotKeys() const { return hotKeys_; }
  const std::vector<FileHandler>& fileHandlers() const { return fileHandlers_; }
  const std::vector<ProgressDialogState>& progressDialogs() const { return dialogs_; }
  int waitCursorDepth() const { return waitCursor_; }
  std::uint64_t requestCount() const { return sequence_; }

  // Runs the callback of a menu action as the user's choice would; answers
  // its result, or -1 when there is no such action.
  long triggerAction(const std::string& name);
  // The advanced-open delegate registered for a file's extension, or null.
  PICommon::FileImportExportDelegateV2* delegateFor(const std::string& path) const;

  // Bytes of the work that the next progress dialogs measure (the file being
  // read), for the rate that the progress bar shows; 0: unknown.
  void setProgressWorkBytes(double bytes);

  // Used by the dispatch: whether an operation is refused.
  bool refuses(const std::string& operation) const { return config_.refusals.count(operation) != 0; }

 private:
  friend struct Dispatcher;

  std::uint64_t serve_(Request& request);
  nlohmann::json hostJson_() const;
  void writeTrace_(const Request& request, std::uint64_t answer);
  void notify_(std::int64_t severity, const std::string& text, const std::string& prefix);
  void consolePrint_(const std::string& text);
  // A line on stderr, over the progress bar.
  void echo_(const std::string& text);
  // Calls on the offered services, which are traced like requests.
  int raiseSignal_(const std::string& name);
  std::string findFile_(const std::string& name, int fileKind);

  HostConfig config_;
  HostScenario scenario_;
  bool installed_ = false;
  std::ostream* trace_ = nullptr;
  std::ostream* notifyLog_ = nullptr;
  std::uint64_t sequence_ = 0;
  int depth_ = 0;

  std::vector<void*> overrides_;
  std::map<std::string, std::string> registry_;
  std::vector<Notification> notifications_;
  std::vector<std::pair<std::string, std::string>> messageBoxes_;
  std::vector<std::string> console_;
  std::vector<std::string> signals_;
  std::vector<std::string> locatorQueries_;
  std::vector<MenuAction> actions_;
  std::vector<HotKey> hotKeys_;
  std::vector<FileHandler> fileHandlers_;
  std::vector<ProgressDialogState> dialogs_;
  std::vector<nlohmann::json> displayLoads_;
  std::vector<void*> garbage_;
  std::vector<std::pair<PICommon::ServiceClient*, std::string>> bindings_;
  std::unique_ptr<HostSignalService> signalService_;
  std::unique_ptr<HostFileLocator> fileLocator_;
  std::size_t dialogAnswersUsed_ = 0;
  long cancelQueries_ = 0;
  int waitCursor_ = 0;
  std::uint64_t nextHandle_ = 1;
  std::int64_t nextRuleId_ = 1;
  std::unique_ptr<ProgressBar> bar_;
  FrameCache frameCache_;
};

}  // namespace RefHost
