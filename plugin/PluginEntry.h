#pragma once
// The entry points that a host finds in libFileReaderPlugin.so, and the
// client message map through which it calls the plug-in object.
//
// OPI_PluginDispatchFunction(message, ...) takes the arguments of the
// message's operation and answers as an intptr_t:
//   int answers as their value, bool answers as 0 or 1;
//   text answers as a const char* that stays valid until the same message is
//   dispatched again; pointer answers as the pointer.
// Arguments: text as const char*, the out-text of SaveConfigOptions as
// std::string*, everything else as its own type (enums as int).

#include <cstdint>

class PIFunctionMap;

namespace FileReaderPlugin {

enum OPI_Message : int {
  OPI_START_UP = 0,          // (int argc, char** argv) -> int
  OPI_CALLBACK = 1,          // () -> int
  OPI_CLOSE = 2,             // () -> int
  OPI_NAME = 3,              // () -> text
  OPI_CLOSE_LOCATION = 4,    // (const char* location) -> int
  OPI_OPEN_LOCATION = 5,     // (const char* location, int port, int protocol) -> int
  OPI_FIND_NETWORK_LOCATION = 6,  // (const char* location) -> int
  OPI_HANDLE_CONFIG_OPTION = 7,   // (const char* option, const char* value) -> int
  OPI_SAVE_CONFIG_OPTIONS = 8,    // (std::string* out) -> int
  OPI_LISTEN_TO_EVENTS = 9,       // (int event, void* data) -> int
  OPI_DRAW_ON_REFRESH = 10,       // () -> int
  OPI_LOAD_IN_ORVIDE = 11,        // () -> bool
  OPI_LOAD_IN_KURVEX = 12,        // () -> bool
  OPI_LOAD_IN_ASIPAD = 13,        // () -> bool
  OPI_LOAD_IN_LOGHOST = 14,       // () -> bool
  OPI_PRE_DRAW_ON_REFRESH = 15,   // () -> int
  OPI_HANDLE_MOUSE_EVENT = 16,    // (int event, int x, int y, int buttons) -> int
  OPI_INITIALIZE_TERRAIN_RASTER_SET = 17,       // (const char* name) -> void*
  OPI_PARSE_TERRAIN_RASTER_SET_TOKEN = 18,      // (void* set, const char* token) -> int
  OPI_GET_TERRAIN_RASTER_SET_TOKEN_STRING = 19, // (void* set) -> text
  OPI_GET_TERRAIN_RASTER_NODE = 20,             // (void* set) -> void*
  OPI_DEREFERENCE_TERRAIN_RASTER_SET = 21,      // (void* set) -> 0
  OPI_GET_TERRAIN_RASTER_SET_INFO = 22,         // (void* set) -> text
  OPI_DESCRIPTION = 23,           // () -> text
  OPI_AUTHOR = 24,                // () -> text
  OPI_VERSION = 25,               // () -> text
  OPI_URL = 26,                   // () -> text
  OPI_CONTACT_INFO = 27,          // () -> text
  OPI_LOAD_IN_ORVIDE10 = 28,      // () -> bool
  OPI_CONFIGURE_COMMAND_LINE = 29,  // (void* parser) -> int
  OPI_LOAD_IN_KURVEX10 = 30       // () -> bool
};

constexpr int OPI_MESSAGE_COUNT = 31;

}  // namespace FileReaderPlugin

extern "C" {

// Keeps the host's function map and context, creates the plug-in object and
// fills the message map. Answers 0.
int OPI_InitializeFunctionMap(PIFunctionMap* functionMap, void* thisPlugin);
// Calls the plug-in through the message map; 0 for an unknown message.
intptr_t OPI_PluginDispatchFunction(int message, ...);
double OPI_VersionInfo();
// part 2: revision, 1: minor, anything else: major.
int OPI_VersionInfoEx(int part);
int OPI_MinimumVersion();
int OPI_GetCompilerVersion();
// Releases the garbage collector, the callback functors and the plug-in object.
void OPI_CleanUpPlugin();
int OPI_GetBitWidth();
int OPI_IsDebugMode();

// The same signatures as function-pointer types, for a host that looks the
// symbols up with dlsym.
typedef int (*OPI_InitializeFunctionMap_t)(PIFunctionMap*, void*);
typedef intptr_t (*OPI_PluginDispatchFunction_t)(int, ...);
typedef double (*OPI_VersionInfo_t)();
typedef int (*OPI_VersionInfoEx_t)(int);
typedef int (*OPI_IntQuery_t)();
typedef void (*OPI_CleanUpPlugin_t)();
}
