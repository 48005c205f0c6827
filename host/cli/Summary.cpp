#include "host/cli/Summary.h"

#include <cmath>
#include <limits>
#include <ostream>

#include "host/ReferenceHost.h"
#include "host/TerminalText.h"
#include "host/cli/IsoTime.h"
#include "host/cli/MessageLog.h"

namespace RefHost {

const char* resultName(int result) {
  switch (result) {
    case 0: return "loaded";
    case 1: return "canceled";
    case 2: return "loaded with errors";
    case -1: return "failed";
    case -2: return "stopped after too many errors";
    default: return "unknown result";
  }
}

int exitStatus(const std::vector<LoadOutcome>& outcomes) {
  for (const LoadOutcome& outcome : outcomes) {
    if (outcome.skipped) return 1;
    if (!outcome.reported || outcome.result == 0) continue;
    switch (outcome.result) {
      case 1: return 1;
      case 2: return 2;
      case -2: return 4;
      default: return 3;
    }
  }
  return 0;
}

std::string fileOfPoint(const std::vector<LoadOutcome>& outcomes, std::uint64_t id, std::size_t index) {
  for (const LoadOutcome& outcome : outcomes) {
    const auto it = outcome.pointsAfter.find(id);
    if (it != outcome.pointsAfter.end() && index < it->second) return outcome.path;
  }
  return "";
}

namespace {

void widen(const Series& series, double& first, double& last) {
  if (!series.hasTimedRecords()) return;
  first = std::min(first, series.minTime());
  last = std::max(last, series.maxTime());
}

std::string counted(std::size_t n, const char* one, const char* many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

std::string quoted(const std::string& text) { return "\"" + terminalSafe(text) + "\""; }

}  // namespace

void writeSummary(std::ostream& out, const ReferenceHost& host, const std::vector<LoadOutcome>& outcomes,
                  const MessageLog& messages, const RunVerdict& verdict) {
  const HostScenario& scenario = host.scenario();
  const ScenarioSettings& settings = scenario.settings();
  out << "---- scenario-host summary ----\n";
  for (const LoadOutcome& outcome : outcomes) {
    out << "file:      " << terminalSafe(outcome.path) << "  ";
    if (outcome.skipped)
      out << "not loaded (interrupted)\n";
    else if (outcome.reported)
      out << "result " << outcome.result << " (" << resultName(outcome.result) << ")\n";
    else
      out << "(the dialog path reports no result)\n";
  }
  out << "exit:      " << verdict.exitStatus << (verdict.why.empty() ? "" : " (" + verdict.why + ")") << "\n";
  out << "scenario:  " << (settings.initialized ? quoted(settings.fileName) : std::string("none"))
      << ", reference year " << settings.referenceYear << "\n";
  if (!settings.classification.empty()) out << "           classification " << quoted(settings.classification) << "\n";
  if (!settings.description.empty()) out << "           description " << quoted(settings.description) << "\n";

  std::map<std::uint32_t, std::size_t> byKind;
  std::size_t points = 0, records = 0;
  double first = std::numeric_limits<double>::infinity();
  double last = -std::numeric_limits<double>::infinity();
  const auto count = [&](const HostObject& object) {
    for (unsigned s = 0; s < SERIES_COUNT; ++s) {
      records += object.series[s].count();
      widen(object.series[s], first, last);
    }
    points += object.series[SERIES_POINTS].count();
  };
  for (const auto& object : scenario.objects()) {
    ++byKind[object->kind];
    count(*object);
  }
  count(scenario.scenarioObject());

  out << "objects:   ";
  if (byKind.empty()) out << "none";
  bool firstKind = true;
  for (const auto& entry : byKind) {
    out << (firstKind ? "" : ", ") << kindName(entry.first) << " " << entry.second;
    firstKind = false;
  }
  out << "\n";
  out << "points:    " << points << " (" << records << " time-tagged records in all)\n";
  out << "tables:    " << scenario.tables().size() << "\n";
  out << "time span: ";
  if (first <= last)
    out << timeText(settings.referenceYear, first) << " .. " << timeText(settings.referenceYear, last) << " ("
        << durationText(last - first) << ")\n";
  else
    out << "none\n";
  out << "messages:  " << counted(messages.errors(), "error", "errors") << ", "
      << counted(messages.warnings(), "warning", "warnings") << ", " << counted(messages.notes(), "note", "notes")
      << "; " << counted(host.messageBoxes().size(), "message box", "message boxes") << ", "
      << counted(host.signalsRaised().size(), "signal", "signals") << "\n";
}

}  // namespace RefHost
