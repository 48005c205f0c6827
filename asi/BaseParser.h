#pragma once
// The root of every ASI command class. A keyword is one class in two layers:
// AsiInterface::X parses in stage 1 without the host; AsiReader::X adds
// transmit() and clone(). BaseParser holds what all of them share: the
// keyword, the line, the error and warning latches, the message path, the
// argument-count checks, time and angle conversion, and the frame parsers.

#include <cstdint>
#include <string>
#include <vector>

#include "hostapi/PICommon.h"
#include "hostapi/PIDataRecords.h"
#include "pipeline/CommandParser.h"

namespace AsiInterface {

// How radianConvert_ wraps an angle; any other value leaves it as it is.
enum AngleFix { ANGLEFIX_0_2PI = 1, ANGLEFIX_0_2PI_INCLUSIVE = 2, ANGLEFIX_PLUS_MINUS_PI = 3 };

class BaseParser : public FileReaderPlugin::CommandParser {
 public:
  explicit BaseParser(const std::string& name) : name_(name) {}

  FileReaderPlugin::CommandParser* clone() const override = 0;
  std::string name() const override { return name_; }
  void setMessageManager(FileReaderPlugin::MessageManager* manager) override { messageManager_ = manager; }
  void executeStage1(const std::vector<std::string>& tokens) override = 0;
  void transmit() override = 0;
  bool hasError() override { return hasError_; }
  bool hasWarning() override { return hasWarning_; }
  unsigned long lineNumber() const override { return lineNumber_; }
  void setLineNumber(unsigned long line) override { lineNumber_ = line; }
  // Reports "Line <n> <keyword>: <text>".
  void setMessage(PICommon::NotifySeverity severity, const std::string& text) override;
  // Sets the latch of the severity and reports `text` as it stands, if a
  // message manager is set.
  void setMessage(PICommon::NotifySeverity severity, const std::string& text, unsigned long line) override;
  // For keywords that share a class.
  virtual void setName(const std::string& name) { name_ = name; }

 protected:
  // Token counts include the keyword. Each answers 0 when the count is
  // acceptable, else reports and answers 1.
  int validateNumberOfTokens_(size_t expected, size_t count);
  int validateAtLeastTokens_(size_t minimum, size_t count);
  int validateRangeTokens_(size_t minimum, size_t maximum, size_t count);

  // Seconds since the start of `referenceYear`; -1 passes only as the static
  // marker when `allowStatic`. 0 on success, 1 after reporting. `lineNumber`
  // is not used.
  int parseTimeString_(const std::string& text, int referenceYear, unsigned long lineNumber, bool allowStatic,
                       double& result);
  // An angle in radians (degrees when `isDegrees`), wrapped by `angleFix`.
  // 1 without a message when `text` is no number: the caller words it.
  int radianConvert_(bool isDegrees, int angleFix, const std::string& text, double& result) const;

  // Frame arguments; 0 on success, 1 after reporting.
  int setCoordinateSystem_(const std::string& text, PIData::PICoordReferenceFrame& frame);
  int setVerticalDatum_(const std::string& text, PIData::PICoordReferenceFrame& frame);
  int setMagneticVariance_(const std::string& text, PIData::PICoordReferenceFrame& frame);
  // A reference origin: latitude and longitude as degree strings, altitude
  // in metres. The frame changes only when all three parse; else the error
  // "Invalid coordinates".
  int setReferenceLla_(const std::string& lat, const std::string& lon, const std::string& alt,
                       PIData::PICoordReferenceFrame& frame);

  // A colour argument in the host's 0xRRGGBBAA order; never fails.
  static uint32_t parseColor_(const std::string& text);

 private:
  std::string countText_(size_t arguments) const;

  std::string name_;
  bool hasError_ = false;
  bool hasWarning_ = false;
  unsigned long lineNumber_ = 0;
  FileReaderPlugin::MessageManager* messageManager_ = nullptr;
};

}  // namespace AsiInterface
