#include "tests/win32/host/OwnRegistry.h"

#include <memory>
#include <type_traits>

#include "core/StoredValue.h"
#include "host/registry/RegistryExportText.h"
#include "host/tasks/ShownValue.h"
#include "platform/windows/Windows_win32.h"
#include "tests/win32/host/Failure.h"
#include "tests/win32/host/WideText.h"

namespace imptable {
namespace {

constexpr const wchar_t* kOwnRegistries = L"Software\\ImptableTests";

struct CloseKey {
  void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using OpenKey = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

HKEY RootOf(const KeyPath& key) {
  return key.root == kHkeyLocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

void Require(LSTATUS code, const std::string& about) {
  if (code == ERROR_SUCCESS) return;
  throw Failure(ExitCode::kFault,
                "the registry refused " + about + ", with code " + std::to_string(code));
}

OpenKey Create(HKEY root, const std::wstring& path) {
  HKEY key = nullptr;
  Require(
      RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
      Narrow(path));
  return OpenKey(key);
}

OpenKey Open(const KeyPath& path, REGSAM access) {
  HKEY key = nullptr;
  const LSTATUS code = RegOpenKeyExW(RootOf(path), Wide(path.path).c_str(), 0, access, &key);
  return OpenKey(code == ERROR_SUCCESS ? key : nullptr);
}

bool IsText(RegistryType type) {
  return type == RegistryType::kText || type == RegistryType::kExpandableText ||
         type == RegistryType::kMultiText;
}

void Write(const KeyPath& path, const std::string& name, const RegistryValue& value) {
  const OpenKey key = Create(RootOf(path), Wide(path.path));
  const std::string data = IsText(value.type) ? Utf16FromUtf8(value.data) : value.data;
  Require(
      RegSetValueExW(key.get(), Wide(name).c_str(), 0, static_cast<DWORD>(value.type),
                     reinterpret_cast<const BYTE*>(data.data()), static_cast<DWORD>(data.size())),
      path.path + ", value " + name);
}

void ApplyOne(const RegistryEdit& edit) {
  switch (edit.action) {
    case RegistryEdit::Action::kCreateKey:
      Create(RootOf(edit.key), Wide(edit.key.path));
      return;
    case RegistryEdit::Action::kDeleteTree:
      RegDeleteTreeW(RootOf(edit.key), Wide(edit.key.path).c_str());
      return;
    case RegistryEdit::Action::kSetValue:
      return Write(edit.key, edit.name, edit.value);
    case RegistryEdit::Action::kDeleteValue:
      if (const OpenKey key = Open(edit.key, KEY_SET_VALUE)) {
        RegDeleteValueW(key.get(), Wide(edit.name).c_str());
      }
      return;
  }
}

}  // namespace

void UseOwnRegistry(const std::string& name, const std::string& decimal_separator) {
  std::wstring place = Wide(name);
  for (wchar_t& character : place) {
    if (character == L'\\' || character == L'/') character = L'_';
  }
  place = kOwnRegistries + (L'\\' + place);
  const OpenKey machine = Create(HKEY_CURRENT_USER, place + L"\\HKEY_LOCAL_MACHINE");
  const OpenKey user = Create(HKEY_CURRENT_USER, place + L"\\HKEY_CURRENT_USER");
  Require(RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine.get()), "another HKEY_LOCAL_MACHINE");
  Require(RegOverridePredefKey(HKEY_CURRENT_USER, user.get()), "another HKEY_CURRENT_USER");
  const KeyPath international{kHkeyCurrentUser, "Control Panel\\International"};
  if (!ReadValue(international, "sDecimal")) {
    Write(international, "sDecimal", TextValue(decimal_separator));
  }
}

void ForgetOwnRegistries() { RegDeleteTreeW(HKEY_CURRENT_USER, kOwnRegistries); }

bool KeyExists(const KeyPath& key) { return Open(key, KEY_READ) != nullptr; }

std::optional<RegistryValue> ReadValue(const KeyPath& path, const std::string& name) {
  const OpenKey key = Open(path, KEY_READ);
  if (!key) return std::nullopt;
  const std::wstring wide_name = Wide(name);
  DWORD type = 0;
  DWORD size = 0;
  if (RegQueryValueExW(key.get(), wide_name.c_str(), nullptr, &type, nullptr, &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  std::string data(size, '\0');
  Require(RegQueryValueExW(key.get(), wide_name.c_str(), nullptr, &type,
                           reinterpret_cast<BYTE*>(data.data()), &size),
          path.path + ", value " + name);
  data.resize(size);
  RegistryValue value{static_cast<RegistryType>(type), std::move(data)};
  if (IsText(value.type)) value.data = Utf8FromUtf16(value.data).text;
  return value;
}

std::string ReadShown(const KeyPath& key, const std::string& name) {
  const std::optional<RegistryValue> value = ReadValue(key, name);
  return value ? ShownValue(*value) : std::string();
}

void Apply(const std::vector<RegistryEdit>& edits) {
  for (const RegistryEdit& edit : edits) ApplyOne(edit);
}

}  // namespace imptable
