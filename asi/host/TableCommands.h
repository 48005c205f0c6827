#pragma once
// The host-bound data-table commands. The declaration and the units are
// complete in stage 1; the host learns of a table with its first row that
// can be sent, once the entity that holds it exists there.

#include "asi/TableParser.h"
#include "asi/host/ScnStageOneOnly.h"

namespace AsiReader {

using DataTable = ScnStageOneOnly<AsiInterface::DataTable>;
using DataTableUnits = ScnStageOneOnly<AsiInterface::DataTableUnits>;

class DataTableRow : public AsiInterface::DataTableRow {
 public:
  using AsiInterface::DataTableRow::DataTableRow;
  FileReaderPlugin::CommandParser* clone() const override { return new DataTableRow(*this); }
  void transmit() override;

 private:
  // Makes the table in the host (or finds it there); false after an error.
  bool makeTable_(AsiInterface::Table& table, AsiInterface::Entity& host);
  // The host's table of that name when its columns begin with the file's
  // (the file's extra columns are added to it), else 0.
  int64_t findUpdateTable_(AsiInterface::Table& table, uint64_t hostUniqueId);
};

}  // namespace AsiReader
