#pragma once
// The last line of defence of every call that the host makes into the
// plug-in: what the standard library throws (memory running out above all)
// is told to the user instead of travelling on into the host.

#include <string>

namespace FileReaderPlugin {

// Inside a catch block: tells, at fatal severity with an empty prefix,
// "<action> failed: <why>\n", or "<action> "<subject>" failed: <why>\n" with
// a subject. Never throws; if even the message finds no memory, nothing is told.
void tellFailure(const char* action, const std::string& subject = std::string()) noexcept;
// The same with a number for subject: "<action> <number> failed: <why>\n".
void tellFailure(const char* action, long number) noexcept;

}  // namespace FileReaderPlugin
