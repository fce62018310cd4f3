#include "tests/drivers/CallLog.h"

namespace imptable::scripted {

CallLog::CallLog(const std::string& path) {
  if (!path.empty()) file_.reset(std::fopen(path.c_str(), "ab"));
}

void CallLog::Write(Call call, std::string_view arguments, SQLRETURN code) {
  WriteLine(call, arguments, " = " + std::to_string(code));
}

void CallLog::WriteCrash(Call call, std::string_view arguments) {
  WriteLine(call, arguments, " crash");
}

void CallLog::WriteLine(Call call, std::string_view arguments, std::string_view end) {
  std::string line(NameOf(call));
  if (!arguments.empty()) line += ' ';
  for (const char c : arguments) {
    if (c == '\n') {
      line += "\\n";
    } else if (c == '\r') {
      line += "\\r";
    } else {
      line += c;
    }
  }
  line += end;
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), file_.get());
  std::fflush(file_.get());
}

}  // namespace imptable::scripted
