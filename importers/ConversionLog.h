#pragma once
// Where the converters that write ASI text (TLE and Kepler files) report.
// Problems in the input go to the issue stream, which the loader that runs
// a converter collects and shows the user with the conversion's heading;
// progress notices go to orvNotify.

#include <string>

namespace ConversionLog {

// One problem of the input, a line of text (a line feed is added).
void issue(const std::string& text);
// A progress notice at info severity (a line feed is added).
void notice(const std::string& text);

}  // namespace ConversionLog
