#pragma once
// Named services: plug-ins publish an interface under a string, others bind
// to it for the length of one operation. The plug-in is a client of the
// signal service and of the file-locator service.

#include <set>
#include <string>

namespace PICommon {

// The root of what a service offers.
class BindableInterface {
 public:
  virtual ~BindableInterface() = default;
};

// A client of a named service. bind() asks the host for the service; the host
// calls onServiceConnected before bind returns, or not at all when nobody
// offers that name. unbind() ends it with onServiceDisconnected. A client
// that is destroyed while still bound unbinds itself first.
class ServiceClient {
 public:
  ServiceClient() = default;
  ServiceClient(const ServiceClient&) = delete;
  ServiceClient& operator=(const ServiceClient&) = delete;
  virtual ~ServiceClient();

  virtual void onServiceConnected(BindableInterface* service);
  virtual void onServiceDisconnected();

  // Answers the host's result, 0 when the request was taken.
  int bind(const std::string& name);
  int unbind(const std::string& name);

 private:
  std::set<std::string> bound_;
};

// A client that keeps the connected service as an interface of type T; null
// while not connected or when the service is not a T.
template <typename T>
class BasicClient : public ServiceClient {
 public:
  void onServiceConnected(BindableInterface* service) override {
    interface_ = service ? dynamic_cast<T*>(service) : nullptr;
  }
  void onServiceDisconnected() override { interface_ = nullptr; }

  T* getInterface() const { return interface_; }

 private:
  T* interface_ = nullptr;
};

}  // namespace PICommon

namespace PluginClient {
namespace Interfaces {

extern const char* const SIGNAL_SERVICE_NAME;        // "kesmet.orvide/PluginClient/SignalService/1.0"
extern const char* const APPEND_DATA_SIGNAL;         // "kesmet.orvide/PluginClient/SignalService/AppendData/1.0"
extern const char* const FILE_LOCATOR_SERVICE_NAME;  // "kesmet.orvide/PluginClient/FileLocatorService/1.0"

// Signals between plug-ins: raising one tells every listener of that name.
class SignalInterface : public PICommon::BindableInterface {
 public:
  // Raises the signal `name` with no data; answers 0 when it was delivered.
  virtual int raiseSignal(const std::string& name) = 0;
};

// Finds files that the user keeps in the host's search paths.
class FileLocatorInterface : public PICommon::BindableInterface {
 public:
  // The full path of the file `name` of the given file kind (a host file-kind
  // number, e.g. 11 for range configurations); empty when it is not found.
  virtual std::string findFile(const std::string& name, int fileKind) = 0;
};

using SignalClient = PICommon::BasicClient<SignalInterface>;

// The client of the file-locator service.
class FileLocatorService : public PICommon::ServiceClient {
 public:
  void onServiceConnected(PICommon::BindableInterface* service) override;
  void onServiceDisconnected() override;

  FileLocatorInterface* getInterface() const { return interface_; }

 private:
  FileLocatorInterface* interface_ = nullptr;
};

}  // namespace Interfaces
}  // namespace PluginClient

namespace PIORVIDE {
// Identifiers of the host's click lists of GUI items; held, not used.
extern const char* const CLICKED_GUI_GOG_LIST;       // "kesmet.orvide/PIORVIDE/ClickedGuiGogList/1.0"
extern const char* const CLICKED_GUI_BOOKMARK_LIST;  // "kesmet.orvide/PIORVIDE/ClickedGuiBookmarkList/1.0"
}  // namespace PIORVIDE
