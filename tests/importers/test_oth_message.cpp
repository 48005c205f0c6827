// Messages: grouping a file into messages, the rules of a message's lines,
// what a bad message reports, and writing messages that read back.

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "importers/oth/OTHMessage.h"
#include "importers/oth/OthNetwork.h"

using namespace OthLib;

namespace {

const char* const kMessage =
    "MSGID/GOLD/CTF-65/OPS/0042/MAR\n"
    "CTC/T0042/NORDKAPP/FRIGATE/FFG/4/NO/X/12345/LAKX/A/F/N/SURFACE/Q/R/S/T/U/V\n"
    "POS/121530Z2/JAN/3530N1/07530W5/A/045T/3NM/2NM/270.0T/12.0K/ALT350/B/C/D/E\n"
    "XPOS/12153045.5Z/JAN2023/353015N7/0753015W1/A/045T/3NM/2NM/270.0T/12.0KTS/ALT350/B/C/D/E\n"
    "CTC/T0043/SKUA\n"
    "POS/121600Z0/JAN/3531N2/07531W6\n"
    "OVLY/121530Z2/HARBOUR/1/2/3/4/5/6/7/8\n"
    "ARC/B/1/2/3530N1/07530W5/10NM/000T/090T/x/LABEL\n"
    "LINE/C/2/0/PATROL/3530N1/07530W5/3600N9/07600W3/END/X\n"
    "TEXT/E/1/3530N1/07530W5/090T/ANCHORAGE\n"
    "CHART/MERC/3530N1/07530W5/250000\n"
    "AREAM/BOX/GC/1/2/3/4\n"
    "RMKS/AIS/257123000\n"
    "RADB/1/2/3/4/5/6/7/8/9\n"
    "ENDAT/UNCLASS/\n";

struct Parsed {
  OTHMessage message;
  int result = 0;
  std::string log;
};

Parsed parse(const std::string& text) {
  Parsed parsed;
  std::ostringstream out;
  OTHParseLog log(out);
  parsed.result = parsed.message.parseMessage(text, 1, &log);
  parsed.log = out.str();
  return parsed;
}

std::string writeTemp(const std::string& name, const std::string& text) {
  const std::string path = testing::TempDir() + name;
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

}  // namespace

TEST(OthMessage, EverySetFindsItsPlace) {
  const Parsed parsed = parse(kMessage);
  ASSERT_EQ(parsed.result, 0) << parsed.log;
  EXPECT_EQ(parsed.log, "");
  const OTHMessage& m = parsed.message;
  EXPECT_EQ(m.header().getSerialNumber(), 42);
  ASSERT_EQ(m.contacts().size(), 2u);
  EXPECT_EQ(m.contacts()[0].positions().size(), 1u);
  EXPECT_EQ(m.contacts()[0].expandedPositions().size(), 1u);
  EXPECT_EQ(m.contacts()[1].getName(), "SKUA");
  EXPECT_EQ(m.contacts()[1].positions()[0].lineNumber(), 6u);
  ASSERT_EQ(m.overlays().size(), 1u);
  EXPECT_EQ(m.overlays()[0].drawables().size(), 4u);
  EXPECT_EQ(m.areas().size(), 1u);
  EXPECT_EQ(m.remarks().size(), 1u);
  EXPECT_EQ(m.radarData().size(), 1u);
  EXPECT_EQ(m.endData().getClassification(), "UNCLASS");
}

TEST(OthMessage, WrittenMessageReadsBackToTheSameRecords) {
  const Parsed first = parse(kMessage);
  const std::string written = first.message.packToString();
  const Parsed second = parse(written);
  ASSERT_EQ(second.result, 0) << second.log;
  EXPECT_EQ(second.message.packToString(), written);
  // Every set of the input is in the written text, except that the second
  // contact's short lines are written out to their full field count.
  EXPECT_NE(written.find("XPOS/12153045.5Z/JAN2023/"), std::string::npos);
  EXPECT_NE(written.find("CTC/T0043/SKUA/////////////////\n"), std::string::npos);

  // Cut to the width of a network link, the message still reads the same.
  const std::string network = formatMessageForNetwork(written);
  std::istringstream lines(network);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), NETWORK_LINE_WIDTH) << line;
  const Parsed third = parse(network);
  ASSERT_EQ(third.result, 0) << third.log;
  EXPECT_EQ(third.message.packToString(), written);
}

TEST(OthMessage, NetworkFormatCutsOnlyWhereItCan) {
  const std::string longLine = std::string(70, 'x') + "/NOTE";
  EXPECT_EQ(formatMessageForNetwork(longLine), longLine + "\n");  // nothing to cut at within 68
  const std::string fields = "A/" + std::string(60, 'b') + "/" + std::string(20, 'c') + "\r\nSHORT";
  EXPECT_EQ(formatMessageForNetwork(fields),
            "A/" + std::string(60, 'b') + "/\n/" + std::string(20, 'c') + "\nSHORT\n");
}

TEST(OthMessage, PositionAndDeleteMessages) {
  Parsed parsed = parse(kMessage);
  const std::string position = parsed.message.createPositionMessage(true, true);
  EXPECT_EQ(position.substr(0, 34), "MSGID/XCTC/CTF-65/OPS/0043/MAR\nCTC");
  EXPECT_EQ(position.substr(position.size() - 6), "ENDAT\n");
  EXPECT_EQ(position.find("OVLY"), std::string::npos);
  const Parsed back = parse(position);
  ASSERT_EQ(back.result, 0) << back.log;
  EXPECT_EQ(back.message.contacts().size(), 2u);

  const std::string deletion = parsed.message.createDeleteMessage(11 * 86400.0 + 15 * 3600.0, 2024, false, false);
  EXPECT_EQ(deletion,
            "MSGID/GOLD/CTF-65/OPS/0044/MAR\n"
            "DEL/NORDKAPP/121500Z9/JAN\n"
            "DEL/SKUA/121500Z9/JAN\n");
  // A delete message has no sets the reader keeps, and says nothing about its DEL lines.
  const Parsed read = parse(deletion + "ENDAT\n");
  EXPECT_EQ(read.result, 0);
  EXPECT_EQ(read.log, "");
  EXPECT_TRUE(read.message.contacts().empty());
}

TEST(OthMessage, BadLinesAreReportedWithTheirLine) {
  // Too short: MSGID with nothing but ENDAT.
  Parsed shortOne = parse("MSGID/GOLD/A/B/0001/JAN\nENDAT\n");
  EXPECT_EQ(shortOne.result, 1);
  EXPECT_NE(shortOne.log.find("at least 4 lines"), std::string::npos);
  // Lines count as lines, blank or not: four of them make a message.
  EXPECT_EQ(parse("MSGID/GOLD/A/B/0001/JAN\n\nCTC/T1/ONE\nENDAT\n").result, 0);

  const Parsed bad = parse(
      "MSGID/GOLD/A/B/0001/JAN\n"
      "POS/121530Z2/JAN/3530N1/07530W5\n"     // before any contact: dropped
      "AMPN/SOMETHING\n"                      // unknown kind: passed over
      "AMPN/AGAIN\n"                          // ... and told once
      "CTC/T1/ONE\n"
      "POSIT/121530Z2/JAN\n"                  // begins like POS but is none
      "ARC/B/1\n"                             // no overlay to belong to
      "ENDAT\n");
  EXPECT_EQ(bad.result, 1);
  EXPECT_TRUE(bad.message.failed());
  EXPECT_NE(bad.log.find("POS set at line 2 has no CTC set"), std::string::npos) << bad.log;
  EXPECT_NE(bad.log.find("Unknown set \"AMPN\" at line 3"), std::string::npos);
  EXPECT_EQ(bad.log.find("line 4"), std::string::npos);
  EXPECT_NE(bad.log.find("Error in processing POS at line 6: POSIT/121530Z2/JAN"), std::string::npos);
  EXPECT_NE(bad.log.find("ARC set at line 7 has no OVLY set"), std::string::npos);
  ASSERT_EQ(bad.message.contacts().size(), 1u);
  EXPECT_TRUE(bad.message.contacts()[0].positions().empty());
}

TEST(OthMessageFile, GroupsMessagesAndLeavesOutTheFailedOnes) {
  const std::string good = "MSGID/GOLD/A/B/0001/JAN\nCTC/T1/ONE\nPOS/121530Z2/JAN/3530N1/07530W5\nENDAT\n";
  const std::string failing = "MSGID/GOLD/A/B/0002/JAN\nCTC/T2/TWO\nPOSX/1\nENDAT\n";
  const std::string path = writeTemp("oth_groups.otg", "HEADER LINE\n\n" + good + failing + "stray\n" + good +
                                                           "MSGID/GOLD/A/B/0003/JAN\nCTC/T3/THREE\n" + "POS/1\nPOS/2\n");
  std::vector<OTHMessage> messages;
  std::ostringstream errors;
  EXPECT_EQ(ParseOTHFile(path, messages, false, errors), 1);
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[1].contacts()[0].positions()[0].lineNumber(), 14u);
  const std::string log = errors.str();
  EXPECT_NE(log.find("Line 1 lies outside any message"), std::string::npos) << log;
  EXPECT_NE(log.find("Error in processing POS at line 9: POSX/1"), std::string::npos);
  EXPECT_NE(log.find("Line 11 lies outside any message"), std::string::npos);
  EXPECT_NE(log.find("Message at line 16 has no ENDAT line"), std::string::npos);

  messages.clear();
  EXPECT_EQ(ParseOTHFile(path, messages, true, errors), 1);
  ASSERT_EQ(messages.size(), 4u);
  EXPECT_TRUE(messages[1].failed());
  EXPECT_EQ(messages[3].contacts()[0].getName(), "THREE");

  EXPECT_EQ(ParseOTHFile(testing::TempDir() + "no_such_file.otg", messages, false, errors), -1);
  std::remove(path.c_str());
}
