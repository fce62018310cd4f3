#ifndef HOST_TASKS_SOURCE_HINT_H_
#define HOST_TASKS_SOURCE_HINT_H_

#include <string>
#include <vector>

#include "host/HostTexts.h"

namespace imptable {

/// What to tell a user without a data source: where to add one, with an example for one of the
/// drivers, or which drivers there are to install.
/// @param drivers  by the names that the driver manager knows them by.
/// @param file  the user's file of data sources.
/// @param home  the user's home folder.
/// @return several lines without a line feed at the end.
std::string SourceHint(const std::vector<std::string>& drivers, const std::string& file,
                       const std::string& home, const HostTexts& texts);

}  // namespace imptable

#endif  // HOST_TASKS_SOURCE_HINT_H_
