#pragma once
// The rules of a line of ASI text: how one physical line becomes the tokens
// of a command. Every reader of ASI text (the read thread, the version check,
// the format check and the scenario-identifier scan) goes through here.

#include <string>
#include <vector>

namespace FileReaderPlugin {

// Cuts trailing blanks, line feeds, carriage returns and tabs.
void stripLineEnd(std::string& line);

// Splits an already stripped line into `tokens`: quoted tokens (single,
// double with backslash escapes, triple double), comments ("#" or "//")
// cut inside unquoted tokens, quotes removed. `tokens` is overwritten; its
// strings are reused so that a steady stream of lines needs no allocation.
// An empty result means the line is no command.
void tokenizeAsiLine(const std::string& line, std::vector<std::string>& tokens);

}  // namespace FileReaderPlugin
