// Fuzzes the data-table commands: the input is lines of ASI text, run in
// order through the platform and data-table families (clone, stage 1,
// transmit) against the reference host. Nothing may fault, and the host may
// not hold more table rows than there were row lines. Each input is also
// fed, row by row, into the document's own table store.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "asi/ScenarioEntity.h"
#include "asi/TableParser.h"
#include "asi/host/CommandFamilies.h"
#include "datatable/DataTable.h"
#include "asi/host/ScenarioProvider.h"
#include "core/StringUtils.h"
#include "host/ReferenceHost.h"
#include "hostapi/PIData.h"
#include "pipeline/AsiLine.h"
#include "pipeline/CommandParser.h"
#include "pipeline/MessageManager.h"

namespace {

class QuietMessages : public FileReaderPlugin::MessageManager {
 protected:
  void writeMessage_(PICommon::NotifySeverity, const std::string&, unsigned long) override {}
};

RefHost::ReferenceHost& host() {
  static RefHost::ReferenceHost* instance = [] {
    RefHost::HostConfig config;
    config.progressBar = false;
    config.echoConsole = false;
    auto* h = new RefHost::ReferenceHost(config);
    h->install();
    return h;
  }();
  return *instance;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  RefHost::ReferenceHost& h = host();
  PIData::deleteScenario();
  PIData::initializeScenario("fuzz", 0, PIData::PI_PROTOCOL_NONE, false);

  // The first byte picks the version and whether angles are degrees.
  const int version = size > 0 ? 2 + data[0] % 23 : 24;
  auto provider = std::make_shared<AsiReader::ScenarioProvider>(version, PICommon::PI_HOST_ORVIDE);
  auto* scenario = new AsiInterface::ScenarioEntity();
  scenario->setUniqueId(0);
  provider->addEntity(0, scenario);
  PIData::PICoordReferenceFrame frame;
  provider->referenceFrame(frame);
  frame.latitude = 0.5;
  frame.longitude = -1.2;
  provider->setReferenceFrame(frame);
  provider->setCoordSystem(PIData::PI_COORD_LLA);
  provider->setIsDegrees(size > 0 && (data[0] & 0x80) != 0);

  std::map<std::string, std::unique_ptr<FileReaderPlugin::CommandParser>> table;
  {
    AsiReader::CommandList commands;
    AsiReader::addPlatformCommands(provider, version, commands);
    AsiReader::addTableCommands(provider, version, commands);
    for (auto* c : commands) table[orvCore::lowerCase(c->name())].reset(c);
  }

  QuietMessages messages;
  std::istringstream in(size > 0 ? std::string(reinterpret_cast<const char*>(data) + 1, size - 1) : std::string());
  std::string line;
  std::vector<std::string> tokens;
  unsigned long number = 0;
  std::size_t rowLines = 0;
  // The store, with columns of every type, takes the row lines' cells too.
  ::DataTable store(static_cast<uint8_t>(version % 3), 1, "fuzz", 1);
  const UTILS::VariableType_t types[] = {UTILS::VT_FLOAT64, UTILS::VT_INT32, UTILS::VT_STRING, UTILS::VT_UINT8};
  for (int c = 0; c < 4; ++c) {
    int64_t id = 0;
    store.addColumn("c" + std::to_string(c), types[c], id);
  }
  while (std::getline(in, line)) {
    ++number;
    FileReaderPlugin::stripLineEnd(line);
    FileReaderPlugin::tokenizeAsiLine(line, tokens);
    if (tokens.empty()) continue;
    auto found = table.find(orvCore::lowerCase(tokens[0]));
    if (found == table.end()) continue;
    if (found->first == "datatablerow") {
      ++rowLines;
      if (tokens.size() > 2) {
        DataTableRowT row(static_cast<double>(tokens[2].size()));
        for (std::size_t i = 3; i < tokens.size(); ++i)
          if (DataTableCell* cell = AsiInterface::parseDataTableCell(types[i % 4], tokens[i]))
            row.addCell(static_cast<int64_t>(i % 5), cell);
        store.addRow(row);
      }
    }
    std::unique_ptr<FileReaderPlugin::CommandParser> command(found->second->clone());
    command->setLineNumber(number);
    command->setMessageManager(&messages);
    command->executeStage1(tokens);
    command->transmit();
  }
  provider->didComplete(messages);
  provider->clear();

  std::size_t rows = 0;
  for (const auto& table : h.scenario().tables()) rows += table->rowTimes.count();
  if (rows > rowLines) std::abort();
  // The store reads back every time it holds, once, in ascending order.
  struct Ascending : PerDataTableRowFunctor {
    double last = -1e300;
    std::size_t count = 0;
    bool operator()(::DataTable&, const DataTableRowT& row) override {
      if (!(row.time() > last)) std::abort();
      last = row.time();
      ++count;
      return true;
    }
  } ascending;
  store.forEachRow(-1e300, 1e300, ascending);
  if (ascending.count != store.getNumRows()) std::abort();
  return 0;
}
