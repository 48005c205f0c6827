#include "plugin/PluginEntry.h"

#include <cstdarg>
#include <map>
#include <string>

#include "hostapi/PIBase.h"
#include "hostapi/PIGUI.h"
#include "plugin/FailureReport.h"
#include "plugin/FileReadPlugin.h"

namespace {

using App = PIApp::PIApplication_v1_24;

// One entry of the message map: the forwarder, the object it calls, and the
// storage of the last text answer, which the host reads after the call.
struct MessageEntry {
  intptr_t (*forward)(MessageEntry& entry, va_list* args) = nullptr;
  App* plugin = nullptr;
  std::string text;
};

FileReadPlugin* thePlugin = nullptr;
std::map<int, MessageEntry> messageMap;

intptr_t textAnswer(MessageEntry& entry, std::string text) {
  entry.text = std::move(text);
  return reinterpret_cast<intptr_t>(entry.text.c_str());
}

std::string textArg(va_list* args) {
  const char* text = va_arg(*args, const char*);
  return text ? std::string(text) : std::string();
}

void fillMessageMap(App* plugin) {
  using namespace FileReaderPlugin;
  const std::map<int, intptr_t (*)(MessageEntry&, va_list*)> forwarders = {
      {OPI_START_UP,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         const int argc = va_arg(*a, int);
         char** argv = va_arg(*a, char**);
         return e.plugin->startUpWithArguments(argc, argv);
       }},
      {OPI_CALLBACK, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->Callback(); }},
      {OPI_CLOSE, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->Close(); }},
      {OPI_NAME, [](MessageEntry& e, va_list*) -> intptr_t { return textAnswer(e, e.plugin->Name()); }},
      {OPI_CLOSE_LOCATION, [](MessageEntry& e, va_list* a) -> intptr_t { return e.plugin->closeLocation(textArg(a)); }},
      {OPI_OPEN_LOCATION,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         const std::string location = textArg(a);
         const int port = va_arg(*a, int);
         const int protocol = va_arg(*a, int);
         return e.plugin->openLocation(location, port, static_cast<PIData::PINetworkProtocol_t>(protocol));
       }},
      {OPI_FIND_NETWORK_LOCATION,
       [](MessageEntry& e, va_list* a) -> intptr_t { return e.plugin->findNetworkLocation(textArg(a)); }},
      {OPI_HANDLE_CONFIG_OPTION,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         const std::string option = textArg(a);
         const std::string value = textArg(a);
         return e.plugin->HandleConfigOption(option, value);
       }},
      {OPI_SAVE_CONFIG_OPTIONS,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         std::string* out = va_arg(*a, std::string*);
         std::string ignored;
         return e.plugin->SaveConfigOptions(out ? *out : ignored);
       }},
      {OPI_LISTEN_TO_EVENTS,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         const int event = va_arg(*a, int);
         void* data = va_arg(*a, void*);
         return e.plugin->ListenToEvents(event, data);
       }},
      {OPI_DRAW_ON_REFRESH, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->DrawOnRefresh(); }},
      {OPI_LOAD_IN_ORVIDE, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->LoadInORVIDE(); }},
      {OPI_LOAD_IN_KURVEX, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->LoadInKurvex(); }},
      {OPI_LOAD_IN_ASIPAD, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->LoadInAsiPad(); }},
      {OPI_LOAD_IN_LOGHOST, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->LoadInLogHost(); }},
      {OPI_PRE_DRAW_ON_REFRESH, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->PreDrawOnRefresh(); }},
      {OPI_HANDLE_MOUSE_EVENT,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         const int event = va_arg(*a, int);
         const int x = va_arg(*a, int);
         const int y = va_arg(*a, int);
         const int buttons = va_arg(*a, int);
         return e.plugin->HandleMouseEvent(event, x, y, buttons);
       }},
      {OPI_INITIALIZE_TERRAIN_RASTER_SET,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         return reinterpret_cast<intptr_t>(e.plugin->initializeTerrainRasterSet(textArg(a)));
       }},
      {OPI_PARSE_TERRAIN_RASTER_SET_TOKEN,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         void* set = va_arg(*a, void*);
         return e.plugin->parseTerrainRasterSetToken(set, textArg(a));
       }},
      {OPI_GET_TERRAIN_RASTER_SET_TOKEN_STRING,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         return textAnswer(e, e.plugin->getTerrainRasterSetTokenString(va_arg(*a, void*)));
       }},
      {OPI_GET_TERRAIN_RASTER_NODE,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         return reinterpret_cast<intptr_t>(e.plugin->getTerrainRasterNode(va_arg(*a, void*)));
       }},
      {OPI_DEREFERENCE_TERRAIN_RASTER_SET,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         e.plugin->dereferenceTerrainRasterSet(va_arg(*a, void*));
         return 0;
       }},
      {OPI_GET_TERRAIN_RASTER_SET_INFO,
       [](MessageEntry& e, va_list* a) -> intptr_t {
         return textAnswer(e, e.plugin->getTerrainRasterSetInfo(va_arg(*a, void*)));
       }},
      {OPI_DESCRIPTION, [](MessageEntry& e, va_list*) -> intptr_t { return textAnswer(e, e.plugin->Description()); }},
      {OPI_AUTHOR, [](MessageEntry& e, va_list*) -> intptr_t { return textAnswer(e, e.plugin->Author()); }},
      {OPI_VERSION, [](MessageEntry& e, va_list*) -> intptr_t { return textAnswer(e, e.plugin->Version()); }},
      {OPI_URL, [](MessageEntry& e, va_list*) -> intptr_t { return textAnswer(e, e.plugin->URL()); }},
      {OPI_CONTACT_INFO, [](MessageEntry& e, va_list*) -> intptr_t { return textAnswer(e, e.plugin->ContactInfo()); }},
      {OPI_LOAD_IN_ORVIDE10, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->LoadInORVIDE10(); }},
      {OPI_CONFIGURE_COMMAND_LINE,
       [](MessageEntry& e, va_list* a) -> intptr_t { return e.plugin->ConfigureCommandLine(va_arg(*a, void*)); }},
      {OPI_LOAD_IN_KURVEX10, [](MessageEntry& e, va_list*) -> intptr_t { return e.plugin->LoadInKurvex10(); }},
  };
  messageMap.clear();
  for (const auto& forwarder : forwarders) {
    MessageEntry& entry = messageMap[forwarder.first];
    entry.forward = forwarder.second;
    entry.plugin = plugin;
  }
}

}  // namespace

extern "C" {

int OPI_InitializeFunctionMap(PIFunctionMap* functionMap, void* thisPlugin) {
  PIBase::setFunctionMap(functionMap, thisPlugin);
  try {
    if (!thePlugin) thePlugin = new FileReadPlugin;
    fillMessageMap(thePlugin);
  } catch (...) {
    // Without memory for the plug-in or its map the host gets a refusal, not
    // an exception; the function map is set, so the failure can be told.
    FileReaderPlugin::tellFailure("Plug-in initialisation");
    return -1;
  }
  return 0;
}

intptr_t OPI_PluginDispatchFunction(int message, ...) {
  auto found = messageMap.find(message);
  if (found == messageMap.end() || !found->second.forward || !found->second.plugin) return 0;
  va_list args;
  va_start(args, message);
  intptr_t answer = -1;
  try {
    answer = found->second.forward(found->second, &args);
  } catch (...) {
    // Nothing may travel on into the host.
    FileReaderPlugin::tellFailure("Plug-in request", static_cast<long>(message));
  }
  va_end(args);
  return answer;
}

double OPI_VersionInfo() { return PIBase::legacyApiVersion(); }

int OPI_VersionInfoEx(int part) {
  if (part == 2) return PIBase::revisionVersion();
  if (part == 1) return PIBase::minorVersion();
  return PIBase::majorVersion();
}

int OPI_MinimumVersion() { return 12700; }

int OPI_GetCompilerVersion() { return 831; }

int OPI_GetBitWidth() { return 64; }

int OPI_IsDebugMode() { return 0; }

void OPI_CleanUpPlugin() {
  PIGarbageCollector::destroyGlobal();
  for (PICommon::PICallbackFunctor* functor : FileReadPlugin::callbackFunctors()) delete functor;
  FileReadPlugin::callbackFunctors().clear();
  // The object goes last: nothing may call into it after clean-up.
  messageMap.clear();
  delete thePlugin;
  thePlugin = nullptr;
}

}  // extern "C"
