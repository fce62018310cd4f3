#include "tests/scenarios/Advice.h"

#include <algorithm>

namespace imptable {
namespace {

constexpr const char* kCommand = ": imptable ";
constexpr const char* kThen = ", then ";

}  // namespace

std::vector<std::string> AdvisedCommands(const std::string& said) {
  const std::size_t colon = said.find(kCommand);
  if (colon == std::string::npos) return {};
  const std::size_t begin = colon + 2;
  const std::string text = said.substr(begin, said.find('\n', begin) - begin);
  std::vector<std::string> commands;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t end = std::min(text.find(kThen, from), text.size());
    commands.push_back(text.substr(from, end - from));
    from = end + std::string(kThen).size();
  }
  return commands;
}

}  // namespace imptable
