#pragma once
// A one-line progress bar on the standard error stream, drawn only when that
// stream is a terminal, so that logs and pipes stay clean.

#include <cstdint>
#include <string>

namespace RefHost {

class ProgressBar {
 public:
  explicit ProgressBar(bool enabled);
  ~ProgressBar();
  bool active() const { return active_; }
  void show(const std::string& label, std::int64_t minimum, std::int64_t maximum);
  void update(std::int64_t value);
  void setLabel(const std::string& label);
  void hide();

 private:
  void draw_();
  bool active_;
  bool visible_ = false;
  std::string label_;
  std::int64_t minimum_ = 0;
  std::int64_t maximum_ = 100;
  std::int64_t value_ = 0;
  int lastPercent_ = -1;
};

}  // namespace RefHost
