#include "platform/testing/RecordingWarningBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace imptable {
namespace {

TEST(RecordingWarningBox, KeepsTheWarningsInOrder) {
  RecordingWarningBox box;
  box.Warn("first text", "caption");
  box.Warn("second text", "");
  EXPECT_THAT(box.warnings(),
              testing::ElementsAre(RecordingWarningBox::Warning{"first text", "caption"},
                                   RecordingWarningBox::Warning{"second text", ""}));
}

}  // namespace
}  // namespace imptable
