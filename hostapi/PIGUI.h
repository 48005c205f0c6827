#pragma once
// PIGUI: the host's GUI objects as the plug-in holds them (the progress
// dialog), its settings store, and the lists that tie GUI objects' lives to
// the host or to the plug-in.

#include <cstdint>
#include <string>
#include <vector>

class QWidget;

// Base of host-side GUI objects: the plug-in holds the host's handle of the
// object (0 when the host refused to make it).
class PIObject {
 public:
  PIObject() = default;
  PIObject(const PIObject&) = delete;
  PIObject& operator=(const PIObject&) = delete;
  virtual ~PIObject() = default;

  uint64_t hostHandle() const { return hostHandle_; }

 protected:
  void setHostHandle(uint64_t handle) { hostHandle_ = handle; }

 private:
  uint64_t hostHandle_ = 0;
};

// The plug-in's own list of GUI objects to release: the objects are deleted
// with the collector. The plug-in keeps one global collector, which the
// clean-up entry point destroys.
class PIGarbageCollector {
 public:
  PIGarbageCollector() = default;
  PIGarbageCollector(const PIGarbageCollector&) = delete;
  PIGarbageCollector& operator=(const PIGarbageCollector&) = delete;
  ~PIGarbageCollector();

  // Takes ownership; adding an object twice keeps one entry.
  void add(PIObject* object);
  // Gives ownership back without deleting; answers whether it was held.
  bool remove(PIObject* object);
  size_t size() const { return objects_.size(); }

  // The global collector, made on first use.
  static PIGarbageCollector* global();
  // Deletes the global collector (and its objects) and clears the global.
  static void destroyGlobal();

 private:
  std::vector<PIObject*> objects_;
};

namespace PIGUI {

// Ties an object's life to the host: the host releases it with its own
// objects. Remove takes it back. Both answer 0 on success.
int AddObjectToServerGarbage(PIObject* object);
int RemoveObjectFromServerGarbage(PIObject* object);

// The host's settings store: string values under keys.
class PIRegistry {
 public:
  // The stored value, empty when the key has none.
  static std::string getValue(const std::string& key);
  // Answers 0 on success.
  static int setValue(const std::string& key, const std::string& value);
};

// The host's modal progress dialog. Without a host (or when the host refused
// it) every operation does nothing and isCanceled answers false.
class PIProgressDialog : public PIObject {
 public:
  PIProgressDialog(QWidget* parent, const std::string& title, const std::string& label, bool cancelButton,
                   int range);
  ~PIProgressDialog() override;

  void show();
  void hide();
  void setValue(int value);
  void setLabelText(const std::string& text);
  bool isCanceled();
  // Lets the host's event loop run once, so that the window repaints and the
  // cancel button can be pressed.
  void runWhileEvents();

 private:
  void request_(int64_t sub, int64_t value = 0, const std::string* text = nullptr);
};

}  // namespace PIGUI
