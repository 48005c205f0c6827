#include "hostapi/PIKurvex.h"

#include "hostapi/PICommon.h"

namespace PIKurvex {

bool runningInKurvex() { return PICommon::getApplicationId() == PICommon::PI_HOST_KURVEX; }
bool runningInKurvex10() { return PICommon::getApplicationId() == PICommon::PI_HOST_KURVEX10; }

}  // namespace PIKurvex
