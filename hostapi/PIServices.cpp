#include "hostapi/PIServices.h"

#include "hostapi/PIBase.h"
#include "hostapi/PIDataStructs.h"

namespace {

// Sub-operations of PI_SERVICE_BINDING.
constexpr int64_t kBind = 0;
constexpr int64_t kUnbind = 1;

int bindingRequest(PICommon::ServiceClient* client, int64_t sub, const std::string& name) {
  PI_DATA_CATCHALL params;
  params.ints = {sub};
  params.strings = {name};
  params.pointers = {client};
  return static_cast<int>(static_cast<int64_t>(handle(PI_SERVICE_BINDING, &params)));
}

}  // namespace

namespace PICommon {

ServiceClient::~ServiceClient() {
  // The host must not keep a pointer to a client that is gone.
  const std::set<std::string> names = bound_;
  for (const std::string& name : names) unbind(name);
}

void ServiceClient::onServiceConnected(BindableInterface*) {}
void ServiceClient::onServiceDisconnected() {}

int ServiceClient::bind(const std::string& name) {
  bound_.insert(name);
  return bindingRequest(this, kBind, name);
}

int ServiceClient::unbind(const std::string& name) {
  bound_.erase(name);
  return bindingRequest(this, kUnbind, name);
}

}  // namespace PICommon

namespace PluginClient {
namespace Interfaces {

const char* const SIGNAL_SERVICE_NAME = "kesmet.orvide/PluginClient/SignalService/1.0";
const char* const APPEND_DATA_SIGNAL = "kesmet.orvide/PluginClient/SignalService/AppendData/1.0";
const char* const FILE_LOCATOR_SERVICE_NAME = "kesmet.orvide/PluginClient/FileLocatorService/1.0";

void FileLocatorService::onServiceConnected(PICommon::BindableInterface* service) {
  interface_ = service ? dynamic_cast<FileLocatorInterface*>(service) : nullptr;
}

void FileLocatorService::onServiceDisconnected() { interface_ = nullptr; }

}  // namespace Interfaces
}  // namespace PluginClient

namespace PIORVIDE {
const char* const CLICKED_GUI_GOG_LIST = "kesmet.orvide/PIORVIDE/ClickedGuiGogList/1.0";
const char* const CLICKED_GUI_BOOKMARK_LIST = "kesmet.orvide/PIORVIDE/ClickedGuiBookmarkList/1.0";
}  // namespace PIORVIDE
