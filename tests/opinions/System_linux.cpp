#include "core/ModuleCommun.h"
#include "import/layout/DateFormat.h"
#include "import/values/DateConversion.h"
#include "import/values/NumberConversion.h"
#include "platform/files/ProfileFileReader.h"
#include "platform/registry/RegistryStore.h"
#include "platform/registry/SqliteRegistry.h"
#include "platform/text/TextEncoding_linux.h"
#include "tests/opinions/System.h"

namespace imptable {
namespace {

const std::unique_ptr<TextEncoding> kEncoding = MakeTextEncoding("CP1252");

template <typename Reading>
std::string Attempt(Reading reading) {
  try {
    return std::to_string(reading());
  } catch (const RuntimeFault& fault) {
    return fault.number() == FaultNumber::kOverflow ? "overflow" : "mismatch";
  }
}

}  // namespace

std::string ReadProfileString(const std::string& path, std::string_view section,
                              std::string_view key, std::string_view fallback, std::size_t most) {
  const auto files = SystemFileSystem();
  return ProfileFileReader(*files, *kEncoding).ReadString(path, section, key, fallback, most);
}

void WithOwnRegistry(const std::string& folder, const std::function<void(Registry&)>& use) {
  RegistryStore store(folder + "registry.db");
  SqliteRegistry registry(store, *kEncoding);
  use(registry);
}

std::string ReadInt16(const std::string& text) {
  return Attempt([&] { return AsInt16(text, ""); });
}

std::string ReadInt32(const std::string& text) {
  return Attempt([&] { return AsInt32(text, ""); });
}

std::optional<double> ReadDouble(const std::string& text, std::string_view separator) {
  return ReadUserNumber(text, separator);
}

std::optional<int> ReadYear(const std::string& digits) {
  constexpr DateFormat kYearFirst{.style = 14, .time = TimeCode::kNone};
  const auto date = ReadDateValue(digits + "0101", kYearFirst, 20, false);
  if (!date) return std::nullopt;
  return date->year;
}

}  // namespace imptable
