#include "asi/ScenarioFileCommands.h"

#include "core/StringUtils.h"

namespace AsiInterface {

namespace {

// The scenario's own entry in the done-once book.
const uint64_t SCENARIO_ID = 0;

}  // namespace

void ScnOnceFileCommand::executeStage1(const std::vector<std::string>& tokens) {
  if (provider_->checkAndSetDoneOnce(SCENARIO_ID, this, "")) return;
  if (validateNumberOfTokens_(2, tokens.size()) != 0) return;
  fileName_ = tokens[1];
}

void ScnFileListCommand::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(2, tokens.size()) != 0) return;
  fileNames_.assign(tokens.begin() + 1, tokens.end());
}

void MediaFile::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(2, tokens.size()) != 0) return;
  fileName_ = tokens[1];
  const std::string extension = orvCore::getExtension(fileName_);
  std::string suffix;
  if (extension == ".tmd" || extension == ".lst" || extension == ".pst") {
    suffix = "Media";
  } else if (extension == ".toc") {
    suffix = ".toc";
  }
  if (!suffix.empty() && provider_->checkAndSetDoneOnce(SCENARIO_ID, this, suffix)) fileName_.clear();
}

void File::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(2, tokens.size()) != 0) return;
  fileName_ = tokens[1];
}

void SoundFile::executeStage1(const std::vector<std::string>& tokens) {
  if (provider_->checkAndSetDoneOnce(SCENARIO_ID, this, "")) return;
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  fileName_ = tokens[1];
  if (parseTime_(tokens[2], false, start_) != 0) return;
  parseTime_(tokens[3], false, end_);
}

void DEDMap::executeStage1(const std::vector<std::string>&) {
  setMessage(PICommon::PI_NOTIFY_WARN, "The ASI Loader no longer supports the DEDMap command");
}

}  // namespace AsiInterface
