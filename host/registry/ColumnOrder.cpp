#include "host/registry/ColumnOrder.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>

#include "core/SettingsTable.h"
#include "platform/registry/RegistryPath.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

/// The number without leading zeros, so that the longer of two numbers is the larger one.
std::string_view Digits(std::string_view name) {
  if (name.empty() || name.find_first_not_of("0123456789") != std::string_view::npos) return {};
  return name.substr(std::min(name.find_first_not_of('0'), name.size() - 1));
}

bool ComesBefore(const NamedValue& left, const NamedValue& right) {
  const std::string_view first = Digits(left.name);
  const std::string_view second = Digits(right.name);
  if (first.empty() || second.empty()) return !first.empty() && second.empty();
  return first.size() != second.size() ? first.size() < second.size() : first < second;
}

bool IsNamed(std::string_view part, std::string_view name) {
  return FoldName(part) == FoldName(name);
}

}  // namespace

bool IsColumnKey(const KeyPath& key) {
  constexpr std::array<std::string_view, 5> kParts{"SOFTWARE", "KALDO", "Scenarios", "", "Taches"};
  const std::vector<std::string_view> parts = PathParts(key.path);
  if (key.root != kHkeyLocalMachine || parts.size() != kParts.size() + 2) return false;
  for (std::size_t at = 0; at < kParts.size(); ++at) {
    if (!kParts.at(at).empty() && !IsNamed(parts[at], kParts.at(at))) return false;
  }
  return IsNamed(parts.back(), kColumnsSubkey) || IsNamed(parts.back(), kFieldsSubkey);
}

void OrderByNumber(RegistryStore& store, const KeyPath& key) {
  std::vector<NamedValue> values = store.Values(key);
  if (std::is_sorted(values.begin(), values.end(), ComesBefore)) return;
  std::stable_sort(values.begin(), values.end(), ComesBefore);
  std::vector<RegistryEdit> edits;
  edits.reserve(2 * values.size());
  for (const NamedValue& value : values) {
    edits.push_back({RegistryEdit::Action::kDeleteValue, key, value.name, {}});
  }
  for (const NamedValue& value : values) {
    edits.push_back({RegistryEdit::Action::kSetValue, key, value.name, value.value});
  }
  store.Apply(edits);
}

void OrderColumnsOf(RegistryStore& store, const std::vector<RegistryEdit>& edits) {
  std::set<std::string> ordered;
  for (const RegistryEdit& edit : edits) {
    if (edit.action != RegistryEdit::Action::kSetValue || !IsColumnKey(edit.key)) continue;
    if (ordered.insert(FoldName(edit.key.path)).second) OrderByNumber(store, edit.key);
  }
}

}  // namespace imptable
