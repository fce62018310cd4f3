#ifndef TESTS_KIT_KEYED_RUN_H_
#define TESTS_KIT_KEYED_RUN_H_

#include <string>
#include <utility>
#include <vector>

#include "tests/kit/ImportRun.h"

namespace imptable {

// Values of "Mode" that look for rows by their key.
inline constexpr std::int32_t kByUpdate = 1;
inline constexpr std::int32_t kByUpdateInsert = 3;
inline constexpr std::int32_t kByDelete = 4;

/// A run that looks for rows by the column CODE, of a driver without an identifier quote character.
class KeyedRun : public ImportRun {
 public:
  using KindLines = std::vector<std::pair<std::string, ReportKind>>;

  explicit KeyedRun(std::int32_t mode) {
    Driver("info 29 \" \"");
    Set("Mode", mode);
    Set("Cle/Index", "CODE");
  }

  /// Another table, of a driver without an identifier quote character.
  void Table(std::string_view script) {
    Script(script);
    Driver("info 29 \" \"");
  }

  /// Text and kind of the lines that the host's report writer was given between the heading of the
  /// table and the end of the run.
  KindLines ModeLines() const {
    KindLines lines;
    const std::vector<WrittenLine>& all = component.host.lines;
    for (std::size_t n = 4; n + 1 < all.size(); ++n) lines.emplace_back(all[n].text, all[n].kind);
    return lines;
  }

  /// The texts that the driver was given to prepare.
  std::vector<std::string> Prepared() const { return Texts("SQLPrepare "); }

  /// The texts that the driver was given to execute at once.
  std::vector<std::string> Direct() const { return Texts("SQLExecDirect "); }

 private:
  std::vector<std::string> Texts(std::string_view call) const {
    std::vector<std::string> texts;
    for (const std::string& line : source.LogLines(call.substr(0, call.size() - 1))) {
      texts.push_back(line.substr(call.size(), line.rfind(" = ") - call.size()));
    }
    return texts;
  }
};

inline std::pair<std::string, ReportKind> Error(std::string text) {
  return {std::move(text), ReportKind::kError};
}
inline std::pair<std::string, ReportKind> Information(std::string text) {
  return {std::move(text), ReportKind::kInformation};
}

}  // namespace imptable

#endif  // TESTS_KIT_KEYED_RUN_H_
