#ifndef TESTS_OPINIONS_OPINIONS_H_
#define TESTS_OPINIONS_OPINIONS_H_

#include <iosfwd>
#include <string>

namespace imptable {

// Each makes its cases, asks the system and writes one line for each: kind, case, " -> ", answer.

/// @param folder  an empty one, ends with a separator.
void AskForProfileStrings(const std::string& folder, std::ostream& out);
void AskRegistry(const std::string& folder, std::ostream& out);
void AskForNumbers(std::ostream& out);

}  // namespace imptable

#endif  // TESTS_OPINIONS_OPINIONS_H_
