#pragma once
// PIKurvex: what the plug-in asks of the plot applications.

namespace PIKurvex {

// Whether the plot application (classic, or version 10) has loaded the
// plug-in; both come from PICommon::getApplicationId().
bool runningInKurvex();
bool runningInKurvex10();

}  // namespace PIKurvex
