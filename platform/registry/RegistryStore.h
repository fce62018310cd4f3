#ifndef PLATFORM_REGISTRY_REGISTRY_STORE_H_
#define PLATFORM_REGISTRY_REGISTRY_STORE_H_

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry/Registry.h"
#include "platform/registry/RegistryFileError.h"

namespace imptable {

class RegistryFile;
class RegistryTransaction;

/// A value with the name under which it was first written; "" is the key's default value.
struct NamedValue {
  std::string name;
  RegistryValue value;

  bool operator==(const NamedValue&) const = default;
};

/// A key as stored. Names have the case in which they were first written. Values are in the order
/// in which they were first written.
struct StoredKey {
  KeyPath key;
  std::vector<NamedValue> values;
};

/// One change among several.
struct RegistryEdit {
  enum class Action { kCreateKey, kDeleteTree, kSetValue, kDeleteValue };

  Action action = Action::kCreateKey;
  KeyPath key;
  std::string name;     // kSetValue, kDeleteValue
  RegistryValue value;  // kSetValue
};

/// The registry in one SQLite file, which several processes may use at the same time.
/// Text:    all in UTF-8: paths, names, and the data of the text types with its terminating NUL.
/// Names:   matched as FoldName has them; the case of the first writing is kept.
/// Roots:   HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER. Under another root nothing is found; writing
///          there is std::invalid_argument.
/// Errors:  every operation throws RegistryFileError when the file doesn't allow it; a write that
///          throws has changed nothing.
/// Threads: one.
class RegistryStore {
 public:
  static constexpr std::chrono::milliseconds kLockWait{10'000};

  static bool HasRoot(std::int32_t root);

  /// Opens the file. While there is no file, nothing is found. The first write creates it, for its
  /// owner only, together with the directories on the way to it.
  /// @param first_edits  what a file gets when it is created.
  explicit RegistryStore(const std::string& path, std::vector<RegistryEdit> first_edits = {},
                         std::chrono::milliseconds lock_wait = kLockWait);
  ~RegistryStore();

  /// @return false as long as there is no file, or one that nothing was ever stored in.
  bool Exists() const;

  std::optional<RegistryValue> Read(const KeyPath& key, std::string_view name) const;
  bool KeyExists(const KeyPath& key) const;

  /// In the order in which they were first written; empty when the key is absent.
  std::vector<NamedValue> Values(const KeyPath& key) const;
  std::vector<std::string> ValueNames(const KeyPath& key) const;

  /// By folded name; empty when the key is absent.
  std::vector<std::string> SubkeyNames(const KeyPath& key) const;

  /// The key and all below it, each key before its subkeys, all at one moment; empty when absent.
  std::vector<StoredKey> Tree(const KeyPath& key) const;

  /// While it lives, everything that this store reads is as it was at one moment. Nothing may be
  /// written meanwhile.
  class Moment {
   public:
    explicit Moment(const RegistryStore& store);
    ~Moment();
    Moment(const Moment&) = delete;
    Moment& operator=(const Moment&) = delete;

   private:
    std::unique_ptr<RegistryTransaction> transaction_;
  };

  /// Creates the key when needed; an existing value keeps its name and its place.
  void Write(const KeyPath& key, std::string_view name, const RegistryValue& value);

  /// @return false when there was no such value.
  bool DeleteValue(const KeyPath& key, std::string_view name);

  enum class KeyDeletion { kDone, kAbsent, kRefused };

  /// Deletes a key with its values; refused for a root and when there are subkeys.
  KeyDeletion DeleteKey(const KeyPath& key);

  /// Deletes a key and all below it; a root is emptied and stays.
  /// @return false when there was no such key.
  bool DeleteTree(const KeyPath& key);

  /// All the edits in their order, or none of them. Deleting what isn't there is no error.
  void Apply(const std::vector<RegistryEdit>& edits);

  /// Makes every change that `work` makes through this store, or no change when `work` throws. No
  /// other process writes meanwhile.
  void Together(const std::function<void()>& work);

 private:
  /// The file when there is one with tables, else null. Each call without a file looks again:
  /// another process may have made it.
  RegistryFile* Opened() const;

  /// The file, which is created when there is none.
  RegistryFile& Created();

  /// @param stored_path  when not null, gets the path in the case in which it is stored.
  std::optional<std::int64_t> FindKey(const KeyPath& key, std::string* stored_path = nullptr) const;
  std::int64_t EnsureKey(const KeyPath& key);
  std::vector<NamedValue> ValuesOf(std::int64_t key) const;
  void Carry(const std::vector<RegistryEdit>& edits);
  void SetValue(const KeyPath& key, std::string_view name, const RegistryValue& value);
  bool RemoveValue(const KeyPath& key, std::string_view name);
  bool RemoveTree(const KeyPath& key);

  std::string path_;
  std::vector<RegistryEdit> first_edits_;
  std::chrono::milliseconds lock_wait_;
  mutable std::unique_ptr<RegistryFile> file_;
  mutable bool has_tables_ = false;
};

}  // namespace imptable

#endif  // PLATFORM_REGISTRY_REGISTRY_STORE_H_
