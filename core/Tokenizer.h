#pragma once
// Splitting lines into tokens, and the quote rules of the line-oriented file
// formats: what ends a token that starts with a quote, and how quotes come
// off again.

#include <cstddef>
#include <istream>
#include <string>
#include <vector>

namespace orvCore {

// Blank, line feed, carriage return, tab: the white space of every line format.
inline constexpr char STR_WHITE_SPACE_CHARS[] = " \n\r\t";
// The degree sign in Latin-1 (one byte) and in UTF-8 (two bytes).
inline constexpr char STR_DEGREE_SYMBOL_ASCII[] = "\xB0";
inline constexpr char STR_DEGREE_SYMBOL_UNICODE[] = "\xC2\xB0";
inline constexpr char STR_DEGREE_SYMBOL_UTF8[] = "\xC2\xB0";

// Splits `text` at any character of `delimiters`. With skipEmpty, runs of
// delimiters act as one separator and produce no empty tokens; without it,
// every delimiter ends a token (an empty text gives one empty token).
// Tokens are appended unless clearFirst. Answers the size of the vector.
size_t stringTokenizer(std::vector<std::string>& tokens, const std::string& text,
                       const std::string& delimiters = STR_WHITE_SPACE_CHARS, bool clearFirst = true,
                       bool skipEmpty = true);

// Reads one line, cuts trailing white space and splits it at runs of
// `delimiters`. False if the read failed or fewer than minimumCount tokens
// are held afterwards.
bool getTokens(std::istream& stream, std::vector<std::string>& tokens, size_t minimumCount = 0,
               const std::string& delimiters = STR_WHITE_SPACE_CHARS, bool clearFirst = true);

// Reads one line and cuts trailing white space. False (and an empty line) if
// the read failed.
bool getStrippedLine(std::istream& stream, std::string& line);

// The text from `start` to the next blank or tab. `end` receives the position
// of that delimiter, or npos when the word runs to the end of the text.
// A start beyond the text throws std::out_of_range.
std::string extractWord(const std::string& text, size_t& end, size_t start = 0);

// As extractWord, but double quotes group: a word that starts with a quote
// runs to the closing quote, and a quoted part inside a word stays in it.
// Quotes are kept. `end` receives the position behind a closing quote, the
// blank or tab that ended the word, or npos at the end of the text.
std::string extractWordWithQuotes(const std::string& text, size_t& end, size_t start = 0);

// What ends the token that begins at `pos`: "'" for a single quote, three
// double quotes for a triple quote not followed by a fourth, one double quote
// for any other double quote, and "" (white space) otherwise.
// A position outside the text throws std::out_of_range.
std::string getTerminateForStringPos(const std::string& text, size_t pos);

// The position just behind `terminator` searched from `pos`, or npos. An
// empty terminator finds the first white space at or after `pos` instead.
// A single double quote preceded by an odd number of backslashes is escaped.
size_t getFirstCharPosAfterString(const std::string& text, size_t pos, const std::string& terminator);

// Strips matching pairs of the leading quote character (' or ") from both
// ends for as long as both ends hold it.
std::string removeQuotes(const std::string& text);
// removeQuotes on every element, in place.
void removeQuotes(std::vector<std::string>& tokens);

// Splits "name=value" at the first "="; the value loses its quotes. Answers
// "" on success, else an error text and leaves name and value untouched.
std::string getNameAndValueFromToken(const std::string& token, std::string& name, std::string& value);

}  // namespace orvCore

namespace UTILS {

// Strips exactly one pair of matching quotes (' or "), if both ends hold it.
std::string removeOneLayerOfQuotes(const std::string& text);
// removeOneLayerOfQuotes on every element, in place.
void removeOneLayerOfQuotes(std::vector<std::string>& tokens);

}  // namespace UTILS
