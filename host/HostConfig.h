#pragma once
// What a user of the reference host can set before a run: which application
// it plays, what its settings store and dialogs answer, and which requests it
// refuses. Plain data, so that a command line can fill it field by field.

#include <atomic>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace RefHost {

enum class Application { Display, Plot };

struct HostConfig {
  // The display application (ORVIDE) or the plot application (Kurvex).
  Application application = Application::Display;
  // The "10" generation of the application: getApplicationId answers
  // ORVIDE 10 / Kurvex 10 (0x11 / 0x12) instead of ORVIDE / Kurvex (1 / 2).
  bool version10 = false;

  // Initial content of the settings store, KEY -> VALUE.
  std::map<std::string, std::string> settings;

  // Folder in which the file-locator service looks a name up. The service is
  // offered only when this is not empty.
  std::string locateDir;
  // Whether the signal service is offered.
  bool signalService = true;

  // One answer per file dialog shown, in order; once used up the dialog
  // answers "" (canceled). An answer may join several paths with ";".
  std::vector<std::string> fileDialogAnswers;

  // The progress dialogs report "canceled" from the N-th isCanceled query on
  // (counted over all dialogs, the first query being number 1); 0: never.
  long cancelAfter = 0;
  // The user's cancel, as the cancel button of a progress dialog gives it:
  // while the flag is up, every isCanceled query answers "canceled". Null:
  // no such button. (scenario-host raises it on Ctrl-C.)
  const std::atomic<bool>* cancelRequest = nullptr;

  // Client operations to refuse, by name ("createPlatform", "addDataPoint",
  // "loadGOGFile", ...). A refused request changes nothing and answers failure.
  std::set<std::string> refusals;
  // Client operations that throw std::bad_alloc instead, as a host whose
  // memory has run out does.
  std::set<std::string> outOfMemory;

  // Keep per-object counts and time spans but no point data.
  bool noData = false;

  // Reference year of a new scenario, until the client sets one.
  int defaultReferenceYear = 1970;

  // Draw a progress bar on the standard error stream (only when it is a
  // terminal), and echo notifications and console prints there.
  bool progressBar = true;
  bool echoConsole = true;
};

}  // namespace RefHost
