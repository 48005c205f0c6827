// docs/asi-language.md has a section for every keyword of the reader's
// keyword table, and for nothing else; each section shows the keyword used.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "pipeline/AsiKeywords.h"

namespace {

std::string lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

// Keyword of each "### `Keyword`" heading -> the text of its section.
std::map<std::string, std::string> sections() {
  std::ifstream in(std::string(ORV_TEST_DATA_DIR) + "/../../docs/asi-language.md");
  std::map<std::string, std::string> found;
  std::string current;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("#", 0) == 0) current.clear();
    if (line.rfind("### `", 0) == 0 && line.size() > 6 && line.back() == '`') {
      current = line.substr(5, line.size() - 6);
      EXPECT_EQ(found.count(current), 0u) << "two sections for " << current;
      found[current];
      continue;
    }
    if (!current.empty()) found[current] += line + "\n";
  }
  return found;
}

TEST(AsiLanguageDoc, EveryKeywordOfTheTableHasASectionAndNoOtherDoes) {
  const std::map<std::string, std::string> documented = sections();
  std::set<std::string> table(FileReaderPlugin::ASI_KEYWORDS,
                              FileReaderPlugin::ASI_KEYWORDS + FileReaderPlugin::ASI_KEYWORD_COUNT);
  std::set<std::string> headings;
  for (const auto& entry : documented) headings.insert(entry.first);
  for (const std::string& keyword : table) EXPECT_EQ(headings.count(keyword), 1u) << "not documented: " << keyword;
  for (const std::string& heading : headings) EXPECT_EQ(table.count(heading), 1u) << "not in the table: " << heading;
}

TEST(AsiLanguageDoc, EverySectionHasArgumentsAndAnExampleOfItsKeyword) {
  for (const auto& [keyword, text] : sections()) {
    const std::size_t open = text.find("```\n");
    ASSERT_NE(open, std::string::npos) << keyword << " has no example";
    const std::size_t close = text.find("```", open + 4);
    ASSERT_NE(close, std::string::npos) << keyword;
    std::istringstream example(text.substr(open + 4, close - open - 4));
    bool used = false;
    for (std::string line; std::getline(example, line);) {
      std::istringstream tokens(line);
      std::string first;
      tokens >> first;
      used = used || lower(first) == lower(keyword);
    }
    EXPECT_TRUE(used) << keyword << ": the example does not use the keyword";
    const bool described = text.find("Arguments:") != std::string::npos || text.find("*Ignored*") != std::string::npos ||
                           text.find("*ignored*") != std::string::npos || text.find("The same as") != std::string::npos;
    EXPECT_TRUE(described) << keyword << ": no arguments given";
  }
}

}  // namespace
