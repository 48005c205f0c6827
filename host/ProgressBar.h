#pragma once
// A one-line progress bar on the standard error stream, drawn only when that
// stream is a terminal, so that logs and pipes stay clean. The line fits the
// terminal's width (read at every draw, so a resized window is followed) and
// shows the rate and the time left beside the dialog's label.

#include <chrono>
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
  // Bytes of the work that the dialog's range stands for (the file being
  // read), so that the rate can be shown in bytes per second; 0: unknown,
  // the rate is then shown in percent per second.
  void setWorkBytes(double bytes) { workBytes_ = bytes; }

  // The line for a terminal of `columns` columns: the bar, the percentage,
  // the rate, the time left and the label, narrowed to fit. Never longer
  // than columns - 1 characters, so that the terminal does not wrap it.
  static std::string layout(int columns, double fraction, double elapsedSeconds, double workBytes,
                            const std::string& label);

 private:
  void draw_();
  bool active_;
  bool visible_ = false;
  std::string label_;
  std::int64_t minimum_ = 0;
  std::int64_t maximum_ = 100;
  std::int64_t value_ = 0;
  double workBytes_ = 0.0;
  std::chrono::steady_clock::time_point shownAt_;
  std::string lastLine_;
};

}  // namespace RefHost
