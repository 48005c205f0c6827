#include "host/cli/Summary.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <ostream>
#include <string>

#include "host/ReferenceHost.h"

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

namespace {

// Seconds in plain notation with at most millisecond digits: "600", "11521800.25".
std::string seconds(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.3f", value);
  std::string out(text);
  while (!out.empty() && out.back() == '0') out.pop_back();
  if (!out.empty() && out.back() == '.') out.pop_back();
  return out;
}

void widen(const Series& series, double& first, double& last) {
  if (!series.hasTimedRecords()) return;
  first = std::min(first, series.minTime());
  last = std::max(last, series.maxTime());
}

}  // namespace

void writeSummary(std::ostream& out, const ReferenceHost& host, const std::vector<LoadOutcome>& outcomes) {
  const HostScenario& scenario = host.scenario();
  out << "---- scenario-host summary ----\n";
  for (const LoadOutcome& outcome : outcomes) {
    out << "file:      " << outcome.path << "  ";
    if (outcome.reported)
      out << "result " << outcome.result << " (" << resultName(outcome.result) << ")\n";
    else
      out << "(the dialog path reports no result)\n";
  }
  out << "exit:      " << exitStatus(outcomes) << "\n";
  out << "scenario:  " << (scenario.settings().initialized ? "\"" + scenario.settings().fileName + "\"" : "none")
      << ", reference year " << scenario.settings().referenceYear << "\n";

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
    out << seconds(first) << " .. " << seconds(last) << " s of " << scenario.settings().referenceYear << "\n";
  else
    out << "none\n";
  out << "messages:  " << host.notifications().size() << " notifications, " << host.messageBoxes().size()
      << " message boxes, " << host.signalsRaised().size() << " signals\n";
}

}  // namespace RefHost
