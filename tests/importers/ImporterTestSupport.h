#pragma once
// Helpers of the importer tests: files written into the test's temporary
// directory, the document's error stream gathered, and what a document
// holds read back as text.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"
#include "importers/ImporterSupport.h"

namespace importertest {

inline std::string writeFile(const std::string& name, const std::string& text) {
  const std::string path = testing::TempDir() + name;
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

// Gathers what the document's error stream receives while it lives.
class ErrorCapture {
 public:
  ErrorCapture() : previous_(setErrorStreamUD(&text_)) {}
  ~ErrorCapture() { setErrorStreamUD(previous_); }
  std::string str() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::ostream* previous_;
};

// Gathers what the GPX, PET and WAM readers print on the console while it
// lives: their faults (standard error) and their progress lines (standard
// output), apart.
class ConsoleCapture {
 public:
  ConsoleCapture()
      : previousFault_(Importers::setFaultStream(&faults_)), previousInfo_(Importers::setInfoStream(&info_)) {}
  ~ConsoleCapture() {
    Importers::setFaultStream(previousFault_);
    Importers::setInfoStream(previousInfo_);
  }
  std::string faults() const { return faults_.str(); }
  std::string info() const { return info_.str(); }

 private:
  std::ostringstream faults_, info_;
  std::ostream* previousFault_;
  std::ostream* previousInfo_;
};

// Every category entry of an object: name -> (time -> value).
inline std::map<std::string, std::map<double, std::string>> categories(const ScenarioUD& scenario,
                                                                        const ObjectUD& object) {
  std::map<std::string, std::map<double, std::string>> out;
  const CategoryManager& manager = scenario.categoryManager();
  for (const auto& category : object.categoryData()) {
    auto& series = out[manager.getCategoryNameString(category.first)];
    for (const auto& entry : category.second)
      series[entry.first] = manager.getCategoryValueString(category.first, entry.second);
  }
  return out;
}

// The value of a static (time -1) category, "" when there is none.
inline std::string staticCategory(const ScenarioUD& scenario, const ObjectUD& object, const std::string& name) {
  const auto all = categories(scenario, object);
  const auto it = all.find(name);
  if (it == all.end()) return "";
  const auto entry = it->second.find(-1.0);
  return entry == it->second.end() ? "" : entry->second;
}

}  // namespace importertest
