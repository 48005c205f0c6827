#include "plugin/FileReadPlugin.h"

#include <map>

#include "asi/LliResolver.h"
#include "asi/MetadataResolver.h"
#include "asi/host/AsiReader.h"
#include "core/Notify.h"
#include "core/ValidNumber.h"
#include "hostapi/PIData.h"
#include "hostapi/PIGUI.h"
#include "hostapi/PIKurvex.h"
#include "hostapi/PIServices.h"
#include "hostapi/PUOptionsProcessor.h"
#include "pipeline/ReaderFactory.h"
#include "plugin/FilePatterns.h"
#include "plugin/NotifyFilterHandler.h"

#ifndef ORV_PLUGIN_VERSION
#define ORV_PLUGIN_VERSION "0.0.0"
#endif
// The README as installed with the plug-in (cmake --install).
#ifndef ORV_PLUGIN_DOC_URL
#define ORV_PLUGIN_DOC_URL "file:///usr/local/share/doc/FileReaderPlugin/README.md"
#endif

const char* const FileReadPlugin::ALWAYS_METADATA_RESOLVER = "Always Append By Name and Original ID";
const char* const FileReadPlugin::AWLAYS_METADATA_RESOLVER_DEFAULT_VALUE = "False";
const char* const FileReadPlugin::LAST_DIRECTORY_KEY = "LastFileReaderDirectory";

namespace {

const char IMPORT_ACTION[] = "Show ASI Import";
const char APPEND_ACTION[] = "Show ASI Append";
const char ACTION_GROUP[] = "File Reader";
const char CHECK_CONSOLE[] = "Check console for messages.";

// Installs the filter over the error handler for one load and puts the old
// handler back on every way out.
class NotifyFilterScope {
 public:
  NotifyFilterScope() : previous_(orvNotify::notifyHandler(orvNotify::ERROR_LEVEL)) {
    orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL,
                                std::make_shared<FileReaderPlugin::NotifyFilterHandler>(previous_));
  }
  ~NotifyFilterScope() { orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, previous_); }
  NotifyFilterScope(const NotifyFilterScope&) = delete;
  NotifyFilterScope& operator=(const NotifyFilterScope&) = delete;

 private:
  std::shared_ptr<orvNotify::NotifyHandler> previous_;
};

// Paths of the dialog's answer; runs of ";" are skipped.
std::vector<std::string> splitPaths(const std::string& text) {
  std::vector<std::string> paths;
  std::string::size_type start = 0;
  while (start <= text.size()) {
    std::string::size_type end = text.find(';', start);
    if (end == std::string::npos) end = text.size();
    if (end > start) paths.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return paths;
}

}  // namespace

std::vector<PICommon::PICallbackFunctor*>& FileReadPlugin::callbackFunctors() {
  static std::vector<PICommon::PICallbackFunctor*> functors;
  return functors;
}

FileReadPlugin::FileReadPlugin() = default;

FileReadPlugin::~FileReadPlugin() { Close(); }

std::string FileReadPlugin::Name() { return "File_Reader_Plugin"; }

int FileReadPlugin::Callback() { return 0; }

bool FileReadPlugin::LoadInORVIDE() { return true; }
bool FileReadPlugin::LoadInKurvex() { return true; }
bool FileReadPlugin::LoadInAsiPad() { return false; }
bool FileReadPlugin::LoadInLogHost() { return false; }
bool FileReadPlugin::LoadInORVIDE10() { return true; }

std::string FileReadPlugin::Description() { return "ORVIDE/Kurvex Plug-in for reading the ASI format."; }
std::string FileReadPlugin::Author() { return "FileReaderPlugin developers"; }
std::string FileReadPlugin::Version() { return std::string(ORV_PLUGIN_VERSION) + " " + __DATE__; }
std::string FileReadPlugin::URL() { return ORV_PLUGIN_DOC_URL; }
std::string FileReadPlugin::ContactInfo() { return "Report problems with the console messages of the load attached."; }

int FileReadPlugin::StartUp() {
  if (!readerFactory_)
    readerFactory_ = new FileReaderPlugin::ReaderFactory(std::make_shared<AsiReader::AsiReader>());

  const struct {
    const char* action;
    long (FileReadPlugin::*method)(void*, void*);
    const char* key;
  } commands[] = {{IMPORT_ACTION, &FileReadPlugin::onCmdImportFile, "Ctrl+Shift+I"},
                  {APPEND_ACTION, &FileReadPlugin::onCmdAppendFile, "Ctrl+Shift+A"}};
  for (const auto& command : commands) {
    auto* functor = new PICommon::PIMemberCallback<FileReadPlugin>(this, command.method);
    callbackFunctors().push_back(functor);
    PICommon::createAction(command.action, ACTION_GROUP, functor);
    PICommon::initializeHotKey(command.action, PICommon::parseAccelerator(command.key));
  }

  std::map<std::string, std::string> extensions;
  readerFactory_->getSupportedFileExtensions(extensions);
  for (const auto& entry : extensions) {
    PICommon::registerFileHandler(entry.first, entry.second, 3);
    delegates_.push_back(std::make_unique<AsiExportDelegate>(this));
    PICommon::registerFileOpenAdvancedGui(entry.first, entry.second, delegates_.back().get(), 2);
  }

  if (PIGUI::PIRegistry::getValue(ALWAYS_METADATA_RESOLVER).empty())
    PIGUI::PIRegistry::setValue(ALWAYS_METADATA_RESOLVER, AWLAYS_METADATA_RESOLVER_DEFAULT_VALUE);
  return 0;
}

int FileReadPlugin::Close() {
  delete readerFactory_;
  readerFactory_ = nullptr;
  delete resolver_;
  resolver_ = nullptr;
  return 0;
}

bool FileReadPlugin::messageBoxFor(int result, std::string& title, std::string& text) {
  title = "File Import Error";
  text = CHECK_CONSOLE;
  switch (result) {
    case 0: return false;
    case 1:
      title = "File Import Canceled";
      text = "File loading canceled by user.";
      break;
    case 2:
      title = "File Loaded With Errors";
      text = "File was loaded but errors were detected.  Check console for messages.";
      break;
    case -1: text = std::string("Fatal error encountered when loading file. ") + CHECK_CONSOLE; break;
    case -2: text = std::string("Stopped after encountering too many errors. ") + CHECK_CONSOLE; break;
    default: break;
  }
  return true;
}

bool FileReadPlugin::notificationFor(int result, PICommon::NotifySeverity& severity, std::string& text) {
  severity = PICommon::PI_NOTIFY_ERROR;
  switch (result) {
    case 1:
      severity = PICommon::PI_NOTIFY_WARN;
      text = "File loading canceled by user.\n";
      return true;
    case 2: text = "File was loaded but errors were detected.  Check console for messages.\n"; return true;
    case -1: text = "Failed to load file due to errors.  Check console for messages.\n"; return true;
    case -2: text = "Stopped after encountering too many errors.  Check console for messages.\n"; return true;
    default: return false;
  }
}

int FileReadPlugin::openLocation(const std::string& path, int, PIData::PINetworkProtocol_t) {
  const int result = openFile_(path, false);
  std::string title, text;
  if (messageBoxFor(result, title, text)) PICommon::debugMsgBox(title, text, nullptr);
  return result;
}

long FileReadPlugin::onCmdImportFile(void*, void*) { return openFileWithDialog_(false); }

long FileReadPlugin::onCmdAppendFile(void*, void*) { return openFileWithDialog_(true); }

int FileReadPlugin::openFileWithDialog_(bool append) {
  const std::string answer =
      PICommon::showFileLoadDialog(append ? "Append Files" : "Import Files", "", LAST_DIRECTORY_KEY,
                                   orvCore::ORVIDE_ASCII_FILE_PATTERNS, true, nullptr, "SETTINGS");
  const std::vector<std::string> paths = splitPaths(answer);
  if (paths.empty()) return 1;

  // Several files imported together make one new scenario: the old one goes
  // once, and every file is appended to what the files before it built.
  bool appendEach = append;
  if (!append && paths.size() > 1) {
    PIData::deleteScenario();
    appendEach = true;
  }
  // Outcomes reach the console only.
  for (const std::string& path : paths) openFile_(path, appendEach);
  return 1;
}

void FileReadPlugin::chooseResolver_(bool append, const std::string& scenarioId) {
  const bool byMetadata = orvCore::stringIsTrueToken(PIGUI::PIRegistry::getValue(ALWAYS_METADATA_RESOLVER));
  AsiInterface::Resolver* next = nullptr;
  if (byMetadata) {
    // Consecutive appends by metadata share one resolver; an import starts afresh.
    if (append && dynamic_cast<AsiInterface::MetadataResolver*>(resolver_)) return;
    next = new AsiInterface::MetadataResolver;
  } else if (!scenarioId.empty()) {
    // Successive appends of one identified scenario keep their ids.
    auto* lli = dynamic_cast<AsiInterface::LliResolver*>(resolver_);
    if (lli && append && lli->getScenarioIdentifier() == scenarioId) return;
    next = new AsiInterface::LliResolver(scenarioId);
  } else if (append) {
    next = new AsiInterface::MetadataResolver;
  } else {
    next = new AsiInterface::LliResolver("");
  }
  delete resolver_;
  resolver_ = next;
}

int FileReadPlugin::openFile_(const std::string& path, bool append) {
  NotifyFilterScope filter;
  if (!readerFactory_) return -1;

  std::shared_ptr<FileReaderPlugin::FileReader> reader = readerFactory_->createReader(path);
  if (!reader) return -1;

  std::string scenarioId;
  const int idResult = reader->getScenarioIdentifier(path, scenarioId);
  if (idResult != 0) return idResult;

  chooseResolver_(append, scenarioId);
  reader->setAppend(append, resolver_);
  const int result = reader->read(path);

  // The plot application looks at the end of the data, the display at its start.
  if (PIKurvex::runningInKurvex() || PIKurvex::runningInKurvex10())
    PIData::clockSetTime(PIData::clockGetEnd(), 0.0);
  else
    PIData::clockSetTime(PIData::clockGetBegin(), 0.0);

  if (result == 0 && append) raiseAppendSignal_();
  return result;
}

void FileReadPlugin::raiseAppendSignal_() {
  PluginClient::Interfaces::SignalClient client;
  client.bind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME);
  if (PluginClient::Interfaces::SignalInterface* signals = client.getInterface())
    signals->raiseSignal(PluginClient::Interfaces::APPEND_DATA_SIGNAL);
  client.unbind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME);
}

QWidget* FileReadPlugin::AsiExportDelegate::createEditor(QWidget*) { return nullptr; }

int FileReadPlugin::AsiExportDelegate::fillOptions(QWidget*, PICommon::FileOptions&) { return 0; }

int FileReadPlugin::AsiExportDelegate::processFileWithOptions(const std::string& path,
                                                              const PICommon::FileOptions& options) {
  const bool append = PUOptionsProcessor::getBoolean(options, PICommon::FileImportExportDelegate::APPEND, false);
  const int result = plugin_->openFile_(path, append);
  PICommon::NotifySeverity severity;
  std::string text;
  if (notificationFor(result, severity, text)) PICommon::notify(text, severity, "");
  return result;
}
