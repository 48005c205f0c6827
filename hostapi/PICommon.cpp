#include "hostapi/PICommon.h"

#include "hostapi/PIBase.h"
#include "hostapi/PIDataStructs.h"

namespace PICommon {

namespace {
// Sub-operations of PI_APPLICATION_INFO.
constexpr int64_t kAppId = 0;
constexpr int64_t kAppName = 1;
// Sub-operations of PI_CREATE_ACTION.
constexpr int64_t kCreateAction = 0;
constexpr int64_t kParseAccelerator = 1;
constexpr int64_t kInitializeHotKey = 2;
}  // namespace

const std::string FileImportExportDelegate::APPEND = "Append";

void notify(const std::string& text, NotifySeverity severity, const std::string& prefix) {
  PI_DATA_CATCHALL params;
  params.ints = {severity};
  params.strings = {text, prefix};
  handle(PI_NOTIFY, &params);
}

void debugPrint(const std::string& text) {
  PI_DATA_POINTER_AND_STRING params;
  params.value = text;
  handle(PI_DEBUG_PRINT, &params);
}

void debugMsgBox(const std::string& title, const std::string& text, QWidget* parent) {
  PI_DATA_POINTER_STRING_AND_STRING params;
  params.pointer = parent;
  params.text1 = title;
  params.text2 = text;
  handle(PI_DEBUG_MSG_BOX, &params);
}

void beginWaitCursor() {
  PI_DATA_POINTER_AND_BOOL params;
  params.value = true;
  handle(PI_WAIT_CURSOR, &params);
}

void endWaitCursor() {
  PI_DATA_POINTER_AND_BOOL params;
  params.value = false;
  handle(PI_WAIT_CURSOR, &params);
}

PIApplicationHost_t getApplicationId() {
  PI_DATA_CATCHALL params;
  params.ints = {kAppId};
  return static_cast<PIApplicationHost_t>(handle(PI_APPLICATION_INFO, &params));
}

std::string getApplicationName() {
  std::string name;
  PI_DATA_CATCHALL params;
  params.ints = {kAppName};
  params.pointers = {&name};
  handle(PI_APPLICATION_INFO, &params);
  return name;
}

uint64_t createAction(const std::string& name, const std::string& group, PICallbackFunctor* callback) {
  PI_DATA_CATCHALL params;
  params.ints = {kCreateAction};
  params.strings = {name, group};
  params.pointers = {callback};
  return handle(PI_CREATE_ACTION, &params);
}

uint32_t parseAccelerator(const std::string& text) {
  PI_DATA_CATCHALL params;
  params.ints = {kParseAccelerator};
  params.strings = {text};
  return static_cast<uint32_t>(handle(PI_CREATE_ACTION, &params));
}

int initializeHotKey(const std::string& name, uint32_t key) {
  PI_DATA_CATCHALL params;
  params.ints = {kInitializeHotKey, key};
  params.strings = {name};
  return static_cast<int>(handle(PI_CREATE_ACTION, &params));
}

QWidget* FileImportExportDelegateV2::createEditor(QWidget*) { return nullptr; }

int FileImportExportDelegateV2::processFileWithWidget(const std::string& path, QWidget* editor) {
  FileOptions options;
  fillOptions(editor, options);
  return processFileWithOptions(path, options);
}

int FileImportExportDelegateV2::fillOptions(QWidget*, FileOptions&) { return 0; }

int registerFileHandler(const std::string& pattern, const std::string& description, int flag) {
  PI_REGISTER_HANDLER_DATA params;
  params.pattern = pattern;
  params.description = description;
  params.flag = flag;
  return static_cast<int>(handle(PI_REGISTER_FILE_HANDLER, &params));
}

int registerFileOpenAdvancedGui(const std::string& pattern, const std::string& description,
                                FileImportExportDelegateV2* delegate, int flag) {
  if (!delegate) return -1;
  PI_REGISTER_HANDLER_DATA params;
  params.pattern = pattern;
  params.description = description;
  params.delegate = delegate;
  params.flag = flag;
  return static_cast<int>(handle(PI_REGISTER_FILE_HANDLER, &params));
}

std::string showFileLoadDialog(const std::string& title, const std::string& startDirectory,
                               const std::string& registryKey, const std::string& filter, bool multiple,
                               QWidget* parent, const std::string& registrySection) {
  std::string result;
  PI_DATA_CATCHALL params;
  params.ints = {multiple ? 1 : 0};
  params.strings = {title, startDirectory, registryKey, filter, registrySection};
  params.pointers = {parent, &result};
  handle(PI_FILE_LOAD_DIALOG, &params);
  return result;
}

}  // namespace PICommon
