#include "host/ProgressBar.h"

#include <unistd.h>

#include <cstdio>

namespace RefHost {

ProgressBar::ProgressBar(bool enabled) : active_(enabled && isatty(STDERR_FILENO)) {}

ProgressBar::~ProgressBar() { hide(); }

void ProgressBar::show(const std::string& label, std::int64_t minimum, std::int64_t maximum) {
  label_ = label;
  minimum_ = minimum;
  maximum_ = maximum;
  visible_ = true;
  lastPercent_ = -1;
  draw_();
}

void ProgressBar::update(std::int64_t value) {
  value_ = value;
  draw_();
}

void ProgressBar::setLabel(const std::string& label) {
  label_ = label;
  lastPercent_ = -1;
  draw_();
}

void ProgressBar::hide() {
  if (active_ && visible_) std::fputs("\r\033[K", stderr);
  visible_ = false;
}

void ProgressBar::draw_() {
  if (!active_ || !visible_) return;
  const std::int64_t span = maximum_ > minimum_ ? maximum_ - minimum_ : 1;
  std::int64_t clamped = value_ < minimum_ ? minimum_ : (value_ > maximum_ ? maximum_ : value_);
  const int percent = static_cast<int>((clamped - minimum_) * 100 / span);
  if (percent == lastPercent_) return;  // redraw only on change
  lastPercent_ = percent;
  const int width = 30, filled = percent * width / 100;
  std::string bar(static_cast<std::size_t>(filled), '#');
  bar.append(static_cast<std::size_t>(width - filled), ' ');
  std::fprintf(stderr, "\r\033[K[%s] %3d%% %.60s", bar.c_str(), percent, label_.c_str());
  std::fflush(stderr);
}

}  // namespace RefHost
