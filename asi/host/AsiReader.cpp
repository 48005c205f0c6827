#include "asi/host/AsiReader.h"

#include <memory>

#include "asi/host/AsiParser.h"
#include "core/FileUtils.h"
#include "core/StringUtils.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIData.h"
#include "hostapi/PIGUI.h"
#include "pipeline/FileReaderEngine.h"
#include "pipeline/FileReaderProgress.h"
#include "pipeline/MessageManager.h"

namespace AsiReader {

namespace {

// The engine's progress through the host's dialog; owns the dialog.
class PlugInProgress : public FileReaderPlugin::NullFileReaderProgress {
 public:
  explicit PlugInProgress(PIGUI::PIProgressDialog* dialog) : dialog_(dialog) {}
  ~PlugInProgress() override { delete dialog_; }
  PlugInProgress(const PlugInProgress&) = delete;
  PlugInProgress& operator=(const PlugInProgress&) = delete;

  void setValue(int value) override { dialog_->setValue(value); }
  void runWhileEvents() override { dialog_->runWhileEvents(); }
  bool isCanceled() override { return dialog_->isCanceled(); }

 private:
  PIGUI::PIProgressDialog* dialog_;
};

}  // namespace

int AsiReader::read(const std::string& path) {
  AsiParser parser(PICommon::getApplicationId());
  parser.setAppend(append_);
  parser.setResolver(resolver_);
  FileReaderPlugin::FileReaderEngine engine(parser);

  auto* dialog = new PIGUI::PIProgressDialog(
      nullptr, "Reading File", "Reading file " + UTILS::fileBaseName(path) + ".  Please wait...", true, 1000);
  PlugInProgress progress(dialog);
  dialog->show();

  FileReaderPlugin::MessageManager messages;
  const int result = engine.execute(path, messages, progress);
  // Whatever the result: what did arrive should be in view.
  if (parser.hasNonStaticPlatforms()) PIData::clockAutoConfigureBeginEnd();
  return result;
}

int AsiReader::canReadFile(const std::string& path) const {
  if (orvCore::getExtension(path) != ".asi") return NOT_THIS_FORMAT;
  return canReadAsiFile(path);
}

int AsiReader::getScenarioIdentifier(const std::string& path, std::string& id) const {
  return readAsiScenarioIdentifier(path, id);
}

void AsiReader::setAppend(bool append, AsiInterface::Resolver* resolver) {
  append_ = append;
  resolver_ = resolver;
}

FileReaderPlugin::FileReader* AsiReader::clone() const { return new AsiReader(*this); }

void AsiReader::getSupportedFileExtensions(std::map<std::string, std::string>& extensions) const {
  extensions["*.asi"] = "ASCII Scenario Input File";
}

}  // namespace AsiReader
