#pragma once
// What the read engine sees of a progress dialog. The engine's scale is
// tenths of a percent (0 to 1000), updated at most once per whole percent.

namespace FileReaderPlugin {

class FileReaderProgress {
 public:
  virtual ~FileReaderProgress() = default;
  virtual void setValue(int value) = 0;
  // Lets the host's events run during a long read.
  virtual void runWhileEvents() = 0;
  virtual bool isCanceled() = 0;
};

class NullFileReaderProgress : public FileReaderProgress {
 public:
  void setValue(int) override {}
  void runWhileEvents() override {}
  bool isCanceled() override { return false; }
};

}  // namespace FileReaderPlugin
