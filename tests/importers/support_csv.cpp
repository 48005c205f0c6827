#include "support_csv.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "document/ConvenienceFuncsUD.h"
#include "importers/csv/CSVFile.h"

std::string CsvLoad::category(const PlatformUD* platform, const std::string& name) const {
  if (platform == nullptr) return "";
  const CategoryManager& manager = scenario->categoryManager();
  for (const auto& series : platform->categoryData()) {
    if (manager.getCategoryNameString(series.first) != name) continue;
    auto at = series.second.find(-1.0);
    if (at != series.second.end()) return manager.getCategoryValueString(series.first, at->second);
  }
  return "";
}

std::vector<std::string> CsvLoad::generic(uint64_t id, const std::string& tag) const {
  std::vector<std::string> values;
  const GenericDataUD* data = scenario->getGenericData(id);
  if (data == nullptr) return values;
  for (const auto& entry : data->items())
    for (const auto& item : entry.second)
      if (tag.empty() || data->getTag(item.second.first) == tag) values.push_back(item.second.second);
  return values;
}

std::vector<std::string> CsvLoad::events() const { return generic(0, ""); }

CsvLoad loadCsv(const std::string& text, int useXYZ) {
  char name[] = "/tmp/orv_csv_XXXXXX";
  const int fd = mkstemp(name);
  EXPECT_GE(fd, 0);
  close(fd);
  const std::string path = std::string(name) + ".csv";
  std::rename(name, path.c_str());
  std::ofstream(path) << text;

  CsvLoad load;
  std::ostringstream issues;
  std::ostream* previous = setErrorStreamUD(&issues);
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  CSVFile file;
  file.setOriginWarningPause(0);
  load.result = file.ParseCSVFile(path, load.scenario.get(), -1, useXYZ);
  load.err = testing::internal::GetCapturedStderr();
  load.out = testing::internal::GetCapturedStdout();
  setErrorStreamUD(previous);
  load.issues = issues.str();
  std::remove(path.c_str());
  return load;
}

std::string scoreFile(const std::string& body, const std::string& header) {
  return "COM,test exercise\nPKL,1,2,3,4,5,6,Source,TID,Lat,Lon\n" + header + body;
}

std::string pmrfFile(const std::string& body, const std::string& header) {
  return "COM,pmrf test\nPKL,1,2,3,4,5,6,VID,Lat,Lon\n" + header + body;
}

std::string scorePos(const std::string& source, int tid, const std::string& clock, double lat, double lon,
                     double feet, double course, double knots, int squawk, const std::string& tail) {
  std::ostringstream line;
  std::string hms = clock;
  for (char& c : hms)
    if (c == ':') c = ',';
  line << "POS,2021,1,15," << hms << "," << source << "," << tid << "," << lat << "," << lon << ",100,200," << feet
       << "," << course << "," << knots << ",16,17,18,19,20,21," << squawk << tail << "\n";
  return line.str();
}

std::string scoreLeg(const std::string& source, int tid, const std::string& callsign, const std::string& vehicle,
                     int iff) {
  std::ostringstream line;
  line << "LEG,2021,1,15,10,0,0," << source << "," << tid << "," << callsign << "," << vehicle << ",x," << iff
       << ",13,14\n";
  return line.str();
}
