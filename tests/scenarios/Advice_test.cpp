#include "tests/scenarios/Advice.h"

#include <gmock/gmock.h>

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Advice, IsTheCommandsOfAnErrorLine) {
  EXPECT_THAT(AdvisedCommands("imptable: task \"T\": to go on from there: imptable set S T "
                              "RecTrace=1, then imptable run S T --resume\n"),
              ElementsAre("imptable set S T RecTrace=1", "imptable run S T --resume"));
  EXPECT_THAT(AdvisedCommands("imptable: task \"T\": run it again\n"), IsEmpty());
}

}  // namespace
}  // namespace imptable
