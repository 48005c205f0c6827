// libFuzzer target of the PET reader: any bytes as a .pet file. No crash;
// states and table rows are finite and every table row belongs to a state.

#include "ImporterFuzzSupport.h"
#include "datatable/DataTable.h"
#include "importers/PETFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string path = fuzzsupport::inputFile(".pet");
  fuzzsupport::writeInput(path, data, size);
  fuzzsupport::Quiet quiet;
  ScenarioUD scenario;
  PETFile reader;
  const int result = reader.ParsePETFile(path, &scenario, 0.0, false, true);
  // A platform is made before its first row is checked: after a fault the
  // last one may have no state.
  fuzzsupport::checkPlatforms(scenario, result == 0);
  for (const auto& entry : scenario.platforms()) {
    DataTable* table = nullptr;
    if (scenario.dataTables().getTable(entry.first, "Extra", table) != 0 || table == nullptr) continue;
    fuzzsupport::check(table->getNumRows() <= entry.second->Motion()->states().size() + 1);
  }
  return 0;
}
