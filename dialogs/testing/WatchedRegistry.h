#ifndef DIALOGS_TESTING_WATCHED_REGISTRY_H_
#define DIALOGS_TESTING_WATCHED_REGISTRY_H_

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/testing/MemoryRegistry.h"

namespace imptable {

/// Passes everything on to another registry. Keeps a list of the changes, and can refuse one.
class WatchedRegistry : public Registry {
 public:
  /// @param registry  borrowed.
  /// @param base  what every path in the journal is relative to.
  WatchedRegistry(MemoryRegistry& registry, std::string base)
      : registry_(registry), base_(std::move(base)) {}

  std::optional<RegistryValue> Read(const KeyPath& key, std::string_view name) const override {
    return registry_.Read(key, name);
  }

  std::int32_t Write(const KeyPath& key, std::string_view name,
                     const RegistryValue& value) override {
    const std::string where = Relative(key.path) + '|' + std::string(name);
    if (where == refused) return kRegistryAccessDenied;
    const std::int32_t code = registry_.Write(key, name, value);
    const auto number = registry_.Number(key, name);
    changes.push_back(where + (number ? " = #" + std::to_string(*number)
                                      : " = " + registry_.Text(key, name).value_or("<no text>")));
    return code;
  }

  std::int32_t DeleteKey(const KeyPath& key) override {
    const std::string where = Relative(key.path);
    if (where == refused) return kRegistryAccessDenied;
    changes.push_back("delete " + where);
    return registry_.DeleteKey(key);
  }

  std::vector<std::string> ValueNames(const KeyPath& key) const override {
    return registry_.ValueNames(key);
  }
  std::vector<std::string> SubkeyNames(const KeyPath& key) const override {
    return registry_.SubkeyNames(key);
  }

  /// The changes so far, each as "path|name = text", "path|name = #number" or "delete path".
  std::vector<std::string> changes;

  /// The change that gives access denied: "path|name", or the path for a deletion.
  std::string refused;

 private:
  std::string Relative(const std::string& path) const {
    return path.starts_with(base_ + '\\') ? path.substr(base_.size() + 1) : "<elsewhere> " + path;
  }

  MemoryRegistry& registry_;
  std::string base_;
};

}  // namespace imptable

#endif  // DIALOGS_TESTING_WATCHED_REGISTRY_H_
