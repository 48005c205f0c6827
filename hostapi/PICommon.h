#pragma once
// PICommon: the host's application services as the plug-in calls them:
// messages, menu actions and hot keys, file-type registration, the file
// dialog, and which application has loaded the plug-in.

#include <cstdint>
#include <map>
#include <string>

class QWidget;

namespace PICommon {

// Message severities, in the host's numbering (the same as orvNotify's).
enum NotifySeverity : int32_t {
  PI_NOTIFY_ALWAYS = 0,
  PI_NOTIFY_FATAL = 1,
  PI_NOTIFY_ERROR = 2,
  PI_NOTIFY_WARN = 3,
  PI_NOTIFY_NOTICE = 4,
  PI_NOTIFY_INFO = 5,
  PI_NOTIFY_DEBUG_INFO = 6
};

// The application that has loaded the plug-in. The "10" generation of an
// application sets bit 4 of its kind.
enum PIApplicationHost_t : int32_t {
  PI_HOST_UNKNOWN = 0,
  PI_HOST_ORVIDE = 1,
  PI_HOST_KURVEX = 2,
  PI_HOST_ORVIDE10 = 0x11,
  PI_HOST_KURVEX10 = 0x12
};

// A message to the user through the host's message window; `prefix` is put
// in front of the text by the host.
void notify(const std::string& text, NotifySeverity severity, const std::string& prefix);

// A line on the host's console.
void debugPrint(const std::string& text);
// A modal message box; `parent` may be null.
void debugMsgBox(const std::string& title, const std::string& text, QWidget* parent);

void beginWaitCursor();
void endWaitCursor();

PIApplicationHost_t getApplicationId();
std::string getApplicationName();

// Something the host calls back: a menu action, a hot key. The plug-in owns
// its functors and deletes them when it is cleaned up.
class PICallbackFunctor {
 public:
  virtual ~PICallbackFunctor() = default;
  virtual long call(void* sender, void* data) = 0;
};

// A functor that calls a member function of an object.
template <typename T>
class PIMemberCallback : public PICallbackFunctor {
 public:
  using Method = long (T::*)(void*, void*);
  PIMemberCallback(T* object, Method method) : object_(object), method_(method) {}
  long call(void* sender, void* data) override { return (object_->*method_)(sender, data); }

 private:
  T* object_;
  Method method_;
};

// Creates a menu action `name` in the action group `group`; the host calls
// `callback` when it is chosen. Answers the host's action handle, 0 on failure.
uint64_t createAction(const std::string& name, const std::string& group, PICallbackFunctor* callback);
// Turns a key text such as "Ctrl+Shift+I" into the host's key code; 0 when the
// host does not understand it.
uint32_t parseAccelerator(const std::string& text);
// Binds a key code to the action `name`. Answers 0 on success.
int initializeHotKey(const std::string& name, uint32_t key);

// Options of an advanced file open, by key.
using FileOptions = std::map<std::string, std::string>;

// A handler for files that the host opens on the plug-in's behalf.
class FileImportExportDelegate {
 public:
  // Key of the boolean option that asks for an append instead of an import.
  static const std::string APPEND;

  virtual ~FileImportExportDelegate() = default;
};

// The advanced open: the host may show an editor of the delegate's making,
// collect options from it, and hand the file over with them.
class FileImportExportDelegateV2 : public FileImportExportDelegate {
 public:
  // The options page, or null for none.
  virtual QWidget* createEditor(QWidget* parent);
  // Collects the editor's options and passes them to processFileWithOptions.
  virtual int processFileWithWidget(const std::string& path, QWidget* editor);
  // Loads `path`; answers the load result.
  virtual int processFileWithOptions(const std::string& path, const FileOptions& options) = 0;
  // Writes the editor's state into `options`; answers 0 on success.
  virtual int fillOptions(QWidget* editor, FileOptions& options);
};

// Registers a file pattern such as "*.asi" so that the host's own open routes
// it to the plug-in. Answers 0 on success.
int registerFileHandler(const std::string& pattern, const std::string& description, int flag);
// Registers the advanced-open delegate of a pattern; the host keeps the
// delegate. A null delegate is refused without a call (answer -1).
int registerFileOpenAdvancedGui(const std::string& pattern, const std::string& description,
                                FileImportExportDelegateV2* delegate, int flag);

// The host's file dialog. `registryKey` in `registrySection` remembers the
// last directory. Answers the chosen paths joined by ";", empty on cancel.
std::string showFileLoadDialog(const std::string& title, const std::string& startDirectory,
                               const std::string& registryKey, const std::string& filter, bool multiple,
                               QWidget* parent, const std::string& registrySection);

}  // namespace PICommon
