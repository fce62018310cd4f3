#ifndef DIALOGS_COLUMNS_DATE_FORMAT_PRESENTER_H_
#define DIALOGS_COLUMNS_DATE_FORMAT_PRESENTER_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "dialogs/columns/DatePattern.h"

namespace imptable {

/// What the date format dialog shows. Its captions are messages 42 (title), 43, 51, 44, 49, 50, 2
/// and 3, and kDateOptionCaptions.
struct DateFormatState {
  std::size_t style = 0;            // selected button of OptD, 0 to 7
  bool has_separator = false;       // Option6 "Avec" is selected, else Option5 "Sans"
  std::string separator;            // TextSep
  TimeCode time = TimeCode::kNone;  // kMinutes: chkh1(0) is checked; kSeconds: chkh1(1)

  bool operator==(const DateFormatState&) const = default;
};

class DateFormatView {
 public:
  virtual ~DateFormatView() = default;
  virtual void Show(const DateFormatState& state) = 0;
};

/// Decides what the date format dialog does and shows. Borrows module and view. Every event shows
/// the state anew.
class DateFormatPresenter {
 public:
  DateFormatPresenter(const ModuleCommun& module, DateFormatView& view);

  /// @param format  the row's format text. A text that is no format opens the dialog on the first
  /// style, without separator and time.
  void Open(std::string_view format);

  /// @param style  index of the button in OptD.
  void ChooseStyle(std::size_t style);

  void ChooseSeparator(bool with);

  /// @param text  all of TextSep; only its first character is kept.
  void TypeSeparator(std::string_view text);

  /// @param box  index of the box in chkh1. Checking one box clears the other.
  void ToggleTime(std::size_t box, bool checked);

  /// @return the format text, in the current language.
  std::string Confirm() const;

 private:
  const ModuleCommun& module_;
  DateFormatView& view_;
  DateFormatState state_;
};

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_DATE_FORMAT_PRESENTER_H_
