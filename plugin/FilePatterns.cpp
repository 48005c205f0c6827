#include "plugin/FilePatterns.h"

namespace orvCore {

const char* const ORVIDE_ASCII_FILE_PATTERNS =
    "All Supported ASCII Formats (*.asi,*.discn,*.csv,*.tle,*.gpx,*.otg,*.wam,*.pet,*.zip)\n"
    "ORVIDE ASCII (*.asi)\n"
    "ORVIDE Data Initialization Scenario (*.discn)\n"
    "SCORE & PMRF Comma Separated Value (*.csv)\n"
    "NORAD Two-Line Element (*.tle)\n"
    "GPS Exchange Format (*.gpx)\n"
    "OTG Format (*.otg)\n"
    "WAM Format (*.wam)\n"
    "PET Format (*.pet)\n"
    "ZIP Archive of supported formats (*.zip)\n"
    "All Files (*)";

}  // namespace orvCore
