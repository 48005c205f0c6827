// docs/reference-host.md names every client operation that --refuse takes;
// the list in the code and the list in the document are the same.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "host/OperationNames.h"

namespace {

std::string document(const std::string& name) {
  std::ifstream in(std::string(ORV_TEST_DATA_DIR) + "/../../docs/" + name);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

TEST(ReferenceHostDoc, TheRefusalListNamesEveryClientOperation) {
  const std::string text = document("reference-host.md");
  const std::size_t from = text.find("Names are the client operations");
  const std::size_t to = text.find("## Behaviour");
  ASSERT_NE(from, std::string::npos);
  ASSERT_NE(to, std::string::npos);
  const std::string list = text.substr(from, to - from);
  std::set<std::string> documented;
  const std::regex name("`([^`]+)`");
  for (auto it = std::sregex_iterator(list.begin(), list.end(), name); it != std::sregex_iterator(); ++it)
    documented.insert((*it)[1]);
  const std::vector<std::string>& names = RefHost::clientOperationNames();
  EXPECT_EQ(documented, std::set<std::string>(names.begin(), names.end()));
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
}

}  // namespace
