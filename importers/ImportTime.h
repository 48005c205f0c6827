#pragma once
// Time helpers shared by the side-format readers.

namespace Importers {

// Seconds between the starts of two years (negative when `toYear` is earlier).
double yearOffset(int fromYear, int toYear);

}  // namespace Importers
