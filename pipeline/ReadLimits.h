#pragma once
// The bounds that keep a read's memory independent of what a file holds.
// docs/limits.md states them for users.

#include <cstddef>

namespace FileReaderPlugin {

// The longest line an ASI reader takes, in bytes before its line end. A
// longer line is no command: it is skipped and reported.
constexpr std::size_t MAX_LINE_LENGTH = std::size_t(1) << 20;

// Token memory that the lines waiting for the calling thread may hold
// together. Ordinary lines never come near it; it stops a run of huge lines
// from filling all 10000 pipeline items at once.
constexpr std::size_t MAX_QUEUED_TOKEN_BYTES = std::size_t(64) << 20;

// An item whose tokens held more than this gives the memory back once its
// command has run, so that idle items stay small.
constexpr std::size_t ITEM_KEEP_BYTES = 4096;

// Distinct unknown keywords remembered for the end-of-read report; lines with
// further unknown keywords are only counted. Far above what the 500 written
// messages of a read can show, so that every report that can be read in full
// is complete and names the true number of keywords, while the map stays
// within a few megabytes whatever the file holds.
constexpr std::size_t MAX_UNSUPPORTED_KEYWORDS = 10000;

// Characters of an unknown keyword kept for the report.
constexpr std::size_t MAX_REPORTED_KEYWORD_LENGTH = 64;

}  // namespace FileReaderPlugin
