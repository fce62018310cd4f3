// Any bytes as a registry export file.
#include <string>
#include <variant>
#include <vector>

#include "host/registry/RegistryExportFile.h"
#include "host/registry/RegistryExportText.h"
#include "platform/testing/PlainEncodings.h"
#include "tests/robustness/fuzz/FuzzInput.h"
#include "tests/robustness/fuzz/Property.h"

namespace imptable {
namespace {

using Action = RegistryEdit::Action;

bool Same(const RegistryEdit& one, const RegistryEdit& other) {
  return one.action == other.action && one.key.root == other.key.root &&
         one.key.path == other.key.path && one.name == other.name && one.value == other.value;
}

/// The keys and values that a file sets, without those that it deletes.
std::vector<StoredKey> Stored(const std::vector<RegistryEdit>& edits) {
  std::vector<StoredKey> keys;
  for (const RegistryEdit& edit : edits) {
    if (edit.action == Action::kCreateKey) keys.push_back({edit.key, {}});
    if (edit.action == Action::kSetValue) keys.back().values.push_back({edit.name, edit.value});
  }
  return keys;
}

void CheckEdits(const std::vector<RegistryEdit>& edits, const TextEncoding& encoding) {
  std::vector<const RegistryEdit*> kept;
  const KeyPath* current = nullptr;
  for (const RegistryEdit& edit : edits) {
    const bool of_value = edit.action == Action::kSetValue || edit.action == Action::kDeleteValue;
    Require(!of_value || (current != nullptr && current->path == edit.key.path),
            "a value belongs to the key above it");
    if (!of_value) current = edit.action == Action::kCreateKey ? &edit.key : nullptr;
    if (edit.action == Action::kCreateKey || edit.action == Action::kSetValue)
      kept.push_back(&edit);
  }
  const std::string written = RegistryExportOf(Stored(edits));
  const auto again = ParseRegistryExport(written, "again", encoding);
  const auto* const same = std::get_if<std::vector<RegistryEdit>>(&again);
  Require(same != nullptr, "a written export file is taken");
  Require(same->size() == kept.size(), "a written export file has as many entries");
  for (std::size_t i = 0; i < kept.size(); ++i) {
    Require(Same((*same)[i], *kept[i]), "a written export file says the same");
  }
  Require(RegistryExportOf(Stored(*same)) == written, "an export file is written as it was");
}

void CheckExport(FuzzInput input) {
  const Utf8TextEncoding utf8;
  const Latin1TextEncoding latin1;
  const std::uint8_t how = input.Byte();
  const TextEncoding& encoding = (how & 1U) != 0 ? static_cast<const TextEncoding&>(utf8) : latin1;
  std::string bytes(input.Rest());
  // Most of what a fuzzer can learn is behind the header.
  if ((how & 2U) != 0) bytes.insert(0, "Windows Registry Editor Version 5.00\n[HKLM\\K]\n");
  if ((how & 4U) != 0) bytes = Utf16FromUtf8("\xEF\xBB\xBF" + bytes);

  const auto read = ParseRegistryExport(bytes, "file", encoding);
  if (const auto* const error = std::get_if<RegistryExportError>(&read)) {
    Require(error->line >= 1 && error->line <= bytes.size() + 1,
            "an error is in a line of the file");
    Require(error->origin == "file", "an error names its file");
    return;
  }
  CheckEdits(std::get<std::vector<RegistryEdit>>(read), encoding);
}

}  // namespace
}  // namespace imptable

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  imptable::CheckExport({data, size});
  return 0;
}
