#include "platform/testing/MemoryRegistry.h"

#include <algorithm>
#include <cstddef>

#include "platform/registry/RegistryPath.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

constexpr std::int32_t kInvalidHandle = 6;  // ERROR_INVALID_HANDLE

std::optional<std::int32_t> NumberOf(const RegistryValue& value) {
  if (value.type != RegistryType::kNumber || value.data.size() != 4) return std::nullopt;
  std::uint32_t bits = 0;
  for (std::size_t i = 4; i-- > 0;) bits = bits << 8 | static_cast<unsigned char>(value.data[i]);
  return static_cast<std::int32_t>(bits);
}

std::string WithoutTerminator(std::string text) {
  if (!text.empty() && text.back() == '\0') text.pop_back();
  return text;
}

KeyPath LocalMachine(std::string_view path) { return {kHkeyLocalMachine, std::string(path)}; }

}  // namespace

struct MemoryRegistry::Key {
  struct Value {
    std::string name;
    std::string folded;
    RegistryValue value;
  };

  /// @return the index of the value, values.size() when there is none.
  std::size_t IndexOf(std::string_view value_name) const {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [folded = FoldName(value_name)](const Value& candidate) {
                                      return candidate.folded == folded;
                                    });
    return static_cast<std::size_t>(found - values.begin());
  }

  std::string name;
  std::map<std::string, std::unique_ptr<Key>> subkeys;  // by folded name
  std::vector<Value> values;                            // as first written
};

MemoryRegistry::MemoryRegistry() {
  roots_[kHkeyLocalMachine] = std::make_unique<Key>();
  roots_[kHkeyCurrentUser] = std::make_unique<Key>();
}

MemoryRegistry::~MemoryRegistry() = default;

const MemoryRegistry::Key* MemoryRegistry::Find(const KeyPath& key) const {
  const auto root = roots_.find(key.root);
  if (root == roots_.end()) return nullptr;
  const Key* current = root->second.get();
  for (std::string_view part : PathParts(key.path)) {
    const auto subkey = current->subkeys.find(FoldName(part));
    if (subkey == current->subkeys.end()) return nullptr;
    current = subkey->second.get();
  }
  return current;
}

const RegistryValue* MemoryRegistry::FindValue(const KeyPath& key, std::string_view name) const {
  const Key* found = Find(key);
  if (found == nullptr) return nullptr;
  const std::size_t index = found->IndexOf(name);
  return index == found->values.size() ? nullptr : &found->values[index].value;
}

std::optional<RegistryValue> MemoryRegistry::Read(const KeyPath& key, std::string_view name) const {
  reads_.push_back(key.path + "|" + std::string(name));
  if (reads_left_ && (*reads_left_)-- <= 0) throw RegistryError("the registry can't be read");
  const RegistryValue* value = FindValue(key, name);
  return value == nullptr ? std::nullopt : std::optional(*value);
}

std::int32_t MemoryRegistry::Write(const KeyPath& key, std::string_view name,
                                   const RegistryValue& value) {
  const auto number = NumberOf(value);
  writes_.push_back(key.path + "|" + std::string(name) + "=" +
                    (number ? std::to_string(*number) : WithoutTerminator(value.data)));
  return write_code_ == kRegistryOk ? Store(key, name, value) : write_code_;
}

std::int32_t MemoryRegistry::Store(const KeyPath& key, std::string_view name,
                                   const RegistryValue& value) {
  const auto root = roots_.find(key.root);
  if (root == roots_.end()) return kInvalidHandle;
  Key* current = root->second.get();
  for (std::string_view part : PathParts(key.path)) {
    std::unique_ptr<Key>& subkey = current->subkeys[FoldName(part)];
    if (subkey == nullptr) {
      subkey = std::make_unique<Key>();
      subkey->name = part;
    }
    current = subkey.get();
  }
  const std::size_t index = current->IndexOf(name);
  if (index < current->values.size()) {
    current->values[index].value = value;
  } else {
    current->values.push_back({std::string(name), FoldName(name), value});
  }
  return kRegistryOk;
}

std::int32_t MemoryRegistry::DeleteKey(const KeyPath& key) {
  const Key* doomed = Find(key);
  if (doomed == nullptr) return kRegistryNotFound;
  const auto parts = PathParts(key.path);
  if (parts.empty() || !doomed->subkeys.empty()) return kRegistryAccessDenied;
  Key* parent = roots_.at(key.root).get();
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
    parent = parent->subkeys.at(FoldName(parts[i])).get();
  }
  parent->subkeys.erase(FoldName(parts.back()));
  return kRegistryOk;
}

std::vector<std::string> MemoryRegistry::ValueNames(const KeyPath& key) const {
  std::vector<std::string> names;
  if (const Key* found = Find(key)) {
    for (const Key::Value& value : found->values) names.push_back(value.name);
  }
  return names;
}

std::vector<std::string> MemoryRegistry::SubkeyNames(const KeyPath& key) const {
  std::vector<std::string> names;
  if (const Key* found = Find(key)) {
    for (const auto& [folded, subkey] : found->subkeys) names.push_back(subkey->name);
  }
  return names;
}

void MemoryRegistry::SetText(const KeyPath& key, std::string_view name, std::string_view text) {
  Store(key, name, {RegistryType::kText, std::string(text) + '\0'});
}

void MemoryRegistry::SetText(std::string_view path, std::string_view name, std::string_view text) {
  SetText(LocalMachine(path), name, text);
}

void MemoryRegistry::SetNumber(const KeyPath& key, std::string_view name, std::int32_t number) {
  const auto bits = static_cast<std::uint32_t>(number);
  std::string data;
  for (unsigned shift = 0; shift < 32; shift += 8) {
    data += static_cast<char>((bits >> shift) & 0xFFU);
  }
  Store(key, name, {RegistryType::kNumber, data});
}

void MemoryRegistry::SetNumber(std::string_view path, std::string_view name, std::int32_t number) {
  SetNumber(LocalMachine(path), name, number);
}

std::optional<std::string> MemoryRegistry::Text(const KeyPath& key, std::string_view name) const {
  const RegistryValue* value = FindValue(key, name);
  if (value == nullptr ||
      (value->type != RegistryType::kText && value->type != RegistryType::kExpandableText)) {
    return std::nullopt;
  }
  return WithoutTerminator(value->data);
}

std::optional<std::string> MemoryRegistry::Text(std::string_view path,
                                                std::string_view name) const {
  return Text(LocalMachine(path), name);
}

std::optional<std::int32_t> MemoryRegistry::Number(const KeyPath& key,
                                                   std::string_view name) const {
  const RegistryValue* value = FindValue(key, name);
  return value == nullptr ? std::nullopt : NumberOf(*value);
}

std::optional<std::int32_t> MemoryRegistry::Number(std::string_view path,
                                                   std::string_view name) const {
  return Number(LocalMachine(path), name);
}

bool MemoryRegistry::HasKey(const KeyPath& key) const { return Find(key) != nullptr; }

bool MemoryRegistry::HasKey(std::string_view path) const { return HasKey(LocalMachine(path)); }

}  // namespace imptable
