#include "importers/ConversionLog.h"

#include <iostream>

#include "core/Notify.h"

namespace ConversionLog {

void issue(const std::string& text) { std::cerr << text << "\n"; }

void notice(const std::string& text) { orvNotify::notify(orvNotify::INFO, text); }

}  // namespace ConversionLog
