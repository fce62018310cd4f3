#ifndef TESTS_KIT_TEXT_FILE_H_
#define TESTS_KIT_TEXT_FILE_H_

#include <string>
#include <vector>

#include "platform/files/FileSystem.h"

namespace imptable {

/// The bytes of a text file of these lines, each with the system's line end.
inline std::string TextFile(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + std::string(SystemLineEnd());
  return bytes;
}

}  // namespace imptable

#endif  // TESTS_KIT_TEXT_FILE_H_
