#ifndef TESTS_KIT_SIDE_FILE_LINES_H_
#define TESTS_KIT_SIDE_FILE_LINES_H_

#include <cstdint>
#include <iomanip>
#include <sstream>
#include <string>
#include <string_view>

namespace imptable {

inline std::string TraceText(std::int32_t line, char status, std::int32_t errors) {
  std::ostringstream text;
  text << std::setfill('0') << std::setw(8) << line << status << std::setw(8) << errors;
  return text.str();
}

/// The trace of a line that is done. @param errors  of the run so far.
inline std::string Done(std::int32_t line, std::int32_t errors = 0) {
  return TraceText(line, '0', errors);
}

/// The trace of a rejected line. @param errors  of the run so far, with this one.
inline std::string Rejected(std::int32_t line, std::int32_t errors = 1) {
  return TraceText(line, '1', errors);
}

/// What the error file of a French run at the time of the tests' clock says of a line.
inline std::string ErrorLine(std::int32_t line, std::string_view text) {
  return "15/11/2006 08:30:00.... Ligne  " + std::to_string(line) + ' ' + std::string(text);
}

/// The same for what the database says. @param code  its own, not below 0.
inline std::string ErrorLine(std::int32_t line, std::int32_t code, std::string_view text) {
  return ErrorLine(line, "( " + std::to_string(code) + ") " + std::string(text));
}

}  // namespace imptable

#endif  // TESTS_KIT_SIDE_FILE_LINES_H_
