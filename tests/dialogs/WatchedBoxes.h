#ifndef TESTS_DIALOGS_WATCHED_BOXES_H_
#define TESTS_DIALOGS_WATCHED_BOXES_H_

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

#include "dialogs/widgets/WidgetBoxes.h"

namespace imptable {

/// The real message boxes, with a record of what they are to say: "Warn|caption|text",
/// "Inform|...", "Ask|...".
class WatchedBoxes : public DialogBoxes, public WarningBox {
 public:
  /// @param encoding  borrowed.
  explicit WatchedBoxes(const TextEncoding& encoding) : real_(encoding) {}

  void Warn(std::string_view text, std::string_view caption) override;
  void Inform(std::string_view text, std::string_view caption) override;
  bool Ask(std::string_view text, std::string_view caption) override;

  /// Waits, on the person's thread, for a box and answers it with a key, as "Return" or "Escape".
  /// @return what it shows, told as the record. @throws std::runtime_error  when none comes.
  std::string Answer(const std::string& key);

  /// What the boxes said that nobody answered. To be asked when the dialogs are gone.
  std::vector<std::string> unanswered() const { return pending_; }

 private:
  void Open(const char* kind, std::string_view text, std::string_view caption);
  void Close();
  std::size_t Closed();

  WidgetBoxes real_;
  std::mutex mutex_;
  std::vector<std::string> pending_;
  std::size_t closed_ = 0;
};

}  // namespace imptable

#endif  // TESTS_DIALOGS_WATCHED_BOXES_H_
