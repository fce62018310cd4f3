#include <gtest/gtest.h>

#include <iostream>

#include "dialogs/widgets/Toolkit.h"
#include "tests/dialogs/ToolkitComplaints.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
  imptable::KeepToolkitComplaints();
  auto toolkit = imptable::Toolkit::Start();
  if (!toolkit) {
    std::cerr << "There is no screen: start it by tests/dialogs/with-screen.\n";
    return 1;
  }
  const int failed = RUN_ALL_TESTS();
  toolkit.reset();
  // The toolkit's complaints as it ended, which no test sees.
  return imptable::TakeToolkitComplaints().empty() ? failed : 1;
}
