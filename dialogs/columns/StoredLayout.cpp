#include "dialogs/columns/StoredLayout.h"

#include "core/SettingsTable.h"
#include "core/TaskSettings.h"
#include "dialogs/columns/FieldAssignment.h"

namespace imptable {
namespace {

std::string Subkey(std::string_view task, std::string_view name) {
  return std::string(task) + '\\' + std::string(name);
}

std::string ValueName(std::string_view subkey, std::string_view name) {
  return std::string(subkey) + '\\' + std::string(name);
}

/// A subkey that is written anew, value by value.
class Rewriting {
 public:
  Rewriting(ModuleCommun& module, std::string_view task, std::string_view name)
      : module_(module), path_(Subkey(task, name)) {
    const std::int32_t code = module.DeleteKey(task, name);
    if (code != kRegistryNotFound) code_ = code;
  }

  /// Values are named "1", "2", ... in the order of the calls.
  void Add(const std::string& value) {
    const std::int32_t code = module_.WriteText(path_, std::to_string(++count_), value);
    if (code_ == kRegistryOk) code_ = code;
  }

  std::int32_t code() const { return code_; }

 private:
  ModuleCommun& module_;
  std::string path_;
  std::size_t count_ = 0;
  std::int32_t code_ = kRegistryOk;
};

}  // namespace

std::vector<FileColumn> ReadColonnes(const ModuleCommun& module, std::string_view task,
                                     bool fixed_width, std::size_t count,
                                     std::vector<UnreadableValue>& unreadable) {
  const std::string path = Subkey(task, kColumnsSubkey);
  std::vector<FileColumn> columns(count);
  if (count == 0 || module.ValueNames(path).empty()) return columns;
  for (std::size_t n = 1; n <= count; ++n) {
    const std::string name = std::to_string(n);
    const std::string code = AsText(module.ReadValue(path, name));
    bool readable = true;
    columns[n - 1] = ReadFileColumn(module, code, fixed_width, readable);
    if (!readable) unreadable.push_back({ValueName(kColumnsSubkey, name), code});
  }
  return columns;
}

std::vector<FieldRow> ReadChamps(const ModuleCommun& module, std::string_view task,
                                 std::vector<UnreadableValue>& unreadable) {
  std::vector<FieldRow> rows;
  for (const StoredAssignment& assignment : LoadAssignments(module, task)) {
    bool readable = !assignment.value.empty();
    rows.push_back(ReadFieldAssignment(module, assignment.value, readable));
    if (!readable) {
      unreadable.push_back({ValueName(kFieldsSubkey, assignment.name), assignment.value});
    }
  }
  return rows;
}

std::int32_t WriteColonnes(ModuleCommun& module, std::string_view task, bool fixed_width,
                           const std::vector<FileColumn>& columns) {
  Rewriting subkey(module, task, kColumnsSubkey);
  for (const FileColumn& column : columns) {
    subkey.Add(FileColumnCode(module, column, fixed_width));
  }
  return subkey.code();
}

std::int32_t WriteChamps(ModuleCommun& module, std::string_view task, bool assigned,
                         const std::vector<FieldRow>& rows) {
  Rewriting subkey(module, task, kFieldsSubkey);
  if (!assigned) return subkey.code();
  for (const FieldRow& row : rows) subkey.Add(FieldAssignmentCode(module, row));
  return subkey.code();
}

}  // namespace imptable
