#include "hostapi/PIGUI.h"

#include <algorithm>

#include "hostapi/PIBase.h"
#include "hostapi/PIDataStructs.h"

namespace {

PIGarbageCollector* g_garbageCollector = nullptr;

// Sub-operations of PI_SERVER_GARBAGE (in the record's integer).
constexpr int32_t kGarbageAdd = 0;
constexpr int32_t kGarbageRemove = 1;

// Sub-operations of PI_PROGRESS_DIALOG.
constexpr int64_t kDialogCreate = 0;
constexpr int64_t kDialogShow = 1;
constexpr int64_t kDialogHide = 2;
constexpr int64_t kDialogSetValue = 3;
constexpr int64_t kDialogSetLabel = 4;
constexpr int64_t kDialogIsCanceled = 5;
constexpr int64_t kDialogRunEvents = 6;
constexpr int64_t kDialogDestroy = 7;

int garbageRequest(PIObject* object, int32_t sub) {
  PI_DATA_POINTER_AND_INT params;
  params.pointer = object;
  params.value = sub;
  return static_cast<int>(static_cast<int64_t>(handle(PI_SERVER_GARBAGE, &params)));
}

}  // namespace

PIGarbageCollector::~PIGarbageCollector() {
  for (PIObject* object : objects_) delete object;
}

void PIGarbageCollector::add(PIObject* object) {
  if (object && std::find(objects_.begin(), objects_.end(), object) == objects_.end()) objects_.push_back(object);
}

bool PIGarbageCollector::remove(PIObject* object) {
  auto it = std::find(objects_.begin(), objects_.end(), object);
  if (it == objects_.end()) return false;
  objects_.erase(it);
  return true;
}

PIGarbageCollector* PIGarbageCollector::global() {
  if (!g_garbageCollector) g_garbageCollector = new PIGarbageCollector;
  return g_garbageCollector;
}

void PIGarbageCollector::destroyGlobal() {
  delete g_garbageCollector;
  g_garbageCollector = nullptr;
}

namespace PIGUI {

int AddObjectToServerGarbage(PIObject* object) {
  if (!object) return -1;
  return garbageRequest(object, kGarbageAdd);
}

int RemoveObjectFromServerGarbage(PIObject* object) {
  if (!object) return -1;
  return garbageRequest(object, kGarbageRemove);
}

std::string PIRegistry::getValue(const std::string& key) {
  std::string value;
  PI_DATA_POINTER_STRING_AND_STRING params;
  params.pointer = &value;
  params.text1 = key;
  handle(PI_REGISTRY_GET_VALUE, &params);
  return value;
}

int PIRegistry::setValue(const std::string& key, const std::string& value) {
  PI_DATA_POINTER_STRING_AND_STRING params;
  params.text1 = key;
  params.text2 = value;
  return static_cast<int>(static_cast<int64_t>(handle(PI_REGISTRY_SET_VALUE, &params)));
}

PIProgressDialog::PIProgressDialog(QWidget* parent, const std::string& title, const std::string& label,
                                   bool cancelButton, int range) {
  PI_DATA_CATCHALL params;
  params.ints = {kDialogCreate, cancelButton ? 1 : 0, range};
  params.strings = {title, label};
  params.pointers = {parent};
  setHostHandle(handle(PI_PROGRESS_DIALOG, &params));
}

PIProgressDialog::~PIProgressDialog() { request_(kDialogDestroy); }

void PIProgressDialog::show() { request_(kDialogShow); }
void PIProgressDialog::hide() { request_(kDialogHide); }
void PIProgressDialog::setValue(int value) { request_(kDialogSetValue, value); }
void PIProgressDialog::setLabelText(const std::string& text) { request_(kDialogSetLabel, 0, &text); }
void PIProgressDialog::runWhileEvents() { request_(kDialogRunEvents); }

bool PIProgressDialog::isCanceled() {
  if (!hostHandle()) return false;
  PI_DATA_CATCHALL params;
  params.ints = {kDialogIsCanceled, static_cast<int64_t>(hostHandle()), 0};
  return handle(PI_PROGRESS_DIALOG, &params) != 0;
}

void PIProgressDialog::request_(int64_t sub, int64_t value, const std::string* text) {
  if (!hostHandle()) return;
  PI_DATA_CATCHALL params;
  params.ints = {sub, static_cast<int64_t>(hostHandle()), value};
  if (text) params.strings = {*text};
  handle(PI_PROGRESS_DIALOG, &params);
}

}  // namespace PIGUI
