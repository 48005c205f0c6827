#pragma once
// What the standard library can throw at a boundary that must not let it
// through: the host's calls into the plug-in, the engine's command execution,
// and the plug-in's own threads.

namespace orvCore {

// Inside a catch block: a short description of the exception being handled
// ("out of memory" for std::bad_alloc, ...). Never throws and never
// allocates, so it can be used when memory has run out.
const char* currentFailure() noexcept;

}  // namespace orvCore
