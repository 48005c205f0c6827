#pragma once
// The filter text of the file dialog of the two menu commands. It lists the
// formats a user picks by hand; "*.kp" is left out on purpose and is opened
// through "All Files (*)".

namespace orvCore {

extern const char* const ORVIDE_ASCII_FILE_PATTERNS;

}  // namespace orvCore
