// Data-table commands through the loaded plug-in: a table reaches the host
// with its first row that can be sent, rows wait for their platform, empty
// cells, special floating-point words and escapes, and every complaint of
// the three commands.
#include "E2eSupport.h"

namespace {

class TableCommands : public e2e::HostRun {};

// Type and unit codes as the dump shows them.
constexpr int UTILS_VT_INT32 = 6;
constexpr int UTILS_UNITS_RPM = 70;

const char* const HEADER =
    "Version 24\nReferenceYear 2024\nCoordSystem LLA\nRefLLA 36.6 -121.9 0\n"
    "PlatformID 1\nPlatformName 1 Ship\n";

TEST_F(TableCommands, RowsWaitForThePlatformAndReachTheHostInOrder) {
  const std::string file = write("tables.asi", std::string(HEADER) +
      "DataTable 1 10 \"Engine\" Rpm FLOAT64 Gear INT32 Note STRING\n"
      "DataTableUnits 10 \"revolutions per minute\" Unknown Unknown\n"
      "DataTableRow 10 5 NULL 2 \"say \\\"hi\\\"\\0xAbye\"\n"
      "DataTableRow 10 6 nan 3 plain\n"
      "DataTableRow 10 7 -Inf NULL NULL\n"
      "PlatformData 1 0 36.6 -121.9 0 0 0 0\nPlatformData 1 10 36.61 -121.9 0 0 0 0\n");
  const e2e::Outcome r = run({"--dump", "dump.json", "--messages", "messages.jsonl", file});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_TRUE(messageTexts().empty());

  const auto dump = json("dump.json");
  ASSERT_EQ(dump["tables"].size(), 1u);
  const auto& table = dump["tables"][0];
  EXPECT_EQ(table["name"], "Engine");
  EXPECT_EQ(table["owner"], dump["objects"][0]["id"]);
  ASSERT_EQ(table["columns"].size(), 3u);
  EXPECT_EQ(table["columns"][0]["name"], "Rpm");
  EXPECT_EQ(table["columns"][1]["type"], UTILS_VT_INT32);
  EXPECT_EQ(table["columns"][0]["unit"], UTILS_UNITS_RPM);
  const auto& rows = table["rows"]["records"];
  ASSERT_EQ(rows.size(), 3u);
  const std::string rpm = std::to_string(table["columns"][0]["id"].get<int>());
  const std::string gear = std::to_string(table["columns"][1]["id"].get<int>());
  const std::string note = std::to_string(table["columns"][2]["id"].get<int>());
  EXPECT_EQ(rows[0]["time"], 5.0);
  EXPECT_FALSE(rows[0]["cells"].contains(rpm));
  EXPECT_EQ(rows[0]["cells"][gear], 2);
  EXPECT_EQ(rows[0]["cells"][note], "say \"hi\"\nbye");
  EXPECT_TRUE(rows[1]["cells"][rpm].is_null());  // NaN is written as null
  EXPECT_EQ(rows[1]["cells"][note], "plain");
  EXPECT_EQ(rows[2]["cells"].size(), 1u);
}

TEST_F(TableCommands, EveryComplaintOfTheThreeCommands) {
  const std::string file = write("bad.asi", std::string(HEADER) +
      "DataTable 1 10 \"T\" A\n"                        // 7
      "DataTable 1 10 \"T\" A INT32 B\n"                // 8
      "DataTable 9 10 \"T\" A INT32\n"                  // 9
      "DataTable x 10 \"T\" A INT32\n"                  // 10
      "DataTable 1 10 \"T\" A INT32 B FOO\n"            // 11
      "DataTable 1 11 \"T\" A INT32\n"                  // 12
      "DataTable 1 10 \"U\" A INT32\n"                  // 13
      "DataTable 1 12 \"V\" A BLOB\n"                   // 14
      "DataTableUnits 10 meters\n"                      // 15
      "DataTableUnits 99 meters meters\n"               // 16
      "DataTableRow 10 1 NaN 4\n"                       // 17
      "DataTableRow 10 1 4.5 x\n"                       // 18
      "DataTableRow 10 1 4\n"                           // 19
      "DataTableRow 10\n"                               // 20
      "DataTableRow 77 1 1 1\n"                         // 21
      "DataTable 1 13 \"W\" F FLOAT32\n"                 // 22
      "DataTableRow 13 1 abc\n"                          // 23
      "DataTableRow 13 2 1e39\n"                         // 24: beyond a FLOAT32
      "PlatformData 1 0 36.6 -121.9 0 0 0 0\nPlatformData 1 10 36.61 -121.9 0 0 0 0\n");
  const e2e::Outcome r = run({"--dump", "dump.json", "--messages", "messages.jsonl", file});
  EXPECT_EQ(r.status, 2) << r.err;
  const std::vector<std::string> expected = {
      "Line 7 DataTable: Need at least 5 arguments\n",
      "Line 8 DataTable: Need an even number of arguments\n",
      "Line 9 DataTable: Missing host\n",
      "Line 10 DataTable: Expecting positive number for Host ID\n",
      "Line 11 DataTable: Column type \"FOO\" not recognized, changing to STRING\n",
      "Line 12 DataTable: Duplicate table name for the same host\n",
      "Line 13 DataTable: DataTable ID already used\n",
      "Line 14 DataTable: Column type of BLOB not support via an ASI file.\n",
      "Line 15 DataTableUnits: Wrong number of units\n",
      "Line 16 DataTableUnits: Could not find specified table\n",
      "Line 17 DataTableRow: Invalid int32 specified for column 1\n",
      "Line 18 DataTableRow: Invalid int32 specified for column 1\n",
      "Line 19 DataTableRow: The command DataTableRow specifies the wrong number of values\n",
      "Line 20 DataTableRow: Need at least 3 arguments\n",
      "Line 21 DataTableRow: Could not find specified table\n",
      "Line 23 DataTableRow: Invalid double specified for column 1\n",
      "Line 24 DataTableRow: Invalid double specified for column 1\n"};
  std::vector<std::string> got = messageTexts();
  ASSERT_GE(got.size(), expected.size());
  got.resize(expected.size());
  EXPECT_EQ(got, expected);
  // The table with the warned column type is declared all the same; the
  // rows that drew a complaint are not sent, so the host has no table.
  EXPECT_TRUE(json("dump.json")["tables"].empty());
}


// A table the host renamed on modification is looked up by its first name;
// when the host's table has a column beyond the file's, the names they share
// are still compared, the note names the table that was looked up, and the
// file's table is made as a new one.
TEST_F(TableCommands, AnAppendedTableThatDoesNotMatchIsMadeAnew) {
  const std::string first = write("first.asi", std::string(HEADER) +
      "PlatformData 1 0 36.6 -121.9 0 0 0 0\nPlatformData 1 10 36.61 -121.9 0 0 0 0\n"
      "DataTable 1 10 Engine A INT32 B INT32 C INT32\nDataTableRow 10 1 1 2 3\n");
  const std::string second = write("second.asi", std::string(HEADER) +
      "PlatformData 1 20 36.6 -121.9 0 0 0 0\n"
      "DataTable 1 10 Engine_Modified_2 A INT32 B INT32\nDataTableRow 10 21 4 5\n"
      // A new platform, so that the appended file has an independent entity of its own.
      "PlatformID 2\nPlatformName 2 Tug\nPlatformData 2 20 36.6 -121.8 0 0 0 0\n");
  const e2e::Outcome r = run({"--dump", "dump.json", "--messages", "messages.jsonl", "--trace", "trace.jsonl",
                              first, second});
  EXPECT_EQ(r.status, 0) << r.err;
  const auto messages = jsonLines("messages.jsonl");
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0]["severity"], 5);
  EXPECT_EQ(messages[0]["text"], "Line 9 DataTableRow: Appending table \"Engine\" does not match existing table.\n\n");

  std::vector<std::string> names;
  for (const auto& line : jsonLines("trace.jsonl"))
    if (line.value("op", "") == "getDataTableColumnName") names.push_back(line["out"]);
  EXPECT_EQ(names, (std::vector<std::string>{"A", "B"}));
  const auto tables = json("dump.json")["tables"];
  ASSERT_EQ(tables.size(), 2u);
  EXPECT_EQ(tables[1]["name"], "Engine_Modified_2");
  EXPECT_EQ(tables[1]["rows"]["count"], 1);
}

}  // namespace
