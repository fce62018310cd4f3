#include "platform/system/MousePointer_win32.h"

#include <gtest/gtest.h>

#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

TEST(MousePointerOfWindows, IsTheHourglassUntilItIsReset) {
  const auto pointer = SystemMousePointer();
  pointer->ShowHourglass();
  EXPECT_EQ(GetCursor(), LoadCursor(nullptr, IDC_WAIT));
  pointer->Reset();
  EXPECT_EQ(GetCursor(), LoadCursor(nullptr, IDC_ARROW));
  EXPECT_NE(LoadCursor(nullptr, IDC_ARROW), LoadCursor(nullptr, IDC_WAIT));
}

}  // namespace
}  // namespace imptable
