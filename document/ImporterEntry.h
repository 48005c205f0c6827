#pragma once
// One side format that AsiScenarioFile can turn into a document: how the
// file is recognised, what the user is told, and the function that fills
// the document. The table of these lives in importers/ImporterTable.cpp.

#include <functional>
#include <string>
#include <vector>

#include "document/ScenarioUD.h"

struct ImporterEntry {
  // Fills `scenario` from the file at `path`; answers an ErrorCodesUD value
  // (a code that udIsFatalError takes ends the load). Complaints go to the
  // document's error stream (writeErrorStreamUD). `progress` may be null; a
  // true answer from it is the user's cancel.
  using Load = std::function<int(const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress)>;

  // Lower-case extensions with their point, e.g. {".pet", ".csv"}.
  std::vector<std::string> extensions;
  // For a ".csv" file only: texts of which one must appear in the file's
  // first non-empty line. Empty: any ".csv" file of the entry's extensions.
  std::vector<std::string> csvMarkers;
  // Told at info severity before the load, followed by the path.
  std::string notice;
  // Told at warning severity above what the load wrote to the error stream.
  std::string issuesHeading = "Issues detected during ASI load:\n";
  // Added to the caller's issues when the load answers a fatal code.
  std::string fatalText;
  Load load;
};

using ImporterTable = std::vector<ImporterEntry>;
