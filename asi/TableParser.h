#pragma once
// Stage 1 of the data-table commands: "DataTable" declares a named, typed
// table on an entity, "DataTableUnits" gives its units, "DataTableRow" a
// time-tagged row. The declaration is complete in stage 1; rows are sent by
// the host-bound layer.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "asi/ProviderParser.h"
#include "hostapi/DataTableRow.h"

namespace AsiInterface {

class DataTable : public ProviderParser {
 public:
  explicit DataTable(std::shared_ptr<ScenarioProvider> provider) : ProviderParser("DataTable", std::move(provider)) {}
  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}
};

class DataTableUnits : public ProviderParser {
 public:
  explicit DataTableUnits(std::shared_ptr<ScenarioProvider> provider)
      : ProviderParser("DataTableUnits", std::move(provider)) {}
  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}
};

class DataTableRow : public ProviderParser {
 public:
  explicit DataTableRow(std::shared_ptr<ScenarioProvider> provider)
      : ProviderParser("DataTableRow", std::move(provider)) {}
  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t tableId_ = 0;
  double time_ = 0.0;
  // Cells under the file's column index (0 for the first column).
  DataTableRowT row_;
};

// A cell of a typed column from its text; null when the text is no value
// of the type. "NaN", "Infinity", "Inf", "-Infinity" and "-Inf" (case
// ignored) are floating-point values; string cells lose their escapes.
DataTableCell* parseDataTableCell(UTILS::VariableType_t type, const std::string& text);

}  // namespace AsiInterface
