#include "pipeline/AsiLineReader.h"

#include <limits>

#include "pipeline/AsiLine.h"

namespace FileReaderPlugin {

AsiLineReader::AsiLineReader(std::istream& stream, std::size_t maxLength)
    : stream_(stream), maxLength_(maxLength), buffer_(new char[maxLength + 1]) {
  const std::streampos start = stream_.tellg();
  if (start >= 0 && stream_.seekg(0, std::ios::end)) {
    const std::streampos end = stream_.tellg();
    if (end >= start) size_ = static_cast<std::int64_t>(end - start);
  }
  stream_.clear();
  if (start >= 0) stream_.seekg(start);
}

AsiLineReader::Status AsiLineReader::next() {
  line_.clear();
  if (!stream_.good()) return stream_.bad() ? FAILED : END;

  // getline stores at most maxLength_ characters; it sets failbit when the
  // line goes on beyond that, and eofbit on a last line without a line feed.
  stream_.getline(buffer_.get(), static_cast<std::streamsize>(maxLength_ + 1));
  const std::streamsize taken = stream_.gcount();
  consumed_ += static_cast<std::uint64_t>(taken);
  if (stream_.bad()) return FAILED;

  if (stream_.fail()) {
    if (taken == 0) return END;  // nothing left
    // Too long: keep its start, skip the rest of it up to the line feed.
    line_.assign(buffer_.get(), static_cast<std::size_t>(taken));
    stream_.clear();
    stream_.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    consumed_ += static_cast<std::uint64_t>(stream_.gcount());
    if (stream_.bad()) return FAILED;
    stripLineEnd(line_);
    return TOO_LONG;
  }
  // A line that ended at its line feed counts it in `taken`; the stored text
  // is what getline put in the buffer, up to its null.
  const bool feed = !stream_.eof();
  line_.assign(buffer_.get(), static_cast<std::size_t>(taken) - (feed ? 1 : 0));
  // A last line without its line feed counts as if it had one, as every
  // other line does: the progress of a read goes by lines, not bytes.
  if (!feed) ++consumed_;
  stripLineEnd(line_);
  return LINE;
}

}  // namespace FileReaderPlugin
