#pragma once
// Small file and path helpers over POSIX calls. None of them throws: failures
// answer false, an empty string, an empty buffer or -1.

#include <cstddef>
#include <string>
#include <vector>

namespace UTILS {

// Starts with "./", "../", ".\" or "..\".
bool fileIsRelative(const std::string& path);
// Starts with a path separator ("/" or "\").
bool fileIsAbsolute(const std::string& path);
// unlink(); answers its result (0 on success, -1 on failure).
int fileRemove(const std::string& path);
// There is no recycle bin here: the same as fileRemove.
int fileRecycle(const std::string& path);
// False for an empty path or one that doesn't exist.
bool fileIsFile(const std::string& path);
bool fileIsDirectory(const std::string& path);
// The first set of TMPDIR, TMP, TEMP (even if set empty), else "/tmp";
// with a "/" appended unless the result is empty.
std::string fileTempDir();
// Without trailing "/" characters.
std::string fileNormalize(const std::string& path);

// Line `number` (the first line is 1) without trailing white space; "" if
// the file can't be read or is shorter.
std::string fileGetLine(const std::string& path, size_t number);
// The last line that isn't empty once trailing white space is cut; `number`
// receives its line number (from 1), 0 if there is none.
std::string fileGetLastNonEmptyLine(const std::string& path, size_t& number);

// The whole file; `size` receives its length (0 and an empty buffer if it
// can't be read).
std::vector<char> readFileIntoBuffer(const std::string& path, size_t& size);
// Writes `size` bytes, replacing the file. True on success.
bool writeBufferToFile(const std::string& path, size_t size, const char* buffer);

// A name in fileTempDir() that no file or directory holds yet: prefix (an
// empty one becomes "tmpfile"), a number started from the process clock,
// suffix. The file is not created. When fileTempDir() names a folder that
// does not exist, the name is made in the system's "/tmp" instead.
std::string getTempFileName(const std::string& prefix = "tmpfile", const std::string& suffix = "");
// True if the first line holds a carriage return.
bool hasWindowsLineEndings(const std::string& path);

// After turning backslashes into "/": the part after the last "/" (all of
// it without one) ...
std::string fileBaseName(const std::string& path);
// ... and the part before it ("" without one).
std::string filePath(const std::string& path);
// The process's working directory ("" if it can't be told).
std::string getCurrentDirectory();
// A name fit for a file: trimmed, "/" -> "-", blank -> "_", and none of
// \:*?<>|()&;#" left.
std::string validBaseName(const std::string& name);
// Creates every missing directory of the path (mode 0775). 0 on success,
// also if it exists already; -1 on failure.
int makePath(const std::string& path);
// prefix + suffix, or prefix + "_<n>" + suffix, whichever is free first; ""
// if none is.
std::string fileFindNewFileName(const std::string& prefix, const std::string& suffix);
// True if a file can be created (and is removed again) in the directory.
bool fileIsDirectoryWriteable(const std::string& path);

}  // namespace UTILS
