#ifndef HOST_HOST_CONSOLE_H_
#define HOST_HOST_CONSOLE_H_

#include <istream>
#include <ostream>
#include <string>
#include <string_view>

#include "platform/system/WarningBox.h"

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
  bool asks = false;              // standard input is a terminal
  bool ends_the_process = false;  // the process ends with the command's code
};

enum class LineEnds { kGo, kStay };

/// The text with "?" in place of control characters: those of ASCII and those, from U+0080 to
/// U+009F, that some terminals obey as well.
/// @param text  in the system's code page.
std::string WithoutControls(std::string_view text, LineEnds line_ends = LineEnds::kGo);

/// One line on standard error, "imptable: " first, without control characters.
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
