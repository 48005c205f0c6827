// The document's ASI loader: order rules, a file written by the writer read
// back whole, and the fatal and non-fatal reports.
#include <gtest/gtest.h>

#include <sstream>

#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"

namespace {

class Loader : public ::testing::Test {
 protected:
  void SetUp() override { previous = setErrorStreamUD(&errors); }
  void TearDown() override { setErrorStreamUD(previous); }
  int load(ScenarioUD& scenario, const std::string& text) {
    std::istringstream in(text);
    return scenario.load(in);
  }
  std::ostringstream errors;
  std::ostream* previous = nullptr;
};

TEST_F(Loader, VersionMustComeFirst) {
  ScenarioUD scenario;
  EXPECT_EQ(load(scenario, "PlatformID 1\n"), UD_FATAL);
  EXPECT_NE(errors.str().find("Encountered token PlatformID before required Keyword Version.  Line#: 1"),
            std::string::npos);
}

TEST_F(Loader, UnknownHostIsNotFatalAndQuotedHashStays) {
  ScenarioUD scenario;
  EXPECT_EQ(load(scenario, "version 3\nRefLLA 30 -120 0\nCoordSystem LLA\nBeamID 9 2\n"
                           "PlatformID 1\nPlatformName 1 \"A#B\" # comment\n"),
            0);
  EXPECT_NE(errors.str().find("Error (non-fatal) in file, see line #4"), std::string::npos);
  ASSERT_NE(scenario.findPlatform(1), nullptr);
  EXPECT_EQ(scenario.findPlatform(1)->Desc(), "A#B");
}

TEST_F(Loader, WrittenScenarioReadsBack) {
  ScenarioUD original;
  original.setLatLonAlt(0.5, -2.0, 0);
  original.setReferenceYear(2021);
  auto* p = new PlatformUD(&original, std::make_unique<PlatformHeaderUD>());
  p->SetUniqueID(4);
  p->SetDesc("ship");
  p->AddToScenario(&original);
  const double a[3] = {0.5, -2.0, 10}, b[3] = {0.51, -2.0, 20};
  p->AddState(10, a, nullptr, nullptr);
  p->AddState(20, b, nullptr, nullptr);
  original.addCategoryData(4, -1, "Platform Type", "Aircraft");
  DataTable* table = original.AddDataTable(4, "T");
  int64_t column = 0;
  table->addColumn("v", UTILS::VT_FLOAT64, column);
  DataTableRowT row(15);
  row.addCell(column, new DataTableCellTyped<double>(2.5));
  table->addRow(row);
  std::ostringstream text;
  ASSERT_EQ(original.save(text, orvCore::LLA), 0);

  ScenarioUD copy;
  ASSERT_EQ(load(copy, text.str()), 0) << errors.str() << text.str();
  EXPECT_EQ(copy.referenceYear(), 2021);
  const PlatformUD* back = copy.findPlatform(4);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->Desc(), "ship");
  ASSERT_EQ(back->Motion()->Size(), 2u);
  EXPECT_NEAR(back->Motion()->states().at(20).lat, 0.51, 1e-12);
  EXPECT_EQ(back->categoryData().size(), 1u);
  ASSERT_EQ(copy.dataTables().getNumberOfDataTables(), 1u);
  EXPECT_EQ(copy.dataTables().tables().begin()->second->getNumRows(), 1u);
}

}  // namespace
