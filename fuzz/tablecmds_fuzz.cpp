// Fuzzes the data-table commands: the input is lines of ASI text, run in
// order through the platform and data-table families (clone, stage 1,
// transmit) against the reference host. Nothing may fault, and the host may
// not hold more table rows than there were row lines. Each input is also
// fed, row by row, into the document's own table store.

#include <cstdlib>

#include "CommandFuzzSupport.h"
#include "asi/TableParser.h"
#include "datatable/DataTable.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The display application only: the plot bit is not read.
  const cmdfuzz::Start in = cmdfuzz::start(data, size, false);
  const auto& provider = in.provider;
  const int version = in.control.version;

  AsiReader::CommandList commands;
  AsiReader::addPlatformCommands(provider, version, commands);
  AsiReader::addTableCommands(provider, version, commands);
  const cmdfuzz::CommandTable table = cmdfuzz::commandTable(commands);

  cmdfuzz::QuietMessages messages;
  std::size_t rowLines = 0;
  // The store, with columns of every type, takes the row lines' cells too.
  ::DataTable store(static_cast<uint8_t>(version % 3), 1, "fuzz", 1);
  const UTILS::VariableType_t types[] = {UTILS::VT_FLOAT64, UTILS::VT_INT32, UTILS::VT_STRING, UTILS::VT_UINT8};
  for (int c = 0; c < 4; ++c) {
    int64_t id = 0;
    store.addColumn("c" + std::to_string(c), types[c], id);
  }
  cmdfuzz::runLines(data, size, table, messages,
                    [&](const std::string& keyword, const std::vector<std::string>& tokens) {
                      if (keyword != "datatablerow") return;
                      ++rowLines;
                      if (tokens.size() <= 2) return;
                      DataTableRowT row(static_cast<double>(tokens[2].size()));
                      for (std::size_t i = 3; i < tokens.size(); ++i)
                        if (DataTableCell* cell = AsiInterface::parseDataTableCell(types[i % 4], tokens[i]))
                          row.addCell(static_cast<int64_t>(i % 5), cell);
                      store.addRow(row);
                    });
  provider->didComplete(messages);
  provider->clear();

  std::size_t rows = 0;
  for (const auto& table : in.host.scenario().tables()) rows += table->rowTimes.count();
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
