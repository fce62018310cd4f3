#include "tests/opinions/Opinions.h"

#include <exception>
#include <iostream>
#include <string>
#include <string_view>

/// opinions profile|registry|numbers FOLDER
int main(int count, char** arguments) try {
  if (count != 3) return 2;
  const std::string_view kind = arguments[1];
  const std::string folder = arguments[2];
  if (kind == "profile") {
    imptable::AskForProfileStrings(folder, std::cout);
  } else if (kind == "registry") {
    imptable::AskRegistry(folder, std::cout);
  } else if (kind == "numbers") {
    imptable::AskForNumbers(std::cout);
  } else {
    return 2;
  }
  return std::cout.flush() ? 0 : 1;
} catch (const std::exception& error) {
  std::cerr << "opinions: " << error.what() << '\n';
  return 1;
}
