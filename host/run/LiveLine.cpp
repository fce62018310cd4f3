#include "host/run/LiveLine.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/text/Utf8.h"

namespace imptable {
namespace {

constexpr std::int64_t kMostSeconds = 99LL * 3600;  // beyond that a forecast says nothing

std::string TwoDigits(std::int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

/// h:mm:ss, or m:ss when it is less than an hour.
std::string DurationText(std::int64_t seconds) {
  const std::int64_t hours = seconds / 3600;
  const std::int64_t minutes = seconds / 60 % 60;
  const std::string start =
      hours > 0 ? std::to_string(hours) + ':' + TwoDigits(minutes) : std::to_string(minutes);
  return start + ':' + TwoDigits(seconds % 60);
}

std::size_t CharacterLength(std::string_view text, bool utf8) {
  return utf8 ? std::max<std::size_t>(Utf8Length(text), 1) : 1;
}

int CharactersIn(std::string_view text, bool utf8) {
  int characters = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterLength(text.substr(at), utf8)) {
    ++characters;
  }
  return characters;
}

/// A line that must fit a terminal. A part that doesn't fit is left out; only the first part is
/// cut.
class FittedLine {
 public:
  FittedLine(int columns, bool utf8)
      : room_(columns > 0 ? static_cast<std::size_t>(columns) : std::string::npos), utf8_(utf8) {}

  void Add(std::string_view part) {
    std::size_t characters = 0;
    std::size_t end = 0;
    for (; end < part.size() && characters < room_; ++characters) {
      end += CharacterLength(part.substr(end), utf8_);
    }
    if (end < part.size() && !line_.empty()) {
      room_ = 0;
    } else {
      line_ += part.substr(0, end);
      room_ -= characters;
    }
  }

  const std::string& line() const { return line_; }

 private:
  std::size_t room_;  // characters
  bool utf8_;
  std::string line_;
};

}  // namespace

std::string LiveLineText(const RunProgress& progress, double seconds, int columns,
                         const HostTexts& texts) {
  const std::int64_t written = progress.lines[Outcome::kInserted] +
                               progress.lines[Outcome::kModified] +
                               progress.lines[Outcome::kDeleted];
  const std::int64_t rate =
      seconds > 0 ? std::llround(static_cast<double>(progress.read) / seconds) : 0;
  FittedLine line(columns, texts.encoding().IsUtf8());
  line.Add(texts.Text(HostText::kLiveLines, {texts.Number(progress.read), texts.Number(written),
                                             texts.Number(progress.lines[Outcome::kRejected])}));
  line.Add(texts.Text(HostText::kLiveRate, {texts.Number(rate)}));
  if (progress.bytes_in_file > 0) {
    const double share = std::min(1.0, static_cast<double>(progress.bytes_read) /
                                           static_cast<double>(progress.bytes_in_file));
    const auto percent = static_cast<std::int64_t>(std::floor(share * 100));
    line.Add(texts.Text(HostText::kLiveShare, {std::to_string(percent)}));
    const double left = share > 0 ? seconds / share - seconds : 0;
    if (share > 0 && seconds > 0 && left <= static_cast<double>(kMostSeconds)) {
      line.Add(texts.Text(HostText::kLiveTimeLeft, {DurationText(std::llround(left))}));
    }
  }
  return line.line();
}

void LiveLine::Draw(const RunProgress& progress, double seconds) {
  const std::string text = LiveLineText(progress, seconds, terminal_.Columns(), texts_);
  Erase();
  out_ << text << std::flush;
  drawn_ = CharactersIn(text, texts_.encoding().IsUtf8());
}

void LiveLine::Remove() {
  if (!drawn_) return;
  Erase();
  out_ << std::flush;
  drawn_.reset();
}

void LiveLine::Erase() {
  const int columns = terminal_.Columns();
  const int rows_above = columns > 0 && drawn_ > columns ? (*drawn_ - 1) / columns : 0;
  if (rows_above > 0) {
    out_ << "\r\x1b[" << rows_above << "A\x1b[J";
  } else {
    out_ << "\r\x1b[K";
  }
}

}  // namespace imptable
