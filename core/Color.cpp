#include "core/Color.h"

#include <iostream>

#include "core/Convert.h"
#include "core/StringUtils.h"
#include "core/ValidNumber.h"

namespace UTILS {

namespace {

struct NamedColor {
  const char* name;
  uint32_t rgb;  // 0x00BBGGRR; the alpha byte is added by the format
};

// Compared in this order, exactly.
const NamedColor COLOR_NAMES[] = {
    {"blue", 0xFF0000},      {"lightblue", 0xFF8080},   {"red", 0x0000FF},
    {"lightred", 0x8080FF},  {"green", 0x00FF00},       {"lightgreen", 0x80FF80},
    {"white", 0xFFFFFF},     {"yellow", 0x00FFFF},      {"lightyellow", 0x80FFFF},
    {"purple", 0xFF00FF},    {"magenta", 0x8500FF},     {"cyan", 0xFFFF00},
    {"black", 0x000000},     {"brown", 0x105050},       {"lightbrown", 0x20A0A0},
    {"orange", 0x0080FF},    {"lightorange", 0x80C0FF}, {"gray", 0x808080},
};

const uint32_t DEFAULT_RGB = 0x0080FF;  // orange

uint32_t withAlpha(uint32_t rgb, bool oldFormat) { return rgb | (oldFormat ? 0x80000000u : 0xFF000000u); }

}  // namespace

uint32_t colorGetColorInt(const char* text, bool oldFormat) {
  if (text == nullptr) {
    std::cerr << "ERROR:  Input color value not valid, using default" << std::endl;
    return withAlpha(DEFAULT_RGB, oldFormat);
  }
  return colorGetColorInt(std::string(text), oldFormat);
}

uint32_t colorGetColorInt(const std::string& text, bool oldFormat) {
  const std::string lower = orvCore::lowerCase(text);
  // "-" is refused before the number test, so "-1" is no colour.
  if (lower.empty() || lower.find('-') != std::string::npos) {
    std::cerr << "ERROR:  Input color value not valid, using default" << std::endl;
    return withAlpha(DEFAULT_RGB, oldFormat);
  }
  if (lower.find("0x") != std::string::npos) return stringConvertHexToUInt(lower);
  if (orvCore::stringIsRealNumber(lower, true, true)) return stringConvertToUInt(lower);
  for (const NamedColor& color : COLOR_NAMES) {
    if (lower == color.name) return withAlpha(color.rgb, oldFormat);
  }
  std::cerr << "ERROR:  Input color value <" << lower << "> not valid, using default" << std::endl;
  return withAlpha(DEFAULT_RGB, oldFormat);
}

uint32_t colorReverseBytes(uint32_t color) {
  return ((color & 0xFFu) << 24) | ((color & 0xFF00u) << 8) | ((color >> 8) & 0xFF00u) | (color >> 24);
}

}  // namespace UTILS
