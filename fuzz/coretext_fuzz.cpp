// Feeds one arbitrary text through the text layer and checks the invariants
// that callers build on. A broken invariant aborts, so libFuzzer keeps the input.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/Convert.h"
#include "core/StringUtils.h"
#include "core/Tokenizer.h"
#include "core/ValidNumber.h"

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

void numbers(const std::string& text) {
  int i = 0;
  long l = 0;
  unsigned int u = 0;
  unsigned long ul = 0;
  double d = 0;
  float f = 0;
  short s = 0;
  unsigned char uc = 0;
  // A narrow acceptance implies the wider one, with the same value.
  if (orvCore::isValidNumber(text, i, true)) {
    check(orvCore::isValidNumber(text, l, true) && l == i);
    check(orvCore::stringIsIntegerNumber(text, false, false, true));
  }
  if (orvCore::isValidNumber(text, u, true)) check(orvCore::isValidNumber(text, ul, true) && ul == u);
  if (orvCore::isValidNumber(text, s, true)) check(orvCore::isValidNumber(text, i, true) && i == s);
  if (orvCore::isValidNumber(text, uc, true)) check(orvCore::isValidNumber(text, u, true) && u == uc);
  if (orvCore::isValidNumber(text, d, true)) check(orvCore::stringIsRealNumber(text, false, true));
  if (orvCore::isValidNumber(text, f, true)) check(orvCore::isValidNumber(text, d, true));
  // Refusing the plus sign never accepts more.
  if (orvCore::isValidNumber(text, d, false)) check(orvCore::isValidNumber(text, d, true));
  unsigned int hex = 0;
  int hexInt = 0;
  if (orvCore::isValidHexNumber(text, hex, true)) check(orvCore::isValidHexNumber(text, hex, false));
  if (orvCore::isValidHexNumber(text, hexInt, false)) check(hexInt >= 0);
  (void)UTILS::stringConvertToDouble(text);
  (void)UTILS::stringConvertToFloat(text);
  (void)UTILS::stringConvertToShort(text);
  (void)UTILS::stringConvertToUShort(text);
  (void)UTILS::stringConvertToUInt(text);
  (void)UTILS::stringConvertHexToUInt(text);
  (void)UTILS::stringConvertToString(UTILS::stringConvertToDouble(text), 17, false);
  (void)orvCore::buildString("p", UTILS::stringConvertToDouble(text), text.size() % 40, text.size() % 30, "s",
                             text.size() % 2 == 0, 1e15, 1e-15);
}

void tokens(const std::string& text) {
  std::vector<std::string> out;
  orvCore::stringTokenizer(out, text, orvCore::STR_WHITE_SPACE_CHARS, true, true);
  for (const std::string& token : out)
    check(!token.empty() && token.find_first_of(orvCore::STR_WHITE_SPACE_CHARS) == std::string::npos);
  orvCore::stringTokenizer(out, text, ",", true, false);
  std::string joined;
  for (size_t k = 0; k < out.size(); ++k) joined += (k ? "," : "") + out[k];
  check(joined == text);

  std::istringstream in(text);
  size_t lines = 0;
  while (orvCore::getTokens(in, out, 0)) check(++lines <= text.size() + 1);

  // The quote-aware split must always move forward.
  size_t pos = text.find_first_not_of(orvCore::STR_WHITE_SPACE_CHARS);
  while (pos != std::string::npos) {
    const std::string terminator = orvCore::getTerminateForStringPos(text, pos);
    const size_t end = orvCore::getFirstCharPosAfterString(text, pos + 1, terminator);
    if (end == std::string::npos) break;
    check(end > pos);
    pos = text.find_first_not_of(orvCore::STR_WHITE_SPACE_CHARS, end);
  }

  size_t start = 0;
  while (start <= text.size()) {
    size_t end = 0;
    const std::string word = orvCore::extractWordWithQuotes(text, end, start);
    check(word.size() <= text.size() - start);
    if (end == std::string::npos) break;
    check(end >= start);
    start = end + 1;
  }

  const std::string unquoted = orvCore::removeQuotes(text);
  check(unquoted.size() <= text.size() && text.find(unquoted) != std::string::npos);
  std::string name;
  std::string value;
  (void)orvCore::getNameAndValueFromToken(text, name, value);
}

void paths(const std::string& text) {
  const std::string native = orvCore::toNativeSeparators(text);
  check(orvCore::toNativeSeparators(native) == native);
  const std::string clean = orvCore::sanitizeFilename(text);
  check(clean.size() <= text.size());
  (void)orvCore::expandEnv(text);
  (void)orvCore::getExtension(text);
  (void)UTILS::removeTrailingZeros(text, false);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  numbers(text);
  tokens(text);
  paths(text);
  return 0;
}
