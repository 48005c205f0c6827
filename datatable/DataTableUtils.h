#pragma once
// Text helpers of data-table cells.

#include <string>

namespace DataTableUtils {

// Undoes the escapes of a string cell, pass by pass over the whole text:
// "\\" to "\", "\"" to a quote, "\0xA" to a newline. Each pass continues
// behind the text it put in.
std::string removeEscapeSlashes(const std::string& text);

}  // namespace DataTableUtils
