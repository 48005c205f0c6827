#pragma once
// The plug-in object that the host drives: two menu commands with hot keys,
// a handler and an open delegate per file type, and openFile_, the single
// routine through which every load passes.

#include <memory>
#include <string>
#include <vector>

#include "hostapi/PIApplication.h"
#include "hostapi/PICommon.h"

namespace AsiInterface {
class Resolver;
}
namespace FileReaderPlugin {
class ReaderFactory;
}

class FileReadPlugin : public PIApp::PIApplication_v1_24 {
 public:
  // Settings key of the append-by-metadata choice, and the value written on
  // first start. The constant's name is misspelt by contract.
  static const char* const ALWAYS_METADATA_RESOLVER;              // "Always Append By Name and Original ID"
  static const char* const AWLAYS_METADATA_RESOLVER_DEFAULT_VALUE;  // "False"
  static const char* const LAST_DIRECTORY_KEY;                      // "LastFileReaderDirectory"

  // The host's advanced open of one registered pattern. It asks for no
  // options page: createEditor gives null and fillOptions does nothing.
  class AsiExportDelegate : public PICommon::FileImportExportDelegateV2 {
   public:
    explicit AsiExportDelegate(FileReadPlugin* plugin) : plugin_(plugin) {}
    ~AsiExportDelegate() override = default;
    QWidget* createEditor(QWidget* parent) override;
    // Option "Append" (default false) chooses append or import; the outcome
    // is told through the host's notify. Answers the load result.
    int processFileWithOptions(const std::string& path, const PICommon::FileOptions& options) override;
    int fillOptions(QWidget* editor, PICommon::FileOptions& options) override;

   private:
    FileReadPlugin* plugin_;
  };

  FileReadPlugin();
  ~FileReadPlugin() override;

  std::string Name() override;
  int StartUp() override;
  int Callback() override;
  int Close() override;
  // The host's open: always an import; the outcome is shown in a message box.
  int openLocation(const std::string& path, int port, PIData::PINetworkProtocol_t protocol) override;
  bool LoadInORVIDE() override;
  bool LoadInKurvex() override;
  bool LoadInAsiPad() override;
  bool LoadInLogHost() override;
  std::string Description() override;
  std::string Author() override;
  std::string Version() override;
  std::string URL() override;
  std::string ContactInfo() override;
  bool LoadInORVIDE10() override;

  // The two menu commands.
  long onCmdImportFile(void* sender, void* data);
  long onCmdAppendFile(void* sender, void* data);

  // How a load's outcome is told: the message box of openLocation (false:
  // none, for result 0) and the notification of the advanced open (false:
  // none, for 0 and results without a text).
  static bool messageBoxFor(int result, std::string& title, std::string& text);
  static bool notificationFor(int result, PICommon::NotifySeverity& severity, std::string& text);

  // The resolver kept from the last load, or null.
  const AsiInterface::Resolver* resolver() const { return resolver_; }
  const FileReaderPlugin::ReaderFactory* readerFactory() const { return readerFactory_; }

  // Callback functors made by StartUp; OPI_CleanUpPlugin deletes them.
  static std::vector<PICommon::PICallbackFunctor*>& callbackFunctors();

 private:
  // Loads one file; answers the load result (0, 1, 2, -1, -2). Nothing
  // thrown below it goes further: it is told as a fatal error and gives -1.
  int openFile_(const std::string& path, bool append);
  int load_(const std::string& path, bool append);
  // The file dialog of the menu commands; always answers 1.
  int openFileWithDialog_(bool append);
  // openFileWithDialog_ for the menu callbacks, which the host calls directly.
  long guardedDialog_(bool append);
  // Keeps, replaces or creates resolver_ for a load.
  void chooseResolver_(bool append, const std::string& scenarioId);
  void raiseAppendSignal_();

  FileReaderPlugin::ReaderFactory* readerFactory_ = nullptr;
  AsiInterface::Resolver* resolver_ = nullptr;
  // The host holds these by pointer until the plug-in goes away.
  std::vector<std::unique_ptr<AsiExportDelegate>> delegates_;
};
