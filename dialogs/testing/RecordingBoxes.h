#ifndef DIALOGS_TESTING_RECORDING_BOXES_H_
#define DIALOGS_TESTING_RECORDING_BOXES_H_

#include <string>
#include <string_view>
#include <vector>

#include "dialogs/DialogBoxes.h"

namespace imptable {

/// Keeps the boxes instead of showing them, as "Warn|caption|text", "Inform|..." and "Ask|...".
class RecordingBoxes : public DialogBoxes {
 public:
  void Warn(std::string_view text, std::string_view caption) override {
    Keep("Warn", text, caption);
  }
  void Inform(std::string_view text, std::string_view caption) override {
    Keep("Inform", text, caption);
  }
  bool Ask(std::string_view text, std::string_view caption) override {
    Keep("Ask", text, caption);
    return answer;
  }

  std::vector<std::string> shown;
  bool answer = true;  // to every question

 private:
  void Keep(std::string_view kind, std::string_view text, std::string_view caption) {
    shown.push_back(std::string(kind) + '|' + std::string(caption) + '|' + std::string(text));
  }
};

}  // namespace imptable

#endif  // DIALOGS_TESTING_RECORDING_BOXES_H_
