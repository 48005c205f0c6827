#pragma once
// Ctrl-C during a run cancels the load the way a progress dialog's cancel
// button does: the flag goes up, the host answers the plug-in's next
// isCanceled query with "canceled", and the run ends normally with every
// output complete. A second Ctrl-C ends the process at once.

#include <atomic>

namespace RefHost {

class InterruptHandler {
 public:
  // Installs the SIGINT handler; the destructor restores the previous one.
  InterruptHandler();
  ~InterruptHandler();
  InterruptHandler(const InterruptHandler&) = delete;
  InterruptHandler& operator=(const InterruptHandler&) = delete;

  // Up from the first Ctrl-C on.
  static const std::atomic<bool>& flag();
  static bool interrupted() { return flag().load(); }
};

}  // namespace RefHost
