#include "platform/registry/Registry_win32.h"

#include <algorithm>
#include <cstddef>
#include <memory>

#include "platform/registry/RegistryPath.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

constexpr REGSAM kReadAccess = 0x20019;   // KEY_READ
constexpr REGSAM kWriteAccess = 0x2001F;  // KEY_READ | KEY_WRITE
constexpr std::size_t kFirstBufferBytes = 65'536;
constexpr std::size_t kKeyNameBytes = 1024;      // 255 characters, of up to three bytes
constexpr std::size_t kValueNameBytes = 65'536;  // 16,383 characters

/// Sole owner of an open key.
class OpenKey {
 public:
  OpenKey() = default;
  ~OpenKey() {
    if (raw_ != nullptr) RegCloseKey(raw_);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  HKEY raw() const { return raw_; }
  /// Where the opening function puts the key.
  HKEY* out() { return &raw_; }

 private:
  HKEY raw_ = nullptr;
};

/// @return null unless the number is a predefined root: it could be any other handle of the
/// process.
HKEY RootHandle(std::int32_t root) {
  constexpr std::uint32_t kPredefined = 0x80000000;
  const auto number = static_cast<std::uint32_t>(root);
  if ((number & 0xFFFFFF00U) != kPredefined) return nullptr;
  // The handle of a predefined root is its number, sign-extended where handles are longer.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG_PTR>(root)));
}

/// The path without superfluous "\": for Windows they are errors.
std::string PlainPath(std::string_view path) {
  std::string plain;
  for (const std::string_view part : PathParts(path)) {
    if (!plain.empty()) plain += '\\';
    plain += part;
  }
  return plain;
}

bool OpenForReading(const KeyPath& key, OpenKey& out) {
  const HKEY root = RootHandle(key.root);
  return root != nullptr && RegOpenKeyExA(root, PlainPath(key.path).c_str(), 0, kReadAccess,
                                          out.out()) == ERROR_SUCCESS;
}

class WindowsRegistry : public Registry {
 public:
  std::optional<RegistryValue> Read(const KeyPath& key, std::string_view name) const override {
    OpenKey open;
    if (!OpenForReading(key, open)) return std::nullopt;
    const std::string value_name(name);
    std::size_t room = kFirstBufferBytes;
    for (;;) {
      const auto buffer = std::make_unique_for_overwrite<char[]>(room);
      DWORD type = 0;
      auto size = static_cast<DWORD>(room);
      const LSTATUS code = RegQueryValueExA(open.raw(), value_name.c_str(), nullptr, &type,
                                            reinterpret_cast<BYTE*>(buffer.get()), &size);
      if (code == ERROR_SUCCESS) {
        return RegistryValue{static_cast<RegistryType>(type), std::string(buffer.get(), size)};
      }
      if (code != ERROR_MORE_DATA) return std::nullopt;
      room = std::max<std::size_t>(size, room * 2);
    }
  }

  std::int32_t Write(const KeyPath& key, std::string_view name,
                     const RegistryValue& value) override {
    const HKEY root = RootHandle(key.root);
    if (root == nullptr) return ERROR_INVALID_HANDLE;
    OpenKey open;
    const LSTATUS code =
        RegCreateKeyExA(root, PlainPath(key.path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        kWriteAccess, nullptr, open.out(), nullptr);
    if (code != ERROR_SUCCESS) return code;
    return RegSetValueExA(open.raw(), std::string(name).c_str(), 0, static_cast<DWORD>(value.type),
                          reinterpret_cast<const BYTE*>(value.data.data()),
                          static_cast<DWORD>(value.data.size()));
  }

  std::int32_t DeleteKey(const KeyPath& key) override {
    const HKEY root = RootHandle(key.root);
    if (root == nullptr) return kRegistryNotFound;
    const std::string path = PlainPath(key.path);
    return path.empty() ? kRegistryAccessDenied : RegDeleteKeyA(root, path.c_str());
  }

  std::vector<std::string> ValueNames(const KeyPath& key) const override {
    return Names(key, kValueNameBytes, [](HKEY open, DWORD index, char* name, DWORD* size) {
      return RegEnumValueA(open, index, name, size, nullptr, nullptr, nullptr, nullptr);
    });
  }

  std::vector<std::string> SubkeyNames(const KeyPath& key) const override {
    return Names(key, kKeyNameBytes, [](HKEY open, DWORD index, char* name, DWORD* size) {
      return RegEnumKeyExA(open, index, name, size, nullptr, nullptr, nullptr, nullptr);
    });
  }

 private:
  template <typename Enumerate>
  static std::vector<std::string> Names(const KeyPath& key, std::size_t room, Enumerate enumerate) {
    OpenKey open;
    if (!OpenForReading(key, open)) return {};
    const auto name = std::make_unique_for_overwrite<char[]>(room);
    std::vector<std::string> names;
    for (DWORD index = 0;; ++index) {
      auto size = static_cast<DWORD>(room);
      if (enumerate(open.raw(), index, name.get(), &size) != ERROR_SUCCESS) return names;
      names.emplace_back(name.get(), size);
    }
  }
};

}  // namespace

std::unique_ptr<Registry> SystemRegistry() { return std::make_unique<WindowsRegistry>(); }

}  // namespace imptable
