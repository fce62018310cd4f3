#ifndef TESTS_SCENARIOS_ADVICE_H_
#define TESTS_SCENARIOS_ADVICE_H_

#include <string>
#include <vector>

namespace imptable {

/// The commands that an English error line of the command tells its user to type, in their order;
/// none when it tells none.
std::vector<std::string> AdvisedCommands(const std::string& said);

}  // namespace imptable

#endif  // TESTS_SCENARIOS_ADVICE_H_
