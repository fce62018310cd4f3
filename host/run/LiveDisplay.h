#ifndef HOST_RUN_LIVE_DISPLAY_H_
#define HOST_RUN_LIVE_DISPLAY_H_

#include <cstdint>
#include <string>

#include "core/HostLibrary.h"

namespace imptable {

/// The display object of a run on the command line: keeps what is put on it.
class LiveDisplay : public HostDisplay, private HostForm {
 public:
  HostForm* wForm() override { return this; }

 private:
  std::string Text() const override { return text_; }
  void SetText(const std::string& text) override { text_ = text; }
  std::int32_t Tag() const override { return tag_; }
  void SetTag(std::int32_t tag) override { tag_ = tag; }

  std::string text_;
  std::int32_t tag_ = 0;
};

}  // namespace imptable

#endif  // HOST_RUN_LIVE_DISPLAY_H_
