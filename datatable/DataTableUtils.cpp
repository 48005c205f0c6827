#include "datatable/DataTableUtils.h"

namespace DataTableUtils {

namespace {

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
}

}  // namespace

std::string removeEscapeSlashes(const std::string& text) {
  std::string out = text;
  replaceAll(out, "\\\\", "\\");
  replaceAll(out, "\\\"", "\"");
  replaceAll(out, "\\0xA", "\n");
  return out;
}

}  // namespace DataTableUtils
