#include "hostapi/PIDataRecords.h"

namespace PIData {
const PICoordReferenceFrame PI_DEFAULT_REFFRAME{};
}
