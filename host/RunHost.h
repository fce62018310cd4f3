#ifndef HOST_RUN_HOST_H_
#define HOST_RUN_HOST_H_

#include <ostream>
#include <string>
#include <vector>

#include "host/HostConsole.h"

namespace imptable {

/// The whole command line: carries out what the arguments ask for.
/// @param arguments  without the program's name.
/// @return the process's exit code. Nothing is thrown.
int RunHost(const std::vector<std::string>& arguments, const HostConsole& console);

/// The same without standard input and without a terminal.
int RunHost(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace imptable

#endif  // HOST_RUN_HOST_H_
