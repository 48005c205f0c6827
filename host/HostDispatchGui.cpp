// Codes 100-199: settings store, progress dialogs, the file dialog and the
// server garbage list; and the service bindings (322).

#include <algorithm>

#include "host/HostDispatch.h"
#include "host/HostServices.h"
#include "host/ProgressBar.h"
#include "hostapi/PIServices.h"

namespace RefHost {

namespace {

const char* dialogOp(std::int64_t sub) {
  static const char* const names[] = {"PIProgressDialog", "show",          "hide",           "setValue",
                                      "setLabelText",     "isCanceled",    "runWhileEvents", "~PIProgressDialog"};
  return sub >= 0 && sub <= 7 ? names[sub] : "progressDialog";
}

}  // namespace

std::uint64_t Dispatcher::gui(Request& r) {
  switch (r.code) {
    case PI_REGISTRY_SET_VALUE: {
      auto* rec = record<PI_DATA_POINTER_STRING_AND_STRING>(r);
      r.op = "setValue";
      if (!rec) return 1;
      arg(r, "key", rec->text1);
      arg(r, "value", rec->text2);
      if (refuse(r, "setValue") || rec->text1.empty()) return 1;
      host.registry_[rec->text1] = rec->text2;
      return 0;
    }
    case PI_REGISTRY_GET_VALUE: {
      auto* rec = record<PI_DATA_POINTER_STRING_AND_STRING>(r);
      r.op = "getValue";
      if (!rec) return 1;
      arg(r, "key", rec->text1);
      if (refuse(r, "getValue")) return 1;
      auto* out = static_cast<std::string*>(rec->pointer);
      if (!out) {
        r.problem = "missing output string";
        return 1;
      }
      auto it = host.registry_.find(rec->text1);
      *out = it == host.registry_.end() ? std::string() : it->second;
      if (r.tracing) r.out = *out;
      return 0;
    }
    case PI_PROGRESS_DIALOG: return progress(r);
    case PI_FILE_LOAD_DIALOG: {
      auto* rec = record<PI_DATA_CATCHALL>(r);
      r.op = "showFileLoadDialog";
      if (!rec) return 1;
      static const char* const names[] = {"title", "startDirectory", "registryKey", "filter", "registrySection"};
      for (std::size_t i = 0; i < 5; ++i)
        arg(r, names[i], i < rec->strings.size() ? rec->strings[i] : std::string());
      arg(r, "multiple", !rec->ints.empty() && rec->ints[0] != 0);
      auto* out = rec->pointers.size() > 1 ? static_cast<std::string*>(rec->pointers[1]) : nullptr;
      if (refuse(r, "showFileLoadDialog")) {
        if (out) out->clear();
        return 1;
      }
      if (!out) {
        r.problem = "missing output string";
        return 1;
      }
      std::string answer;
      if (host.dialogAnswersUsed_ < host.config_.fileDialogAnswers.size())
        answer = host.config_.fileDialogAnswers[host.dialogAnswersUsed_++];
      *out = answer;
      if (r.tracing) r.out = answer;
      // Like any file dialog, it remembers the folder of the first choice.
      const std::string key = rec->strings.size() > 2 ? rec->strings[2] : std::string();
      if (!answer.empty() && !key.empty()) {
        const std::string first = answer.substr(0, answer.find(';'));
        const std::size_t slash = first.find_last_of('/');
        if (slash != std::string::npos) host.registry_[key] = first.substr(0, slash == 0 ? 1 : slash);
      }
      return 0;
    }
    case PI_SERVER_GARBAGE: {
      auto* rec = record<PI_DATA_POINTER_AND_INT>(r);
      r.op = "AddObjectToServerGarbage";
      if (!rec) return 1;
      const bool add = rec->value == 0;
      if (refuse(r, add ? "AddObjectToServerGarbage" : "RemoveObjectFromServerGarbage") || !rec->pointer) return 1;
      auto& list = host.garbage_;
      auto it = std::find(list.begin(), list.end(), rec->pointer);
      if (add) {
        if (it == list.end()) list.push_back(rec->pointer);
        return 0;
      }
      if (it == list.end()) return 1;
      list.erase(it);
      return 0;
    }
    default: return 0;
  }
}

std::uint64_t Dispatcher::progress(Request& r) {
  auto* rec = record<PI_DATA_CATCHALL>(r);
  r.op = "PIProgressDialog";
  if (!rec || rec->ints.empty()) return 0;
  const std::int64_t sub = rec->ints[0];
  auto intAt = [&](std::size_t i) -> std::int64_t { return i < rec->ints.size() ? rec->ints[i] : 0; };
  auto& dialogs = host.dialogs_;
  if (sub == 0) {
    const std::string title = rec->strings.size() > 0 ? rec->strings[0] : std::string();
    const std::string label = rec->strings.size() > 1 ? rec->strings[1] : std::string();
    arg(r, "title", title);
    arg(r, "label", label);
    arg(r, "cancelButton", intAt(1) != 0);
    arg(r, "range", intAt(2));
    if (refuse(r, "PIProgressDialog")) return 0;
    ProgressDialogState dialog;
    dialog.handle = host.nextHandle_++;
    dialog.title = title;
    dialog.label = label;
    dialog.cancelButton = intAt(1) != 0;
    dialog.maximum = intAt(2);
    dialogs.push_back(dialog);
    return dialog.handle;
  }
  const std::uint64_t handle = static_cast<std::uint64_t>(intAt(1));
  arg(r, "handle", handle);
  if (sub == 3) arg(r, "value", intAt(2));
  if (sub == 4) arg(r, "text", rec->strings.empty() ? std::string() : rec->strings[0]);
  if (refuse(r, dialogOp(sub))) return 0;
  auto it = std::find_if(dialogs.begin(), dialogs.end(),
                         [&](const ProgressDialogState& d) { return d.handle == handle && !d.destroyed; });
  if (it == dialogs.end()) {
    r.problem = "unknown dialog handle";
    return 0;
  }
  ProgressBar& bar = *host.bar_;
  switch (sub) {
    case 1:
      it->visible = true;
      bar.show(it->label, it->minimum, it->maximum);
      bar.update(it->value);
      return 0;
    case 2:
    case 7:
      if (it->visible) bar.hide();
      it->visible = false;
      it->destroyed = sub == 7;
      return 0;
    case 3:
      it->value = intAt(2);
      if (it->visible) bar.update(it->value);
      return 0;
    case 4:
      it->label = rec->strings.empty() ? std::string() : rec->strings[0];
      if (it->visible) bar.setLabel(it->label);
      return 0;
    case 5: {
      // The user presses cancel at the configured query, and the dialog
      // stays canceled from then on.
      const long after = host.config_.cancelAfter;
      const bool canceled = after > 0 && ++host.cancelQueries_ >= after;
      const std::atomic<bool>* request = host.config_.cancelRequest;
      return canceled || (request && request->load()) ? 1 : 0;
    }
    case 6: return 0;
    default:
      r.problem = "unknown sub-operation";
      return 0;
  }
}

std::uint64_t Dispatcher::services(Request& r) {
  auto* rec = record<PI_DATA_CATCHALL>(r);
  r.op = "bind";
  if (!rec || rec->ints.empty()) return 1;
  const bool bind = rec->ints[0] == 0;
  const std::string name = rec->strings.empty() ? std::string() : rec->strings[0];
  auto* client = rec->pointers.empty() ? nullptr : static_cast<PICommon::ServiceClient*>(rec->pointers[0]);
  arg(r, "name", name);
  if (refuse(r, bind ? "bind" : "unbind") || !client) return 1;
  auto& bindings = host.bindings_;
  auto it = std::find(bindings.begin(), bindings.end(), std::make_pair(client, name));
  if (!bind) {
    if (it == bindings.end()) return 1;
    bindings.erase(it);
    client->onServiceDisconnected();
    return 0;
  }
  PICommon::BindableInterface* service = nullptr;
  if (name == PluginClient::Interfaces::SIGNAL_SERVICE_NAME && host.config_.signalService)
    service = host.signalService_.get();
  else if (name == PluginClient::Interfaces::FILE_LOCATOR_SERVICE_NAME && !host.config_.locateDir.empty())
    service = host.fileLocator_.get();
  if (!service) return 1;  // nobody offers it: no call back
  if (it == bindings.end()) bindings.emplace_back(client, name);
  if (r.tracing) r.out = "connected";
  client->onServiceConnected(service);
  return 0;
}

}  // namespace RefHost
