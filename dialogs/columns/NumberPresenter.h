#ifndef DIALOGS_COLUMNS_NUMBER_PRESENTER_H_
#define DIALOGS_COLUMNS_NUMBER_PRESENTER_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/ModuleCommun.h"
#include "dialogs/DialogBoxes.h"

namespace imptable {

/// What the number dialog edits.
enum class NumberKind : std::uint8_t { kLength, kDecimals };

/// What the number dialog shows.
struct NumberState {
  std::string title;
  std::string text;  // TextNombre

  bool operator==(const NumberState&) const = default;
};

class NumberView {
 public:
  virtual ~NumberView() = default;
  virtual void Show(const NumberState& state) = 0;
};

/// Decides what the number dialog does and shows; borrows all it is given. Every event except
/// typing shows the state anew.
class NumberPresenter {
 public:
  NumberPresenter(const ModuleCommun& module, DialogBoxes& boxes, NumberView& view,
                  NumberKind kind);

  /// @param text  of the cell, maybe empty.
  void Open(std::string_view text);

  /// @param text  all of TextNombre.
  void Type(std::string_view text);

  /// One more. A text that is no whole number counts as 0.
  void StepUp();

  /// One less, never below 1. A text that is no whole number stays.
  void StepDown();

  /// @return the number without leading zeros; nullopt after a box, when the text is no whole
  /// number: the dialog then stays open.
  std::optional<std::string> Confirm();

 private:
  const ModuleCommun& module_;
  DialogBoxes& boxes_;
  NumberView& view_;
  NumberState state_;
};

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_NUMBER_PRESENTER_H_
