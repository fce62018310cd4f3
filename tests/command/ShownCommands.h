#ifndef TESTS_COMMAND_SHOWN_COMMANDS_H_
#define TESTS_COMMAND_SHOWN_COMMANDS_H_

#include <string>
#include <vector>

namespace imptable {

/// A command of this project as a text for users shows it.
struct ShownCommand {
  std::string place;  // the file or the help that shows it
  std::string text;   // on one line, as a shell takes it
  bool mentioned;     // within a sentence, so that arguments may be left out
};

/// Every command that README.md, the pages of docs, the manual page and the help texts in both
/// languages show.
std::vector<ShownCommand> ShownCommands();

}  // namespace imptable

#endif  // TESTS_COMMAND_SHOWN_COMMANDS_H_
