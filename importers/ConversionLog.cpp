#include "importers/ConversionLog.h"

#include "core/Notify.h"
#include "document/ConvenienceFuncsUD.h"

namespace ConversionLog {

void issue(const std::string& text) { writeErrorStreamUD(text + "\n"); }

void notice(const std::string& text) { orvNotify::notify(orvNotify::INFO, text + "\n"); }

}  // namespace ConversionLog
