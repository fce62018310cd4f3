#ifndef HOST_HOST_CONSOLE_H_
#define HOST_HOST_CONSOLE_H_

#include <istream>
#include <ostream>
#include <string_view>

#include "platform/WarningBox.h"

namespace imptable {

/// The terminal that standard output goes to.
class Terminal {
 public:
  virtual ~Terminal() = default;

  /// Its width at this moment; 0 when it doesn't tell.
  virtual int Columns() const = 0;
};

/// Where the command line reads and writes. All borrowed.
struct HostConsole {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  const Terminal* terminal = nullptr;  // null when standard output is no terminal
  bool colours = false;
  bool asks = false;  // standard input is a terminal
};

/// One line on standard error, "imptable: " first; control characters become "?".
void PrintErrorLine(std::ostream& err, std::string_view text);

/// Warnings as lines on standard error.
class ConsoleWarningBox : public WarningBox {
 public:
  explicit ConsoleWarningBox(std::ostream& err) : err_(err) {}
  void Warn(std::string_view text, std::string_view caption) override;

 private:
  std::ostream& err_;
};

}  // namespace imptable

#endif  // HOST_HOST_CONSOLE_H_
