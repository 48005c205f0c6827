#pragma once
// Text from a scenario file on its way to a terminal. A file may hold any
// bytes, and an escape sequence echoed raw can clear the screen, retitle the
// window or reprogram keys; so control characters are shown as escapes
// instead. The JSON outputs escape on their own and don't need this.

#include <cstddef>
#include <string>

namespace RefHost {

// `text` with every C0 control (except the line feed and the tab when they
// are kept), DEL and C1 control written as "\xHH", and every byte that is
// not part of well-formed UTF-8 also as "\xHH". Printable text, including
// any UTF-8 character, passes unchanged.
std::string terminalSafe(const std::string& text, bool keepLineFeeds = false);

// `text` with every byte that is not part of well-formed UTF-8 replaced by
// U+FFFD, for outputs that must be UTF-8 (XML).
std::string validUtf8(const std::string& text);

// Columns that `text` takes, counting one per UTF-8 character (wide East
// Asian characters are not told apart).
std::size_t displayWidth(const std::string& text);

// The longest prefix of `text` that fits in `columns`, never cutting a UTF-8
// character; with an ellipsis ("...") at the end when something was cut.
std::string fitWidth(const std::string& text, std::size_t columns);

}  // namespace RefHost
