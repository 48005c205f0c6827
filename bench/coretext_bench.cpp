// Throughput of the per-token text routines. Each benchmark reports items
// (tokens or lines) per second so that figures compare with file sizes.

#include <benchmark/benchmark.h>

#include <sstream>
#include <string>
#include <vector>

#include "core/Convert.h"
#include "core/StringUtils.h"
#include "core/Tokenizer.h"
#include "core/ValidNumber.h"

namespace {

const std::vector<std::string>& realTexts() {
  static const std::vector<std::string> texts{"120.5", "-33.8750001", "0", "1e-5", "6378137.0", "-0.25",
                                              "12345678.125", "3.14159265358979", "abc", "1.5x"};
  return texts;
}

const std::vector<std::string>& integerTexts() {
  static const std::vector<std::string> texts{"1", "42", "65535", "-17", "2147483647", "100000", "7", "x1"};
  return texts;
}

// A typical position line of a scenario file.
const std::string kDataLine = "PlatformData 101 3600.125 -33.8750001 151.2093 12.5 1.5708 0.0 0.0 7.2 0.0 0.0";
const std::string kQuotedLine = "PlatformName 101 \"Ship \\\"Alpha\\\" one\" 'tag' \"\"\"long name\"\"\" end";

void BM_IsValidNumberDouble(benchmark::State& state) {
  const auto& texts = realTexts();
  double value = 0;
  for (auto _ : state)
    for (const std::string& text : texts) benchmark::DoNotOptimize(orvCore::isValidNumber(text, value, true));
  state.SetItemsProcessed(state.iterations() * texts.size());
}
BENCHMARK(BM_IsValidNumberDouble);

void BM_IsValidNumberInt(benchmark::State& state) {
  const auto& texts = integerTexts();
  int value = 0;
  for (auto _ : state)
    for (const std::string& text : texts) benchmark::DoNotOptimize(orvCore::isValidNumber(text, value, true));
  state.SetItemsProcessed(state.iterations() * texts.size());
}
BENCHMARK(BM_IsValidNumberInt);

void BM_IsValidNumberULong(benchmark::State& state) {
  const auto& texts = integerTexts();
  unsigned long value = 0;
  for (auto _ : state)
    for (const std::string& text : texts) benchmark::DoNotOptimize(orvCore::isValidNumber(text, value, true));
  state.SetItemsProcessed(state.iterations() * texts.size());
}
BENCHMARK(BM_IsValidNumberULong);

void BM_StringIsRealNumber(benchmark::State& state) {
  const auto& texts = realTexts();
  for (auto _ : state)
    for (const std::string& text : texts) benchmark::DoNotOptimize(orvCore::stringIsRealNumber(text, true, true));
  state.SetItemsProcessed(state.iterations() * texts.size());
}
BENCHMARK(BM_StringIsRealNumber);

void BM_StringTokenizer(benchmark::State& state) {
  std::vector<std::string> tokens;
  for (auto _ : state) {
    orvCore::stringTokenizer(tokens, kDataLine);
    benchmark::DoNotOptimize(tokens.data());
  }
  state.SetItemsProcessed(state.iterations());
  state.SetLabel("lines");
}
BENCHMARK(BM_StringTokenizer);

// The quote-aware split of a line: terminator, end position, removeQuotes.
void BM_QuotedSplit(benchmark::State& state) {
  std::vector<std::string> tokens;
  for (auto _ : state) {
    tokens.clear();
    size_t pos = kQuotedLine.find_first_not_of(orvCore::STR_WHITE_SPACE_CHARS);
    while (pos != std::string::npos) {
      const std::string terminator = orvCore::getTerminateForStringPos(kQuotedLine, pos);
      const size_t end = orvCore::getFirstCharPosAfterString(kQuotedLine, pos + 1, terminator);
      tokens.push_back(orvCore::removeQuotes(kQuotedLine.substr(pos, end == std::string::npos ? end : end - pos)));
      pos = end == std::string::npos ? end : kQuotedLine.find_first_not_of(orvCore::STR_WHITE_SPACE_CHARS, end);
    }
    benchmark::DoNotOptimize(tokens.data());
  }
  state.SetItemsProcessed(state.iterations());
  state.SetLabel("lines");
}
BENCHMARK(BM_QuotedSplit);

void BM_GetTokensStream(benchmark::State& state) {
  std::string text;
  for (int i = 0; i < 1000; ++i) text += kDataLine + "\r\n";
  std::vector<std::string> tokens;
  for (auto _ : state) {
    std::istringstream in(text);
    while (orvCore::getTokens(in, tokens, 2)) benchmark::DoNotOptimize(tokens.data());
  }
  state.SetItemsProcessed(state.iterations() * 1000);
  state.SetBytesProcessed(state.iterations() * text.size());
  state.SetLabel("lines");
}
BENCHMARK(BM_GetTokensStream);

void BM_BuildString(benchmark::State& state) {
  double value = -33.8750001;
  for (auto _ : state) {
    benchmark::DoNotOptimize(orvCore::buildString("", value, 0, 8));
    value += 1e-7;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_BuildString);

void BM_StringConvertToDoubleFallback(benchmark::State& state) {
  const std::vector<std::string> texts{"12.5m", " 7", "-inf", "abc"};
  for (auto _ : state)
    for (const std::string& text : texts) benchmark::DoNotOptimize(UTILS::stringConvertToDouble(text));
  state.SetItemsProcessed(state.iterations() * texts.size());
}
BENCHMARK(BM_StringConvertToDoubleFallback);

}  // namespace

BENCHMARK_MAIN();
