#include <cstddef>
#include <functional>

#include "platform/registry/SqliteRegistry.h"

namespace imptable {
namespace {

bool IsText(RegistryType type) {
  return type == RegistryType::kText || type == RegistryType::kExpandableText ||
         type == RegistryType::kMultiText;
}

/// Converts the texts between the NULs, which stay where they are.
std::string ConvertTexts(std::string_view data,
                         const std::function<std::string(std::string_view)>& convert) {
  std::string converted;
  for (;;) {
    const std::size_t end = data.find('\0');
    converted += convert(data.substr(0, end));
    if (end == std::string_view::npos) return converted;
    converted += '\0';
    data.remove_prefix(end + 1);
  }
}

std::int32_t CodeOf(RegistryFileFault fault) {
  switch (fault) {
    case RegistryFileFault::kNotARegistry:
    case RegistryFileFault::kNewerFormat:
    case RegistryFileFault::kDamaged:
      return kRegistryDamaged;
    case RegistryFileFault::kNoRights:
      return kRegistryAccessDenied;
    case RegistryFileFault::kDiskFull:
      return kRegistryDiskFull;
    case RegistryFileFault::kLocked:
      return kRegistryLocked;
    case RegistryFileFault::kUnusable:
      return kRegistryCannotWrite;
  }
  return kRegistryCannotWrite;
}

}  // namespace

SqliteRegistry::SqliteRegistry(RegistryStore& store, const TextEncoding& encoding)
    : store_(store), encoding_(encoding) {}

std::optional<RegistryValue> SqliteRegistry::Read(const KeyPath& key, std::string_view name) const {
  auto value = store_.Read(Stored(key), encoding_.ToUtf8(name));
  if (value && IsText(value->type)) {
    value->data = ConvertTexts(value->data,
                               [this](std::string_view text) { return encoding_.FromUtf8(text); });
  }
  return value;
}

std::int32_t SqliteRegistry::Write(const KeyPath& key, std::string_view name,
                                   const RegistryValue& value) {
  if (!RegistryStore::HasRoot(key.root)) return kRegistryInvalidHandle;
  RegistryValue stored = value;
  if (IsText(value.type)) {
    stored.data =
        ConvertTexts(value.data, [this](std::string_view text) { return encoding_.ToUtf8(text); });
  }
  return Attempt([&] {
    store_.Write(Stored(key), encoding_.ToUtf8(name), stored);
    return kRegistryOk;
  });
}

std::int32_t SqliteRegistry::DeleteKey(const KeyPath& key) {
  return Attempt([&] {
    switch (store_.DeleteKey(Stored(key))) {
      case RegistryStore::KeyDeletion::kDone:
        return kRegistryOk;
      case RegistryStore::KeyDeletion::kAbsent:
        return kRegistryNotFound;
      case RegistryStore::KeyDeletion::kRefused:
        break;
    }
    return kRegistryAccessDenied;
  });
}

std::vector<std::string> SqliteRegistry::ValueNames(const KeyPath& key) const {
  std::vector<std::string> names = store_.ValueNames(Stored(key));
  for (std::string& name : names) name = encoding_.FromUtf8(name);
  return names;
}

std::vector<std::string> SqliteRegistry::SubkeyNames(const KeyPath& key) const {
  std::vector<std::string> names = store_.SubkeyNames(Stored(key));
  for (std::string& name : names) name = encoding_.FromUtf8(name);
  return names;
}

KeyPath SqliteRegistry::Stored(const KeyPath& key) const {
  return {key.root, encoding_.ToUtf8(key.path)};
}

std::int32_t SqliteRegistry::Attempt(const std::function<std::int32_t()>& change) {
  try {
    return change();
  } catch (const RegistryFileError& error) {
    last_write_failure_ = error;
    return CodeOf(error.fault());
  }
}

}  // namespace imptable
