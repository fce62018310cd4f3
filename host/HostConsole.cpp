#include "host/HostConsole.h"

#include <string>

namespace imptable {

void PrintErrorLine(std::ostream& err, std::string_view text) {
  std::string line = "imptable: ";
  for (const char byte : text) {
    const auto value = static_cast<unsigned char>(byte);
    line += value < 0x20 || value == 0x7F ? '?' : byte;
  }
  err << line << '\n' << std::flush;
}

void ConsoleWarningBox::Warn(std::string_view text, std::string_view caption) {
  PrintErrorLine(err_, std::string(caption) + ": " + std::string(text));
}

}  // namespace imptable
