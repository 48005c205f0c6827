#pragma once
// The ASI keyword table: every keyword that the reader knows, as spelled in
// the language, and the keywords whose command depends on the file's version.

#include <cstddef>

namespace FileReaderPlugin {

constexpr std::size_t ASI_KEYWORD_COUNT = 120;

// The known keywords, in table order (scenario, platform, beam, gate, data
// table, projector, laser, line of bearing, custom rendering).
extern const char* const ASI_KEYWORDS[ASI_KEYWORD_COUNT];

// A keyword read by an older argument list up to and including a version.
struct VersionDependentKeyword {
  const char* keyword;
  int lastDeprecatedVersion;
};

constexpr std::size_t ASI_VERSION_DEPENDENT_COUNT = 3;
extern const VersionDependentKeyword ASI_VERSION_DEPENDENT_KEYWORDS[ASI_VERSION_DEPENDENT_COUNT];

// True if `keyword` (any case) takes its deprecated command in a file of
// `version`; false for every keyword that does not depend on the version.
bool usesDeprecatedCommand(const char* keyword, int version);

}  // namespace FileReaderPlugin
