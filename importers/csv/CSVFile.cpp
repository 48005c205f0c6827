#include "importers/csv/CSVFile.h"

#include <unistd.h>

#include <fstream>
#include <iostream>

#include "core/StringUtils.h"
#include "core/Tokenizer.h"
#include "document/CommandsUD.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"
#include "document/ScenarioUD.h"
#include "importers/csv/CSVEvt.h"
#include "importers/csv/CSVFields.h"
#include "importers/csv/CSVPos.h"

namespace {

// Reads the file in large blocks: range files run to hundreds of megabytes.
class LineFile {
 public:
  explicit LineFile(const std::string& name) : buffer_(1 << 20) {
    in_.rdbuf()->pubsetbuf(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    in_.open(name, std::ios::binary);
  }
  std::istream& stream() { return in_; }

 private:
  std::vector<char> buffer_;
  std::ifstream in_;
};

// The record name: the text before the first comma.
bool recordIs(const std::string& line, const char* name, size_t length) {
  return line.size() >= length && line.compare(0, length, name) == 0 &&
         (line.size() == length || line[length] == ',');
}

// Classification labels by the file's level 1 to 4, with their banner
// colours (0xAABBGGRR).
struct ClassificationLevel {
  const char* label;
  uint32_t color;
};
const ClassificationLevel kClassifications[] = {
    {"UNCLASSIFIED", 0x8000FF00u},
    {"FOR OFFICIAL USE ONLY", 0x80FFFFFFu},
    {"CONFIDENTIAL", 0x80FFFF00u},
    {"SECRET", 0x800000FFu},
};

const char* const kOriginBanner =
    "\n<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<\n"
    ">>>>>>>>>>>>>>>>> WARNING >>>>>>>>>>>>>>>>>\n"
    "<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<\n"
    "Reference origin from ORG line is not recognized.  The ORG reference\n"
    "origin will be used but some data may appear to have incorrect positions.\n"
    "Please ensure that the reference origin set in ORG is correct.\n"
    "<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<\n"
    ">>>>>>>>>>>>>>>>> WARNING >>>>>>>>>>>>>>>>>\n"
    "<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<<\n\n"
    "Continuing parsing in a moment...\n";

}  // namespace

CSVFile::CSVFile() = default;
CSVFile::~CSVFile() = default;

void CSVFile::csvTokenize_(std::vector<std::string>& tokens, const std::string& line) {
  // Reuses the strings of the vector: a file has millions of lines.
  size_t count = 0;
  size_t start = 0;
  for (;;) {
    const size_t comma = line.find(',', start);
    const size_t end = comma == std::string::npos ? line.size() : comma;
    if (count < tokens.size()) tokens[count].assign(line, start, end - start);
    else tokens.emplace_back(line, start, end - start);
    ++count;
    if (comma == std::string::npos) break;
    start = comma + 1;
  }
  tokens.resize(count);
}

int CSVFile::DataFormat() const {
  if (format_ != FORMAT_UNKNOWN) return format_;
  const int lon = CSVFields::truncateToInt(refLon_);
  const int lat = CSVFields::truncateToInt(refLat_);
  if (lon == -118) return lat == 33 ? FORMAT_SCORE : FORMAT_UNKNOWN;
  if (lon == -159) return lat == 22 ? FORMAT_PMRF : FORMAT_UNKNOWN;
  return FORMAT_UNKNOWN;
}

uint64_t CSVFile::NewAsiId() { return scenario_ == nullptr ? 1 : scenario_->NewId(); }

int CSVFile::ParseCSVFile(const std::string& fileName, ScenarioUD* scenario, int limit, int useXYZ) {
  (void)limit;
  std::cout << "Parsing File : " << fileName << "\n";
  scenario_ = scenario;
  scenario_->setCoordSystem(orvCore::LLA);
  useXYZ_ = useXYZ;
  csvPos_ = std::make_unique<CSVPos>(scenario_, this);
  GenericDataUD* scenarioData = scenario_->createGenericData(0);

  {
    LineFile file(fileName);
    learnFormat_(file.stream());
  }
  double fileSize = 0.0;
  {
    LineFile file(fileName);
    readSettingsAndLegends_(file.stream());
    fileSize = static_cast<double>(lineBytes_);
  }

  const int format = DataFormat();
  if (format != FORMAT_SCORE && format != FORMAT_PMRF) {
    std::cerr << "\nCurrently Brumara .csv to .asi file converter only handles only PMRF and SCORE .csv files\n\n";
    scenario_ = nullptr;
    return 1;
  }
  if (format == FORMAT_PMRF) {
    scenario_->addExternalFile(EFT_GOG_FILE, "hawaii_isles.gog");
    applyOrigin_(false);
  } else {
    scenario_->addExternalFile(EFT_GOG_FILE, "!SOCAL_Overlays.gog");
    scenario_->addExternalFile(EFT_GOG_FILE, "States.gog");
    // Without an ORG line the scenario keeps its origin, but X/Y columns
    // still need one to be measured from: the range's own.
    if (!converter_.hasReferenceOrigin())
      converter_.setReferenceOrigin(refLat_ * CSVFields::DEG_TO_RAD, refLon_ * CSVFields::DEG_TO_RAD, refAlt_);
  }

  bool complete = false;
  {
    LineFile file(fileName);
    complete = readPositionsAndEvents_(file.stream(), fileSize);
  }
  if (!complete) {
    scenario_ = nullptr;
    return 2;
  }
  if (csvEvt_) csvEvt_->CreateEvents(scenario_, this, csvPos_.get(), scenarioData);
  scenario_ = nullptr;
  return 0;
}

void CSVFile::learnFormat_(std::istream& in) {
  std::string line;
  std::vector<std::string> tokens;
  lineNumber_ = 0;
  while (orvCore::getStrippedLine(in, line)) {
    ++lineNumber_;
    if (!recordIs(line, "PKL", 3)) continue;
    csvTokenize_(tokens, line);
    if (tokens.size() < 9) continue;
    if (orvCore::caseCompare(tokens[7], "Source") == 0 && orvCore::caseCompare(tokens[8], "TID") == 0) {
      format_ = FORMAT_SCORE;
      refLat_ = SCORE_LAT;
      refLon_ = SCORE_LON;
      return;
    }
    if (orvCore::caseCompare(tokens[7], "VID") == 0) {
      format_ = FORMAT_PMRF;
      refLat_ = PMRF_LAT;
      refLon_ = PMRF_LON;
      return;
    }
  }
}

void CSVFile::readSettingsAndLegends_(std::istream& in) {
  std::string line;
  std::vector<std::string> tokens;
  lineNumber_ = 0;
  lineBytes_ = 0;
  while (orvCore::getStrippedLine(in, line)) {
    ++lineNumber_;
    lineBytes_ += line.size() + 1;
    // Only these four records matter in this pass; the rest are not split.
    const bool cla = recordIs(line, "CLA", 3), src = recordIs(line, "SRC", 3), org = recordIs(line, "ORG", 3),
               leg = recordIs(line, "LEG", 3);
    if (!cla && !src && !org && !leg) continue;
    csvTokenize_(tokens, line);
    if (cla && tokens.size() >= 2) {
      // Case matters here: "secret" is no level.
      classification_ = tokens[1] == "FOUO" ? 2 : tokens[1] == "CONFIDENTIAL" ? 3 : tokens[1] == "SECRET" ? 4 : 1;
      const ClassificationLevel& level = kClassifications[classification_ - 1];
      scenario_->setClassification(level.label, level.color);
    } else if (src && tokens.size() >= 3) {
      description_ = tokens[1] + "  " + tokens[2];
      scenario_->setDesc(description_);
    } else if (org && tokens.size() >= 3) {
      setOrigin_(tokens);
    } else if (leg) {
      csvPos_->AddLEG(tokens, scenario_, DataFormat());
    }
  }
}

void CSVFile::setOrigin_(const std::vector<std::string>& tokens) {
  refLat_ = CSVFields::toDouble(tokens[1]);
  refLon_ = CSVFields::toDouble(tokens[2]);
  // Field 3 is not read; a line that ends before field 4 has altitude 0.
  refAlt_ = tokens.size() > 4 ? CSVFields::toDouble(tokens[4]) : 0.0;
  const bool known = (refLat_ == SCORE_LAT && refLon_ == SCORE_LON) || (refLat_ == PMRF_LAT && refLon_ == PMRF_LON);
  if (!known) {
    std::cerr << kOriginBanner << std::flush;
    if (originWarningPause_ > 0) usleep(originWarningPause_);
  }
  applyOrigin_(true);
}

void CSVFile::applyOrigin_(bool report) {
  const double lat = refLat_ * CSVFields::DEG_TO_RAD;
  const double lon = refLon_ * CSVFields::DEG_TO_RAD;
  const int result = scenario_->setLatLonAlt(lat, lon, refAlt_);
  if (result != UD_NO_ERROR && report)
    writeErrorStreamUD("Line " + std::to_string(lineNumber_) + " ORG: " + udErrorString(result) + "\n");
  converter_.setReferenceOrigin(lat, lon, refAlt_);
}

bool CSVFile::readPositionsAndEvents_(std::istream& in, double fileSize) {
  std::string line;
  std::vector<std::string> tokens;
  const int format = DataFormat();
  lineNumber_ = 0;
  double bytes = 0.0;
  while (orvCore::getStrippedLine(in, line)) {
    ++lineNumber_;
    bytes += static_cast<double>(line.size() + 1);
    // The earlier passes are quick; this one is the load's length.
    if (progress_ != nullptr && lineNumber_ % 8192 == 0 &&
        progress_->updateProgress(fileSize > 0.0 ? static_cast<int>(100.0 * bytes / fileSize) : 0))
      return false;
    if (recordIs(line, "POS", 3)) {
      csvTokenize_(tokens, line);
      csvPos_->AddPOS(tokens, format);
    } else if (recordIs(line, "EVT", 3)) {
      csvTokenize_(tokens, line);
      if (!csvEvt_) csvEvt_ = std::make_unique<CSVEvt>(this);
      csvEvt_->AddEVT(tokens, format);
    }
  }
  return true;
}

int loadRangeFile(const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress) {
  CSVFile file;
  file.setProgress(progress);
  switch (file.ParseCSVFile(path, &scenario, -1, 0)) {
    case 0: return UD_NO_ERROR;
    case 2: return UD_USER_CANCEL;
    default: return UD_FATAL;
  }
}
