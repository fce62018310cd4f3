#include "dialogs/TaskChecks.h"

#include <algorithm>

#include "core/Blanks.h"
#include "core/TaskSettings.h"
#include "core/WholeNumber.h"
#include "dialogs/columns/ColumnLayoutEditor.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageNoSource = 47;
constexpr std::int32_t kMessageNoName = 121;
constexpr std::int32_t kMessageNameTaken = 122;
constexpr std::int32_t kMessageNoKey = 126;
constexpr std::int32_t kMessageNoUser = 127;
constexpr std::int32_t kMessageIncorrectValue = 128;
constexpr std::int32_t kMessageNoTable = 129;
constexpr std::int32_t kMessageNoFile = 135;
constexpr std::int32_t kMessageNoErrorCode = 156;

constexpr Refusal kNoSource{kMessageNoSource, kParametersTab, "Combo1"};
constexpr Refusal kNoTable{kMessageNoTable, kParametersTab, "txtTable"};

bool TaskExists(const ModuleCommun& module, const std::string& task) {
  const TextEncoding& encoding = module.platform.encoding;
  const std::string folded = FoldName(encoding.ToUtf8(task));
  const std::vector<std::string> tasks = module.SubkeyNames("");
  return std::any_of(tasks.begin(), tasks.end(), [&](const std::string& other) {
    return FoldName(encoding.ToUtf8(other)) == folded;
  });
}

bool IsEmptyOrBeginsBlank(std::string_view text) { return text.empty() || text.front() == ' '; }

/// What a run can compare with a native code, now or once the reference is resolved.
bool IsErrorCode(const std::string& text) {
  if (IsVariableReference(text)) return true;
  try {
    AsInt32(text, "CodErr");
    return true;
  } catch (const RuntimeFault&) {
    return false;
  }
}

bool IsColumnCount(std::string_view text) {
  const auto count = ReadWholeNumber(text);
  return IsBlank(text) || (count && *count <= kMostFileColumns);
}

}  // namespace

std::optional<Refusal> CheckTask(const ModuleCommun& module, bool existing,
                                 const ImpTableState& state, UserName user_name) {
  if (!existing && state.txtTache.empty())
    return Refusal{kMessageNoName, kParametersTab, "txtTache"};
  if (!existing && TaskExists(module, state.txtTache)) {
    return Refusal{kMessageNameTaken, kParametersTab, "txtTache"};
  }
  if (state.Combo1.empty()) return kNoSource;
  if (state.txtLogin.empty() && user_name == UserName::kWanted)
    return Refusal{kMessageNoUser, kParametersTab, "txtLogin"};
  if (state.txtTable.empty()) return kNoTable;
  if (IsEmptyOrBeginsBlank(state.txtAlias)) {
    return Refusal{kMessageNoFile, kParametersTab, "txtAlias"};
  }
  const bool inserts = state.optBCP == kInsertButton;
  if (inserts && state.chkDou && !IsErrorCode(state.txtErr)) {
    return Refusal{kMessageNoErrorCode, kErrorsTab, "txtErr"};
  }
  if (!inserts && !state.chkPrimKey && IsEmptyOrBeginsBlank(state.txtCle)) {
    return Refusal{kMessageNoKey, kParametersTab, "txtCle"};
  }
  if (!IsColumnCount(state.textNbCol)) {
    return Refusal{kMessageIncorrectValue, kOptionsTab, "textNbCol"};
  }
  return std::nullopt;
}

std::optional<Refusal> CheckSource(const ImpTableState& state) {
  if (state.Combo1.empty()) return kNoSource;
  return std::nullopt;
}

std::optional<Refusal> CheckSourceAndTable(const ImpTableState& state) {
  if (state.Combo1.empty()) return kNoSource;
  if (state.txtTable.empty()) return kNoTable;
  return std::nullopt;
}

}  // namespace imptable
