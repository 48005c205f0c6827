#include "importers/SatelliteLoad.h"

#include <filesystem>

#include "document/ErrorCodesUD.h"
#include "importers/ImporterSupport.h"
#include "importers/Kepler2ASI.h"
#include "importers/TLE2ASI.h"

namespace Importers {

namespace {

// `kind` names the format in the texts the user sees: "TLE", "Kepler".
ImporterEntry converterEntry(const std::string& extension, const std::string& kind, ImporterEntry::Load load) {
  ImporterEntry entry = readerEntry({extension}, kind, load);
  entry.issuesHeading = "Issues detected during conversion of " + kind + " to ASI:\n";
  // The loads answer UD_FATAL for a failed conversion themselves; the
  // converted text is then judged as ASI, where only a fatal code fails.
  entry.load = std::move(load);
  return entry;
}

// A large element file takes a while to convert: the conversion fills the
// first half of the file's progress, the load of its text the second.
class HalfProgress : public ScenarioUD::PercentCallback {
 public:
  HalfProgress(ScenarioUD::PercentCallback* whole, int from) : whole_(whole), from_(from) {}
  bool updateProgress(int percent) override {
    return whole_ != nullptr && whole_->updateProgress(percent < 0 ? percent : from_ + percent / 2);
  }

 private:
  ScenarioUD::PercentCallback* whole_;
  int from_;
};

}  // namespace

int loadTleFile(const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress) {
  TLE2ASI::TleSettings settings;
  settings.inputFile = path;
  // Beside the input, named by its last path component with ".asi" added.
  const std::filesystem::path input(path);
  settings.outputFile = (input.parent_path() / (input.filename().string() + ".asi")).string();
  // The ASI text does not refer to GOG files, so the loader asks for none.
  settings.writeGog = false;
  HalfProgress converting(progress, 0), loading(progress, 50);
  const int converted = TLE2ASI::convert(settings, progress ? &converting : nullptr);
  if (converted == UD_USER_CANCEL) return UD_USER_CANCEL;
  // Any other failure of the conversion is fatal, whatever its number.
  if (converted != 0) return UD_FATAL;
  return scenario.load(settings.outputFile, nullptr, progress ? &loading : nullptr);
}

int loadKeplerFile(const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress) {
  std::string output;
  if (KEPLER2ASI::convert(path, 0.0, &output) != 0) return UD_FATAL;
  return scenario.load(output, nullptr, progress);
}

ImporterEntry tleEntry() { return converterEntry(".tle", "TLE", loadTleFile); }

ImporterEntry keplerEntry() { return converterEntry(".kp", "Kepler", loadKeplerFile); }

}  // namespace Importers
