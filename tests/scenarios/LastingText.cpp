#include "tests/scenarios/LastingText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace imptable {
namespace {

// 0 stands for a digit, 9 for one or two. The forms of an American Windows user come first, because
// a text in such a form may begin like another form.
constexpr std::array<std::string_view, 4> kDates{"9/9/0000 9:00:00 AM", "9/9/0000 9:00:00 PM",
                                                 "0000-00-00 00:00:00", "00/00/0000 00:00:00"};
constexpr std::string_view kStrong = "<strong>";
constexpr std::string_view kDriver = "[ma-";

bool IsDigit(std::string_view text, std::size_t at) {
  return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

/// The length of the form at the text's start; 0 when it isn't there.
std::size_t LengthOf(std::string_view form, std::string_view text) {
  std::size_t at = 0;
  for (const char wanted : form) {
    const bool is_digit = IsDigit(text, at);
    const bool fits =
        wanted == '0' || wanted == '9' ? is_digit : at < text.size() && text[at] == wanted;
    if (!fits) return 0;
    at += wanted == '9' && IsDigit(text, at + 1) ? 2 : 1;
  }
  return at;
}

std::size_t DateLength(std::string_view text) {
  for (const std::string_view form : kDates) {
    if (const std::size_t length = LengthOf(form, text); length > 0) return length;
  }
  return 0;
}

/// The length of an HTML report's mark-up before the text of a line.
std::size_t MarkUpLength(std::string_view line) {
  const std::size_t strong = line.substr(0, line.find('\n')).find(kStrong);
  const bool leads = strong == 0 || (strong != std::string_view::npos && line.starts_with("<font"));
  return leads ? strong + kStrong.size() : 0;
}

/// The length of "[ma-3.1.15][10.11.19-MariaDB]". The second part is missing before a connection.
std::size_t VersionsLength(std::string_view text) {
  const std::size_t end = text.find(']') + 1;
  if (end == 0 || end >= text.size() || text[end] != '[') return end;
  return text.find(']', end) + 1;
}

}  // namespace

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

std::string WithoutCarriageReturns(std::string text) {
  for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at)) {
    text.erase(at, 1);
  }
  return text;
}

std::string WithoutDatesAndVersions(const std::string& text) {
  std::string result;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t mark_up = MarkUpLength(rest);
    const std::size_t date = DateLength(rest.substr(mark_up));
    result += rest.substr(0, mark_up);
    if (date > 0) result += "{DATE}";
    rest.remove_prefix(mark_up + date);
    const std::size_t line = std::min(rest.find('\n'), rest.size() - 1) + 1;
    result += rest.substr(0, line);
    rest.remove_prefix(line);
  }
  for (std::size_t at = result.find(kDriver); at != std::string::npos; at = result.find(kDriver)) {
    result.replace(at, VersionsLength(std::string_view(result).substr(at)), "[{VERSIONS}]");
  }
  return result;
}

std::string WithoutSourceFigures(const std::string& text) {
  if (!text.starts_with("REP 2\n")) return text;
  std::string result;
  bool in_identity = true;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t end = std::min(text.find('\n', from), text.size() - 1) + 1;
    std::string line = text.substr(from, end - from);
    from = end;
    for (const auto& [word, stand_in] : {std::pair<std::string, const char*>{"SIZE ", "{SIZE}\n"},
                                         {"TIME ", "{TIME}\n"},
                                         {"HEAD ", "{DIGEST}\n"},
                                         {"TAIL ", "{DIGEST}\n"}}) {
      if (!in_identity || !line.starts_with(word)) continue;
      line = word + stand_in;
      in_identity = word != "TAIL ";
    }
    result += line;
  }
  return result;
}

bool ReportLinesEndAsTheyShould(const std::string& report) {
  if (!report.empty() && !report.ends_with("\r\n")) return false;
  for (std::size_t at = report.find('\n'); at != std::string::npos;
       at = report.find('\n', at + 1)) {
    const std::string_view next = std::string_view(report).substr(at + 1);
    const bool dated = DateLength(next.substr(MarkUpLength(next))) > 0;
    if (dated && (at == 0 || report[at - 1] != '\r')) return false;
  }
  return true;
}

}  // namespace imptable
