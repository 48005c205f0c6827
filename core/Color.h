#pragma once
// Colour arguments of the ASI language, for both of its readers. A colour is
// given as "0x" hexadecimal, as a decimal number or by name; the value comes
// back in the order 0xAABBGGRR that ASI text uses. Bad input is reported on the standard error
// stream and gives orange: a colour never stops a command.

#include <cstdint>
#include <string>

namespace UTILS {

// `oldFormat` selects the alpha byte of named colours: 0x80 when true, 0xFF
// when false. Numbers are taken as they stand.
uint32_t colorGetColorInt(const char* text, bool oldFormat);
uint32_t colorGetColorInt(const std::string& text, bool oldFormat);

// Reverses the four bytes: 0xAABBGGRR <-> 0xRRGGBBAA.
uint32_t colorReverseBytes(uint32_t color);

}  // namespace UTILS
