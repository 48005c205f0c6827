// Housekeeping (context override) and the common services: messages,
// console, wait cursor, application identity, actions and hot keys, file
// registration.

#include <cctype>

#include "host/HostDispatch.h"
#include "hostapi/PICommon.h"

namespace RefHost {

namespace {

// Key codes in the host's numbering: modifier bits over a key number.
constexpr std::uint32_t kShift = 0x02000000;
constexpr std::uint32_t kCtrl = 0x04000000;
constexpr std::uint32_t kAlt = 0x08000000;
constexpr std::uint32_t kMeta = 0x10000000;
constexpr std::uint32_t kFunctionKey1 = 0x01000030;

std::string upper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

// "Ctrl+Shift+I" -> modifier bits | key; 0 for a text that names no key.
std::uint32_t parseKey(const std::string& text) {
  std::uint32_t code = 0;
  bool haveKey = false;
  std::size_t start = 0;
  while (start <= text.size()) {
    std::size_t plus = text.find('+', start);
    // A trailing "+" names the plus key itself ("Ctrl++").
    if (plus == start && plus + 1 == text.size()) plus = std::string::npos;
    const std::string part = upper(text.substr(start, plus == std::string::npos ? std::string::npos : plus - start));
    if (part == "CTRL") code |= kCtrl;
    else if (part == "SHIFT") code |= kShift;
    else if (part == "ALT") code |= kAlt;
    else if (part == "META") code |= kMeta;
    else if (part.size() == 1 && !haveKey && std::isgraph(static_cast<unsigned char>(part[0]))) {
      code |= static_cast<unsigned char>(part[0]);
      haveKey = true;
    } else if (part.size() >= 2 && part[0] == 'F' && !haveKey && part.size() <= 3 &&
               std::isdigit(static_cast<unsigned char>(part[1])) &&
               (part.size() == 2 || std::isdigit(static_cast<unsigned char>(part[2])))) {
      const int n = std::stoi(part.substr(1));
      if (n < 1 || n > 35) return 0;
      code |= kFunctionKey1 + static_cast<std::uint32_t>(n - 1);
      haveKey = true;
    } else {
      return 0;
    }
    if (plus == std::string::npos) break;
    start = plus + 1;
  }
  return haveKey ? code : 0;
}

}  // namespace

std::uint64_t Dispatcher::housekeeping(Request& r) {
  if (r.code != PI_OVERRIDE_THIS_POINTER) return 0;
  auto* rec = record<PI_DATA_CATCHALL>(r);
  if (!rec || rec->ints.empty()) {
    r.op = "overrideThisPointer";
    if (!r.problem) r.problem = "missing sub-operation";
    return 0;
  }
  auto& stack = host.overrides_;
  switch (rec->ints[0]) {
    case 0: {
      if (refuse(r, "pushOverrideThisPointer")) return 0;
      void* context = rec->pointers.empty() ? nullptr : rec->pointers[0];
      arg(r, "context", reinterpret_cast<std::uintptr_t>(context));
      stack.push_back(context);
      return 1;
    }
    case 1:
      if (refuse(r, "popOverrideThisPointer")) return 0;
      if (stack.empty()) return 0;
      stack.pop_back();
      return 1;
    case 2:
      if (refuse(r, "getOverriddenThisPointer")) return 0;
      return stack.empty() ? 0 : reinterpret_cast<std::uintptr_t>(stack.back());
    default:
      r.op = "overrideThisPointer";
      r.problem = "unknown sub-operation";
      return 0;
  }
}

std::uint64_t Dispatcher::common(Request& r) {
  switch (r.code) {
    case PI_NOTIFY: {
      auto* rec = record<PI_DATA_CATCHALL>(r);
      r.op = "notify";
      if (!rec || rec->ints.empty() || rec->strings.empty()) {
        if (!r.problem) r.problem = "missing severity or text";
        return 1;
      }
      const std::string prefix = rec->strings.size() > 1 ? rec->strings[1] : std::string();
      arg(r, "severity", rec->ints[0]);
      arg(r, "text", rec->strings[0]);
      arg(r, "prefix", prefix);
      if (refuse(r, "notify")) return 1;
      host.notify_(rec->ints[0], rec->strings[0], prefix);
      return 0;
    }
    case PI_DEBUG_PRINT: {
      auto* rec = record<PI_DATA_POINTER_AND_STRING>(r);
      r.op = "debugPrint";
      if (!rec) return 1;
      arg(r, "text", rec->value);
      if (refuse(r, "debugPrint")) return 1;
      host.consolePrint_(rec->value);
      return 0;
    }
    case PI_DEBUG_MSG_BOX: {
      auto* rec = record<PI_DATA_POINTER_STRING_AND_STRING>(r);
      r.op = "debugMsgBox";
      if (!rec) return 1;
      arg(r, "title", rec->text1);
      arg(r, "text", rec->text2);
      arg(r, "parent", reinterpret_cast<std::uintptr_t>(rec->pointer));
      if (refuse(r, "debugMsgBox")) return 1;
      host.messageBoxes_.emplace_back(rec->text1, rec->text2);
      // Shown on stderr like the console, but a box is no console line.
      if (host.config_.echoConsole) host.echo_("[" + rec->text1 + "] " + rec->text2);
      return 0;
    }
    case PI_WAIT_CURSOR: {
      auto* rec = record<PI_DATA_POINTER_AND_BOOL>(r);
      r.op = "beginWaitCursor";
      if (!rec) return 1;
      if (refuse(r, rec->value ? "beginWaitCursor" : "endWaitCursor")) return 1;
      if (rec->value) ++host.waitCursor_;
      else if (host.waitCursor_ > 0) --host.waitCursor_;
      return 0;
    }
    case PI_APPLICATION_INFO: {
      auto* rec = record<PI_DATA_CATCHALL>(r);
      r.op = "getApplicationId";
      if (!rec || rec->ints.empty()) return 0;
      const bool plot = host.config_.application == Application::Plot;
      if (rec->ints[0] == 0) {
        if (refuse(r, "getApplicationId")) return PICommon::PI_HOST_UNKNOWN;
        if (host.config_.version10) return plot ? PICommon::PI_HOST_KURVEX10 : PICommon::PI_HOST_ORVIDE10;
        return plot ? PICommon::PI_HOST_KURVEX : PICommon::PI_HOST_ORVIDE;
      }
      if (rec->ints[0] == 1) {
        if (refuse(r, "getApplicationName")) return 0;
        auto* out = rec->pointers.empty() ? nullptr : static_cast<std::string*>(rec->pointers[0]);
        if (!out) {
          r.problem = "missing output string";
          return 0;
        }
        *out = plot ? "Kurvex" : "ORVIDE";
        if (r.tracing) r.out = *out;
        return 1;
      }
      r.problem = "unknown sub-operation";
      return 0;
    }
    case PI_CREATE_ACTION: {
      auto* rec = record<PI_DATA_CATCHALL>(r);
      r.op = "createAction";
      if (!rec || rec->ints.empty()) return 0;
      const std::string s0 = rec->strings.size() > 0 ? rec->strings[0] : std::string();
      switch (rec->ints[0]) {
        case 0: {
          const std::string group = rec->strings.size() > 1 ? rec->strings[1] : std::string();
          auto* callback = rec->pointers.empty() ? nullptr : static_cast<PICommon::PICallbackFunctor*>(rec->pointers[0]);
          arg(r, "name", s0);
          arg(r, "group", group);
          arg(r, "callback", callback != nullptr);
          if (refuse(r, "createAction") || s0.empty()) return 0;
          for (const MenuAction& a : host.actions_)
            if (a.name == s0) return 0;
          host.actions_.push_back({host.nextHandle_++, s0, group, callback});
          return host.actions_.back().handle;
        }
        case 1:
          arg(r, "text", s0);
          if (refuse(r, "parseAccelerator")) return 0;
          return parseKey(s0);
        case 2: {
          const std::uint32_t key = rec->ints.size() > 1 ? static_cast<std::uint32_t>(rec->ints[1]) : 0;
          arg(r, "name", s0);
          arg(r, "key", key);
          if (refuse(r, "initializeHotKey")) return 1;
          bool known = false;
          for (const MenuAction& a : host.actions_) known = known || a.name == s0;
          if (!known || key == 0) return 1;
          host.hotKeys_.push_back({s0, key});
          return 0;
        }
        default:
          r.problem = "unknown sub-operation";
          return 0;
      }
    }
    case PI_REGISTER_FILE_HANDLER: {
      auto* rec = record<PI_REGISTER_HANDLER_DATA>(r);
      r.op = "registerFileHandler";
      if (!rec) return 1;
      const bool advanced = rec->delegate != nullptr;
      arg(r, "pattern", rec->pattern);
      arg(r, "description", rec->description);
      arg(r, "flag", rec->flag);
      if (advanced) arg(r, "delegate", true);
      if (refuse(r, advanced ? "registerFileOpenAdvancedGui" : "registerFileHandler")) return 1;
      if (rec->pattern.empty()) return 1;
      FileHandler handler;
      handler.pattern = rec->pattern;
      handler.description = rec->description;
      handler.flag = rec->flag;
      handler.delegate = static_cast<PICommon::FileImportExportDelegateV2*>(rec->delegate);
      host.fileHandlers_.push_back(handler);
      return 0;
    }
    case PI_SERVICE_BINDING: return services(r);
    default: return 0;
  }
}

}  // namespace RefHost
