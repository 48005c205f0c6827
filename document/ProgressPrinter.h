#pragma once
// The progress dialog of a side-format load. Its scale of 0 to 1000 has two
// halves: up to 500 while the file becomes a document, from 500 on while the
// document goes to the host, one step per object sent. The dialog itself is
// touched at most every 0.1 seconds (and at the end), so that files with
// millions of points cost no dialog traffic.

#include <cstdint>
#include <memory>
#include <string>

#include "document/ScenarioUD.h"

namespace PIGUI {
class PIProgressDialog;
}

namespace ASIPlugin {

class ProgressPrinter : public ScenarioUD::PercentCallback {
 public:
  // Shows the dialog for the file (its last path component is shown).
  explicit ProgressPrinter(const std::string& fileName);
  ~ProgressPrinter() override;
  ProgressPrinter(const ProgressPrinter&) = delete;
  ProgressPrinter& operator=(const ProgressPrinter&) = delete;

  // The reading half: `percent` 0..100 of the file. A negative value only
  // asks. Answers whether the user canceled.
  bool updateProgress(int percent) override;
  // Starts the sending half with the number of objects to send.
  void setTransmitCount(uint64_t count);
  // One object sent; answers whether the user canceled.
  bool incrementTransmits();
  bool isCanceled() const;
  void hide();

  int value() const { return percentOf1000_; }

 private:
  void setValue_(int value);

  std::unique_ptr<PIGUI::PIProgressDialog> dialog_;
  int32_t percentOf1000_ = -1;
  double lastUpdateTime_ = 0.0;
  uint64_t transmitCount_ = 0;
  uint64_t transmits_ = 0;
  std::string secondLabel_;
};

}  // namespace ASIPlugin
