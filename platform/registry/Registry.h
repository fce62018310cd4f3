#ifndef PLATFORM_REGISTRY_REGISTRY_H_
#define PLATFORM_REGISTRY_REGISTRY_H_

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace imptable {

/// Predefined root-key handles, as the host passes them. Values of the Windows API: never change.
inline constexpr std::int32_t kHkeyCurrentUser = static_cast<std::int32_t>(0x80000001);
inline constexpr std::int32_t kHkeyLocalMachine = static_cast<std::int32_t>(0x80000002);

/// Registry value types (Windows API): never change.
enum class RegistryType : std::uint32_t {
  kNone = 0,
  kText = 1,            // REG_SZ
  kExpandableText = 2,  // REG_EXPAND_SZ
  kBinary = 3,          // REG_BINARY
  kNumber = 4,          // REG_DWORD, 4 bytes, little endian
  kMultiText = 7,       // REG_MULTI_SZ
};

/// A value as stored. Text types carry their terminating NUL, in the system's code page.
struct RegistryValue {
  RegistryType type = RegistryType::kNone;
  std::string data;

  bool operator==(const RegistryValue&) const = default;
};

/// A key: a predefined root and a path below it, parts separated by "\", no "\" at either end.
struct KeyPath {
  std::int32_t root = 0;
  std::string path;
};

/// System result codes that callers test (Windows API values).
inline constexpr std::int32_t kRegistryOk = 0;
inline constexpr std::int32_t kRegistryNotFound = 2;      // ERROR_FILE_NOT_FOUND
inline constexpr std::int32_t kRegistryAccessDenied = 5;  // ERROR_ACCESS_DENIED

/// The registry as a whole can't be read or written (damaged, locked, no rights). what() is one
/// line: which registry, what is wrong and what to do.
class RegistryError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The registry as the component needs it: the system's on Windows, one SQLite file elsewhere.
/// Names are matched without regard to case, accented letters included. Names and texts are in
/// the system's code page.
class Registry {
 public:
  virtual ~Registry() = default;

  /// @return nullopt when the key or value is absent or unreadable.
  /// @throws RegistryError  from any reading member, when the registry itself can't be read.
  virtual std::optional<RegistryValue> Read(const KeyPath& key, std::string_view name) const = 0;

  /// Creates the key when needed; an existing value keeps its place in the enumeration order.
  /// @return the system result code, 0 = success.
  virtual std::int32_t Write(const KeyPath& key, std::string_view name,
                             const RegistryValue& value) = 0;

  /// Deletes a key with its values; a key that has subkeys isn't deleted (kRegistryAccessDenied).
  /// @return the system result code, 0 = success.
  virtual std::int32_t DeleteKey(const KeyPath& key) = 0;

  /// @return the value names in the order in which they were first written (Windows: in the order
  /// in which it lists them); empty when absent.
  virtual std::vector<std::string> ValueNames(const KeyPath& key) const = 0;

  /// @return the names of the direct subkeys in enumeration order (by name, without regard to
  /// case); empty when absent.
  virtual std::vector<std::string> SubkeyNames(const KeyPath& key) const = 0;
};

}  // namespace imptable

#endif  // PLATFORM_REGISTRY_REGISTRY_H_
