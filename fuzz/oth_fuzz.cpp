// libFuzzer target of the OTH Gold message library. The input is the text
// of one message. Whatever it holds, parsing must not crash, every reader of
// the sets must answer a code, and what the library writes must read back to
// the same text, directly and once cut to the width of a network link.
// Broken invariants trap.

#include <cstdint>
#include <sstream>
#include <string>

#include "importers/oth/OTHMessage.h"
#include "importers/oth/OthNetwork.h"

using namespace OthLib;

namespace {

void check(bool condition) {
  if (!condition) __builtin_trap();
}

std::string writeBack(const std::string& text) {
  std::ostringstream sink;
  OTHParseLog log(sink);
  OTHMessage message;
  message.parseMessage(text, 1, &log);
  return message.packToString();
}

void readReport(const OTHPositionReport& report) {
  double lla[3];
  const int position = report.getPosition(lla);
  check(position >= 0 && position <= 5);
  double seconds = 0, value = 0, major = 0, minor = 0, bearing = 0;
  int year = 0;
  report.getTime(seconds, year);
  report.getCourse(value);
  report.getSpeed(value);
  if (report.getUncertaintyEllipse(major, minor, bearing) == 0) check(major >= 0.0 && minor >= 0.0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  std::ostringstream sink;
  OTHParseLog log(sink);
  OTHMessage message;
  message.parseMessage(text, 1, &log);

  for (const OTHContact& contact : message.contacts()) {
    for (const OTHPosition& report : contact.positions()) readReport(report);
    for (const OTHExpandedPosition& report : contact.expandedPositions()) readReport(report);
  }
  for (const OTHOverlay& overlay : message.overlays())
    for (const auto& drawable : overlay.drawables())
      if (drawable->getType() == OTHOverlayDrawable::DrawableType::LINE) {
        const auto& line = static_cast<const OTHLine&>(*drawable);
        double lat = 0, lon = 0;
        for (size_t i = 0; i < line.pointCount(); ++i) line.getPoint(i, lat, lon);
      }
  unsigned long mmsi = 0;
  for (const OTHRemarks& remark : message.remarks()) remark.getAisMmsi(mmsi);

  // A message too short to be read back (fewer than 4 lines once written)
  // legitimately reads as an empty one.
  const std::string written = message.packToString();
  size_t lines = 0;
  for (char c : written) lines += c == '\n' ? 1 : 0;
  if (lines >= 4) {
    check(writeBack(written) == written);
    check(writeBack(formatMessageForNetwork(written)) == written);
  }
  message.createPositionMessage(true, true);
  message.createDeleteMessage(1000.0, 2024, false, true);
  return 0;
}
