#include "host/cli/Interrupt.h"

#include <signal.h>
#include <unistd.h>

namespace RefHost {

namespace {

std::atomic<bool> interruptFlag{false};
bool stderrIsTerminal = false;
struct sigaction previousAction;

static_assert(std::atomic<bool>::is_always_lock_free, "the flag is set from a signal handler");

extern "C" void onInterrupt(int) {
  if (interruptFlag.exchange(true)) {
    // The second Ctrl-C: end now, as the default action would.
    ::signal(SIGINT, SIG_DFL);
    ::raise(SIGINT);
    return;
  }
  // Only async-signal-safe calls here: write(2), no stdio.
  static const char clear[] = "\r\033[K";
  static const char text[] = "scenario-host: interrupted: canceling the load (Ctrl-C again ends at once)\n";
  if (stderrIsTerminal) (void)!::write(STDERR_FILENO, clear, sizeof clear - 1);
  (void)!::write(STDERR_FILENO, text, sizeof text - 1);
}

}  // namespace

InterruptHandler::InterruptHandler() {
  stderrIsTerminal = ::isatty(STDERR_FILENO) != 0;
  struct sigaction action {};
  action.sa_handler = onInterrupt;
  sigemptyset(&action.sa_mask);
  // Reads of the plug-in's threads go on where they were interrupted.
  action.sa_flags = SA_RESTART;
  ::sigaction(SIGINT, &action, &previousAction);
}

InterruptHandler::~InterruptHandler() { ::sigaction(SIGINT, &previousAction, nullptr); }

const std::atomic<bool>& InterruptHandler::flag() { return interruptFlag; }

}  // namespace RefHost
