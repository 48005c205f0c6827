// OTH Gold message files: how fast a file of position reports parses, how
// much memory the parsed messages hold, and how fast the OTG loader makes a
// scenario document of it.
// Usage: oth_bench --generate <path> [reports]   writes a file (default 1000000 reports)
//        oth_bench <path>                        parses it and reads every report's fields
//        oth_bench --load <path>                 loads it into a document (a run of its own,
//                                                so that its peak RSS is its own)
// Prints reports/s, MB/s and the peak RSS after each step.

#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "core/TimeCalendar.h"
#include "document/ConvenienceFuncsUD.h"
#include "importers/OTGFile.h"
#include "importers/oth/OTHMessage.h"
#include "importers/oth/OthFields.h"

namespace {

using Clock = std::chrono::steady_clock;

long peakRssKb() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// User and system CPU seconds so far: on a shared machine the wall time
// says little, the CPU time what the work costs.
double cpuSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

double seconds(Clock::time_point since) { return std::chrono::duration<double>(Clock::now() - since).count(); }

// Messages of 50 contacts with 2 reports each, a minute apart, the tracks
// circling a point off the coast; every tenth report is an expanded one.
int generate(const std::string& path, long reports) {
  std::ofstream out(path, std::ios::binary);
  if (!out) return 1;
  // POS reports count in the current year: XPOS reports are written in it too.
  const int year = orvCore::currentYear();
  const int contacts = 50;
  const int perContact = 2;
  long written = 0;
  for (long message = 0; written < reports; ++message) {
    OthLib::OTHMessage m;
    m.header().setCommand("GOLD");
    m.header().setField(OthLib::OTHMsgID::ORIGINATOR, "CTF-65");
    m.header().setSerialNumber(static_cast<int>(message));
    for (int c = 0; c < contacts && written < reports; ++c) {
      OthLib::OTHContact contact;
      contact.setField(OthLib::OTHContact::TRACK_NUMBER, "T" + std::to_string(1000 + c));
      contact.setField(OthLib::OTHContact::TRACK_NAME, "TRACK" + std::to_string(c));
      contact.setField(OthLib::OTHContact::FORCE_CODE, c % 3 == 0 ? "H" : "F");
      contact.setField(OthLib::OTHContact::SCONUM, std::to_string(20000 + c));
      for (int r = 0; r < perContact && written < reports; ++r, ++written) {
        const double time = 3600.0 + message * 120.0 + r * 60.0;
        const double angle = 0.001 * time + c;
        const double lat = (20.0 + c * 0.3 + 0.5 * std::sin(angle)) * OthLib::DEG_TO_RAD;
        const double lon = (-60.0 - c * 0.2 + 0.5 * std::cos(angle)) * OthLib::DEG_TO_RAD;
        auto fill = [&](OthLib::OTHPositionReport& report) {
          report.setTime(time, year);
          report.setPosition(lat, lon, c % 5 == 0 ? 9000.0 : 0.0);
          report.setCourse(angle);
          report.setSpeed(8.0 + c % 7);
          report.setUncertaintyEllipse(3000.0 + c, 2000.0, 45.0);
        };
        if (written % 10 == 9) {
          contact.expandedPositions().emplace_back();
          fill(contact.expandedPositions().back());
        } else {
          contact.positions().emplace_back();
          fill(contact.positions().back());
        }
      }
      m.contacts().push_back(std::move(contact));
    }
    out << m.packToString();
  }
  std::printf("wrote %ld reports to %s\n", written, path.c_str());
  return 0;
}

long countReports(const std::vector<OthLib::OTHMessage>& messages) {
  long count = 0;
  for (const auto& message : messages)
    for (const auto& contact : message.contacts())
      count += static_cast<long>(contact.positions().size() + contact.expandedPositions().size());
  return count;
}

// What the loader reads of each report.
long readFields(const std::vector<OthLib::OTHMessage>& messages) {
  long good = 0;
  auto read = [&good](const OthLib::OTHPositionReport& report) {
    double lla[3], time = 0, course = 0, speed = 0, major = 0, minor = 0, bearing = 0;
    int year = 0;
    if (report.getPosition(lla) == 0 && report.getTime(time, year) == 0 && report.getCourse(course) == 0 &&
        report.getSpeed(speed) == 0 && report.getUncertaintyEllipse(major, minor, bearing) == 0)
      ++good;
  };
  for (const auto& message : messages)
    for (const auto& contact : message.contacts()) {
      for (const auto& report : contact.positions()) read(report);
      for (const auto& report : contact.expandedPositions()) read(report);
    }
  return good;
}

// The whole loader: parse, document, ellipse tables.
int load(const std::string& path) {
  std::ostringstream faults;
  setErrorStreamUD(&faults);
  ScenarioUD scenario;
  const Clock::time_point start = Clock::now();
  const double cpu = cpuSeconds();
  const int result = LoadOTGFile(path, &scenario);
  const double elapsed = seconds(start);
  const double used = cpuSeconds() - cpu;
  setErrorStreamUD(nullptr);
  size_t states = 0;
  for (const auto& platform : scenario.platforms()) states += platform.second->Motion()->Size();
  std::printf("load: result %d, %zu platforms, %zu states in %.3f s (%.3f s CPU): %.0f states/s, %.0f per CPU s, "
              "peak RSS %ld kB\n",
              result, scenario.platforms().size(), states, elapsed, used, states / elapsed, states / used,
              peakRssKb());
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc >= 3 && std::strcmp(argv[1], "--generate") == 0)
    return generate(argv[2], argc >= 4 ? std::atol(argv[3]) : 1000000L);
  if (argc == 3 && std::strcmp(argv[1], "--load") == 0) return load(argv[2]);
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s --generate <path> [reports] | %s <path>\n", argv[0], argv[0]);
    return 2;
  }
  struct stat info {};
  if (stat(argv[1], &info) != 0) return 1;
  const double megabytes = info.st_size / 1e6;
  std::printf("file: %.1f MB, peak RSS before parse: %ld kB\n", megabytes, peakRssKb());

  std::vector<OthLib::OTHMessage> messages;
  Clock::time_point start = Clock::now();
  double cpu = cpuSeconds();
  const int result = OthLib::ParseOTHFile(argv[1], messages);
  double elapsed = seconds(start);
  const long reports = countReports(messages);
  cpu = cpuSeconds() - cpu;
  std::printf("parse: result %d, %zu messages, %ld reports in %.3f s (%.3f s CPU): %.0f reports/s, %.0f per CPU s, "
              "%.1f MB/s, peak RSS %ld kB\n",
              result, messages.size(), reports, elapsed, cpu, reports / elapsed, reports / cpu, megabytes / elapsed,
              peakRssKb());

  start = Clock::now();
  cpu = cpuSeconds();
  const long good = readFields(messages);
  elapsed = seconds(start);
  cpu = cpuSeconds() - cpu;
  std::printf("fields: %ld of %ld reports read whole in %.3f s (%.3f s CPU): %.0f reports/s, %.0f per CPU s, "
              "peak RSS %ld kB\n",
              good, reports, elapsed, cpu, reports / elapsed, reports / cpu, peakRssKb());
  return result == 0 && good == reports ? 0 : 1;
}
