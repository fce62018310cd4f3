#ifndef TESTS_SCENARIOS_LASTINGTEXT_H_
#define TESTS_SCENARIOS_LASTINGTEXT_H_

#include <map>
#include <string>

namespace imptable {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to);

/// Each CR LF as LF.
std::string WithoutCarriageReturns(std::string text);

/// {DATE} in place of the date and time, in any of the systems' forms, that a line of a report or
/// of a side file begins with, and {VERSIONS} in place of those that MariaDB's driver begins its
/// texts with.
std::string WithoutDatesAndVersions(const std::string& text);

/// {SIZE}, {TIME} and {DIGEST} in place of what the state of a chain (".REP") says of its source;
/// any other text as it is.
std::string WithoutSourceFigures(const std::string& text);

/// Whether every dated line of a report ends with CR LF. A driver's text may have line feeds of its
/// own within a line.
bool ReportLinesEndAsTheyShould(const std::string& report);

}  // namespace imptable

#endif  // TESTS_SCENARIOS_LASTINGTEXT_H_
