#pragma once
// Text helpers: case handling, extensions, the number-to-text routine behind
// every writer, file-name clean-up and "$(NAME)" environment expansion.

#include <cstddef>
#include <string>
#include <vector>

namespace orvCore {

// strcasecmp order, with empty texts ordered first: both empty 0, left empty
// negative, right empty 1.
int caseCompare(const std::string& a, const std::string& b);
std::string lowerCase(const std::string& text);
std::string upperCase(const std::string& text);
// Position of `pattern` in `text` ignoring case, or npos.
size_t stringCaseFind(const std::string& text, const std::string& pattern);

// The lower-cased text from the last "." on, point included; "" if none.
std::string getExtension(const std::string& name);
// True if the name's extension equals `extension` (given with its point),
// ignoring case.
bool hasExtension(const std::string& name, const std::string& extension);

// prefix + value + suffix. NaN and infinities are written "NaN", "inf",
// "-inf". Scientific notation is used for magnitudes above sciNotationGT
// (capped at 1e80) and for non-zero magnitudes below sciNotationLT; fixed
// notation otherwise. Precision is capped at 16. With padZero the field is
// filled with "0" on the left.
std::string buildString(const std::string& prefix, double value, size_t width = 0, size_t precision = 6,
                        const std::string& suffix = "", bool padZero = false, double sciNotationGT = 1e15,
                        double sciNotationLT = 1e-15);

// Removes ":?*<>|" from the base name; the directory part stays as it is,
// with backslashes turned into "/".
std::string sanitizeFilename(const std::string& name);
// Backslashes become "/" and repeated separators collapse; a leading "//"
// (network path) stays, and URLs ("://") are left alone.
std::string toNativeSeparators(const std::string& path);

// True if the text holds "$(" with a ")" behind it.
bool hasEnv(const std::string& text);
// The variable's value without trailing carriage returns; "" if unset.
std::string getEnvVar(const std::string& name);
// Replaces every "$(NAME)" with the variable's value; a name holding white
// space is left as text.
std::string expandEnv(const std::string& text);

}  // namespace orvCore

namespace UTILS {

// The same as orvCore::buildString.
std::string buildFormatStr(const std::string& prefix, double value, size_t width = 0, size_t precision = 6,
                           const std::string& suffix = "", bool padZero = false, double sciNotationGT = 1e15,
                           double sciNotationLT = 1e-15);
// `text` followed by `count` blanks.
std::string addSpaces(const std::string& text, size_t count);
// For a text holding ".": cuts trailing "0"s, then a trailing "." unless
// keepPoint. Other texts come back unchanged.
std::string removeTrailingZeros(const std::string& text, bool keepPoint = false);
// The name without its extension (the last "." of the base name on).
std::string removeExtension(const std::string& name);
// `out` = the name with its extension replaced; a point is put in front of
// an extension given without one.
void changeExtension(std::string& out, const std::string& name, const std::string& extension);
// Fixed notation with 6 decimals, trailing zeros removed.
std::string formatDouble(double value);
// `length` characters of [a-zA-Z0-9]; reseeds the process-wide rand().
std::string generateRandomString(size_t length, unsigned int seed);
// directory + "/" + name + extension, without doubling separators or points.
std::string genFilename(const std::string& directory, const std::string& name, const std::string& extension);
// True if both names denote the same path once separators are normalized.
bool compareFileNames(const std::string& a, const std::string& b);
// True if any name of the list compares equal to `name`.
bool compareFileName2List(const std::vector<std::string>& list, const std::string& name);

}  // namespace UTILS
