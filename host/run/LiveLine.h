#ifndef HOST_RUN_LIVE_LINE_H_
#define HOST_RUN_LIVE_LINE_H_

#include <optional>
#include <ostream>
#include <string>

#include "core/RunState.h"
#include "host/HostConsole.h"
#include "host/HostTexts.h"

namespace imptable {

/// How far a run has come, in one line: lines read, written and rejected, lines per second, and,
/// when known, the share of the file and the time left.
/// @param seconds  since the first line was read.
/// @param columns  the width to fit into, by leaving out the last parts; 0 for no limit.
std::string LiveLineText(const RunProgress& progress, double seconds, int columns,
                         const HostTexts& texts);

/// The line that is redrawn in place while a run goes on. A terminal that became too narrow has
/// wrapped the line into several rows: then all of them are erased.
class LiveLine {
 public:
  /// All borrowed.
  LiveLine(std::ostream& out, const Terminal& terminal, const HostTexts& texts)
      : out_(out), terminal_(terminal), texts_(texts) {}
  LiveLine(const LiveLine&) = delete;
  LiveLine& operator=(const LiveLine&) = delete;
  ~LiveLine() { Remove(); }

  void Draw(const RunProgress& progress, double seconds);
  void Remove();

 private:
  void Erase();

  std::ostream& out_;
  const Terminal& terminal_;
  const HostTexts& texts_;
  std::optional<int> drawn_;  // characters
};

}  // namespace imptable

#endif  // HOST_RUN_LIVE_LINE_H_
