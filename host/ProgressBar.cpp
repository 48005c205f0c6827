#include "host/ProgressBar.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "host/TerminalText.h"

namespace RefHost {

namespace {

int terminalColumns() {
  winsize size{};
  if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  if (const char* columns = std::getenv("COLUMNS")) {
    const int n = std::atoi(columns);
    if (n > 0) return n;
  }
  return 80;
}

std::string rateText(double fraction, double elapsed, double workBytes) {
  if (!(elapsed > 0.2) || !(fraction > 0.0)) return "";
  char text[32];
  if (workBytes > 0.0) {
    double rate = fraction * workBytes / elapsed;
    static const char* const units[] = {"B/s", "kB/s", "MB/s", "GB/s"};
    int unit = 0;
    while (rate >= 1000.0 && unit < 3) {
      rate /= 1000.0;
      ++unit;
    }
    std::snprintf(text, sizeof text, "%.1f %s", rate, units[unit]);
  } else {
    std::snprintf(text, sizeof text, "%.1f %%/s", 100.0 * fraction / elapsed);
  }
  return text;
}

// "0:42 left", "1:02:03 left"; "--:-- left" until an estimate is possible.
std::string timeLeftText(double fraction, double elapsed) {
  if (!(elapsed > 0.2) || !(fraction > 0.005) || fraction >= 1.0) return fraction >= 1.0 ? "0:00 left" : "--:-- left";
  const double left = elapsed * (1.0 - fraction) / fraction;
  if (!(left < 360000.0)) return ">99h left";
  const long seconds = std::lround(std::ceil(left));
  char text[32];
  if (seconds >= 3600)
    std::snprintf(text, sizeof text, "%ld:%02ld:%02ld left", seconds / 3600, seconds / 60 % 60, seconds % 60);
  else
    std::snprintf(text, sizeof text, "%ld:%02ld left", seconds / 60, seconds % 60);
  return text;
}

}  // namespace

ProgressBar::ProgressBar(bool enabled) : active_(enabled && isatty(STDERR_FILENO)) {}

ProgressBar::~ProgressBar() { hide(); }

void ProgressBar::show(const std::string& label, std::int64_t minimum, std::int64_t maximum) {
  label_ = label;
  minimum_ = minimum;
  maximum_ = maximum;
  visible_ = true;
  shownAt_ = std::chrono::steady_clock::now();
  lastLine_.clear();
  draw_();
}

void ProgressBar::update(std::int64_t value) {
  value_ = value;
  draw_();
}

void ProgressBar::setLabel(const std::string& label) {
  label_ = label;
  draw_();
}

void ProgressBar::hide() {
  if (active_ && visible_) {
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
  }
  visible_ = false;
  lastLine_.clear();
}

std::string ProgressBar::layout(int columns, double fraction, double elapsed, double workBytes,
                                const std::string& label) {
  if (!(fraction >= 0.0)) fraction = 0.0;
  if (fraction > 1.0) fraction = 1.0;
  const std::size_t width = columns > 1 ? static_cast<std::size_t>(columns - 1) : 0;
  char percent[8];
  std::snprintf(percent, sizeof percent, "%3d%%", static_cast<int>(fraction * 100.0));

  // What matters most comes first and is dropped last: the percentage, the
  // time left, the rate, the bar, then the label.
  std::string figures = percent;
  const std::string left = timeLeftText(fraction, elapsed);
  const std::string rate = rateText(fraction, elapsed, workBytes);
  if (figures.size() + 1 + left.size() <= width) figures += " " + left;
  if (!rate.empty() && figures.size() + 1 + rate.size() <= width) figures += " " + rate;

  // The bar takes what is left once the label has up to 20 columns of its
  // own, between 10 and 30 cells; on a narrow terminal it goes.
  const std::size_t room = width > figures.size() ? width - figures.size() : 0;
  const std::size_t labelWidth = displayWidth(label);
  const std::size_t wantLabel = label.empty() ? 0 : std::min<std::size_t>(labelWidth, 20) + 1;
  std::size_t barCells = 0;
  if (room >= wantLabel + 3 + 10) barCells = std::min<std::size_t>(30, room - wantLabel - 3);
  std::string line;
  if (barCells > 0) {
    const std::size_t filled = static_cast<std::size_t>(fraction * static_cast<double>(barCells));
    line = "[" + std::string(filled, '#') + std::string(barCells - filled, ' ') + "] ";
  }
  line += figures;
  if (!label.empty() && line.size() + 1 < width) line += " " + fitWidth(label, width - line.size() - 1);
  return displayWidth(line) <= width ? line : fitWidth(line, width);
}

void ProgressBar::draw_() {
  if (!active_ || !visible_) return;
  const double span = maximum_ > minimum_ ? static_cast<double>(maximum_ - minimum_) : 1.0;
  const double fraction = static_cast<double>(value_ - minimum_) / span;
  const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - shownAt_).count();
  const std::string line = layout(terminalColumns(), fraction, elapsed, workBytes_, terminalSafe(label_));
  if (line == lastLine_) return;  // redraw only on change
  lastLine_ = line;
  std::fprintf(stderr, "\r\033[K%s", line.c_str());
  std::fflush(stderr);
}

}  // namespace RefHost
