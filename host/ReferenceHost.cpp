#include "host/ReferenceHost.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <exception>
#include <iostream>
#include <new>
#include <sstream>

#include "host/HostDispatch.h"
#include "host/HostServices.h"
#include "host/ProgressBar.h"
#include "host/TerminalText.h"
#include "hostapi/PIBase.h"
#include "hostapi/PICommon.h"

namespace RefHost {

ReferenceHost::ReferenceHost(HostConfig config)
    : config_(std::move(config)),
      scenario_(config_.noData, config_.defaultReferenceYear),
      registry_(config_.settings),
      signalService_(std::make_unique<HostSignalService>([this](const std::string& n) { return raiseSignal_(n); })),
      fileLocator_(std::make_unique<HostFileLocator>(
          [this](const std::string& n, int kind) { return findFile_(n, kind); })),
      bar_(std::make_unique<ProgressBar>(config_.progressBar)) {}

ReferenceHost::~ReferenceHost() { uninstall(); }

int ReferenceHost::raiseSignal_(const std::string& name) {
  Request r;
  r.sequence = ++sequence_;
  r.op = "raiseSignal";
  r.tracing = trace_ != nullptr;
  if (r.tracing) r.args["name"] = name;
  int answer = 1;
  if (refuses("raiseSignal")) {
    r.refused = true;
  } else {
    signals_.push_back(name);
    answer = 0;
  }
  if (trace_) writeTrace_(r, static_cast<std::uint64_t>(answer));
  return answer;
}

std::string ReferenceHost::findFile_(const std::string& name, int fileKind) {
  Request r;
  r.sequence = ++sequence_;
  r.op = "findFile";
  r.tracing = trace_ != nullptr;
  if (r.tracing) r.args = {{"name", name}, {"fileKind", fileKind}};
  std::string path;
  if (refuses("findFile")) {
    r.refused = true;
  } else {
    locatorQueries_.push_back(name);
    path = locateInFolder(config_.locateDir, name);
  }
  if (r.tracing) r.out = path;
  if (trace_) writeTrace_(r, path.empty() ? 0 : 1);
  return path;
}

void ReferenceHost::install(void* context) {
  PIBase::setFunctionMap(this, context ? context : this);
  installed_ = true;
}

void ReferenceHost::uninstall() {
  if (installed_ && PIBase::functionMap() == this) PIBase::setFunctionMap(nullptr, nullptr);
  installed_ = false;
}

std::uint64_t ReferenceHost::dispatch(PIFunctionMap*, void* context, PIServerFunctions_t code, void* params,
                                      PIFunctionMap**) {
  Request request;
  request.code = code;
  request.params = params;
  request.context = context;
  request.sequence = ++sequence_;
  request.tracing = trace_ != nullptr;
  ++depth_;
  std::uint64_t answer = 0;
  // A failure is an answer, except running out of memory: that travels on,
  // as it would out of the real host, and the plug-in has to stop it.
  try {
    answer = serve_(request);
  } catch (const std::bad_alloc&) {
    --depth_;
    throw;
  } catch (const std::exception&) {
    request.problem = "host error while serving the request";
  }
  --depth_;
  if (trace_) writeTrace_(request, answer);
  return answer;
}

std::uint64_t ReferenceHost::serve_(Request& r) {
  Dispatcher d{*this};
  const int code = static_cast<int>(r.code);
  std::uint64_t answer = 0;
  if (code < 100) answer = d.housekeeping(r);
  else if (code < 200) answer = d.gui(r);
  else if (code <= 280) answer = d.scenario(r);
  else if (code < 400) answer = d.common(r);
  else answer = d.display(r);
  // Most names begin with another letter: the comparison is rarely needed.
  if (r.op[0] == 'u' && std::strcmp(r.op, "unknown") == 0 && !r.problem) r.problem = "request code not served";
  return answer;
}

void ReferenceHost::writeTrace_(const Request& r, std::uint64_t answer) {
  nlohmann::json line = {{"seq", r.sequence}};
  // Calls on a service object come without a request code.
  line["code"] = r.code ? nlohmann::json(static_cast<int>(r.code)) : nlohmann::json(nullptr);
  line["op"] = r.op;
  if (depth_ > 0) line["depth"] = depth_;
  line["args"] = r.args.is_null() ? nlohmann::json::object() : r.args;
  line["answer"] = answer;
  if (!r.out.is_null()) line["out"] = r.out;
  if (r.refused) line["refused"] = true;
  if (r.problem) line["problem"] = r.problem;
  *trace_ << line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

void ReferenceHost::notify_(std::int64_t severity, const std::string& text, const std::string& prefix) {
  notifications_.push_back({severity, text, prefix});
  if (notifyLog_) {
    nlohmann::json line = {{"seq", sequence_}, {"severity", severity}, {"text", text}, {"prefix", prefix}};
    *notifyLog_ << line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
  }
  if (config_.echoConsole) {
    bar_->hide();
    std::cerr << terminalSafe(prefix + text, true) << std::flush;
  }
}

void ReferenceHost::consolePrint_(const std::string& text) {
  console_.push_back(text);
  if (config_.echoConsole) echo_(text);
}

void ReferenceHost::echo_(const std::string& text) {
  bar_->hide();
  std::cerr << terminalSafe(text, true) << (text.empty() || text.back() != '\n' ? "\n" : "") << std::flush;
}

void ReferenceHost::setProgressWorkBytes(double bytes) { bar_->setWorkBytes(bytes); }

long ReferenceHost::triggerAction(const std::string& name) {
  for (const MenuAction& action : actions_)
    if (action.name == name && action.callback) return action.callback->call(nullptr, nullptr);
  return -1;
}

PICommon::FileImportExportDelegateV2* ReferenceHost::delegateFor(const std::string& path) const {
  std::string lower = path;
  std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
  for (const FileHandler& handler : fileHandlers_) {
    if (!handler.delegate) continue;
    // Patterns are of the form "*.ext".
    std::string suffix = handler.pattern;
    if (!suffix.empty() && suffix.front() == '*') suffix.erase(0, 1);
    std::transform(suffix.begin(), suffix.end(), suffix.begin(), [](unsigned char c) { return std::tolower(c); });
    if (suffix.empty() || (lower.size() >= suffix.size() &&
                           lower.compare(lower.size() - suffix.size(), suffix.size(), suffix) == 0))
      return handler.delegate;
  }
  return nullptr;
}

nlohmann::json ReferenceHost::hostJson_() const {
  using nlohmann::json;
  json host;
  host["application"] = config_.application == Application::Plot ? "plot" : "display";
  host["registry"] = registry_;
  json actions = json::array();
  for (const MenuAction& a : actions_)
    actions.push_back({{"handle", a.handle}, {"name", a.name}, {"group", a.group}, {"callback", a.callback != nullptr}});
  host["actions"] = std::move(actions);
  json keys = json::array();
  for (const HotKey& k : hotKeys_) keys.push_back({{"action", k.action}, {"key", k.key}});
  host["hotKeys"] = std::move(keys);
  json handlers = json::array(), delegates = json::array();
  for (const FileHandler& h : fileHandlers_) {
    json entry = {{"pattern", h.pattern}, {"description", h.description}, {"flag", h.flag}};
    (h.delegate ? delegates : handlers).push_back(std::move(entry));
  }
  host["fileHandlers"] = std::move(handlers);
  host["openDelegates"] = std::move(delegates);
  json boxes = json::array();
  for (const auto& box : messageBoxes_) boxes.push_back({{"title", box.first}, {"text", box.second}});
  host["messageBoxes"] = std::move(boxes);
  host["console"] = console_;
  host["signals"] = signals_;
  host["locatorQueries"] = locatorQueries_;
  host["displayLoads"] = displayLoads_;
  json dialogs = json::array();
  for (const ProgressDialogState& p : dialogs_)
    dialogs.push_back({{"handle", p.handle},
                       {"title", p.title},
                       {"label", p.label},
                       {"cancelButton", p.cancelButton},
                       {"minimum", p.minimum},
                       {"maximum", p.maximum},
                       {"value", p.value},
                       {"visible", p.visible},
                       {"destroyed", p.destroyed}});
  host["progressDialogs"] = std::move(dialogs);
  host["waitCursorDepth"] = waitCursor_;
  host["serverGarbage"] = garbage_.size();
  host["boundServices"] = bindings_.size();
  host["fileDialogAnswersUsed"] = dialogAnswersUsed_;
  host["notifications"] = notifications_.size();
  host["requests"] = sequence_;
  return host;
}

nlohmann::json ReferenceHost::toJson() const {
  std::stringstream text;
  writeDump(text);
  return nlohmann::json::parse(text.str());
}

void ReferenceHost::writeDump(std::ostream& out) const {
  scenario_.writeJson(out, nlohmann::json{{"host", hostJson_()}});
}

bool Dispatcher::blockValid(const std::int32_t* block) {
  static const std::int32_t expected[PI_DATA_BASE_CLASS::BLOCK_SIZE] = {0, 0, 2, 2, 2, 2, 2, 2, 0};
  return block && std::equal(expected, expected + PI_DATA_BASE_CLASS::BLOCK_SIZE, block);
}

}  // namespace RefHost
