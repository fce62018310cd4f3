#ifndef PLATFORM_TESTING_RECORDINGWARNINGBOX_H_
#define PLATFORM_TESTING_RECORDINGWARNINGBOX_H_

#include <string>
#include <string_view>
#include <vector>

#include "platform/system/WarningBox.h"

namespace imptable {

/// Keeps the warnings instead of showing them.
class RecordingWarningBox : public WarningBox {
 public:
  struct Warning {
    std::string text;
    std::string caption;

    bool operator==(const Warning&) const = default;
  };

  void Warn(std::string_view text, std::string_view caption) override {
    warnings_.push_back({std::string(text), std::string(caption)});
  }

  const std::vector<Warning>& warnings() const { return warnings_; }

 private:
  std::vector<Warning> warnings_;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_RECORDINGWARNINGBOX_H_
