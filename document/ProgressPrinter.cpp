#include "document/ProgressPrinter.h"

#include <algorithm>
#include <chrono>

#include "core/FileUtils.h"
#include "hostapi/PIGUI.h"

namespace ASIPlugin {

namespace {

constexpr int HALF = 500;
constexpr int FULL = 1000;
constexpr double MIN_DIALOG_INTERVAL = 0.1;  // seconds

double now() {
  using namespace std::chrono;
  return duration<double>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

ProgressPrinter::ProgressPrinter(const std::string& fileName) {
  const std::string name = UTILS::fileBaseName(fileName);
  dialog_ = std::make_unique<PIGUI::PIProgressDialog>(nullptr, "Reading File",
                                                       "Reading file " + name + ".  Please wait...", true, FULL);
  dialog_->show();
  dialog_->runWhileEvents();
  secondLabel_ = "Loading scenario data in " + name + "...";
  lastUpdateTime_ = now();
}

ProgressPrinter::~ProgressPrinter() = default;

bool ProgressPrinter::updateProgress(int percent) {
  if (percent >= 0) setValue_(std::min(std::max(percent * 5, 0), HALF));
  return isCanceled();
}

void ProgressPrinter::setTransmitCount(uint64_t count) {
  transmitCount_ = count;
  transmits_ = 0;
}

bool ProgressPrinter::incrementTransmits() {
  ++transmits_;
  if (transmitCount_ == 0)
    setValue_(HALF);
  else
    setValue_(HALF + static_cast<int>(500.0 * static_cast<double>(transmits_) / static_cast<double>(transmitCount_)));
  return isCanceled();
}

bool ProgressPrinter::isCanceled() const { return dialog_->isCanceled(); }

void ProgressPrinter::hide() { dialog_->hide(); }

void ProgressPrinter::setValue_(int value) {
  if (percentOf1000_ < HALF && value >= HALF) dialog_->setLabelText(secondLabel_);
  percentOf1000_ = value;
  const double time = now();
  if (value < FULL && time - lastUpdateTime_ <= MIN_DIALOG_INTERVAL) return;
  dialog_->setValue(value);
  dialog_->runWhileEvents();
  lastUpdateTime_ = time;
}

}  // namespace ASIPlugin
