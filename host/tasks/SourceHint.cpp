#include "host/tasks/SourceHint.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

/// The lines that a data source of one kind of driver has besides "Driver".
struct Make {
  std::string_view mark;  // in the driver's name, in any case
  std::string_view keys;  // "~" is the home folder
};

// The example uses the first of these that is installed.
constexpr std::array<Make, 4> kMakes{{
    {"sqlite", "Database=~/shop.db"},
    {"postgresql", "Servername=localhost\nDatabase=shop"},
    {"mariadb", "Server=localhost\nDatabase=shop"},
    {"", "Server=localhost\nDatabase=shop"},
}};

/// The last driver whose name holds the mark: makers number their drivers upwards.
const std::string* DriverOf(const std::vector<std::string>& drivers, std::string_view mark) {
  const auto found = std::find_if(drivers.rbegin(), drivers.rend(), [&](const std::string& name) {
    return FoldName(name).find(FoldName(mark)) != std::string::npos;
  });
  return found == drivers.rend() ? nullptr : &*found;
}

std::string Example(const std::vector<std::string>& drivers, const std::string& home) {
  for (const Make& make : kMakes) {
    const std::string* const driver = DriverOf(drivers, make.mark);
    if (driver == nullptr) continue;
    std::string example = "[Shop]\nDriver=" + *driver + '\n' + std::string(make.keys);
    const std::size_t tilde = example.rfind("=~/");
    if (tilde != std::string::npos) example.replace(tilde + 1, 1, home);
    return example;
  }
  return {};
}

std::string Joined(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
  return list;
}

}  // namespace

std::string SourceHint(const std::vector<std::string>& drivers, const std::string& file,
                       const std::string& home, const HostTexts& texts) {
  if (drivers.empty()) return texts.Text(HostText::kNoDriver);
  return texts.Text(HostText::kNoSource, {file}) + "\n\n" + Example(drivers, home) + "\n\n" +
         texts.Text(HostText::kInstalledDrivers, {Joined(drivers)});
}

}  // namespace imptable
