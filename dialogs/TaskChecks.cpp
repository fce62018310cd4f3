#include "dialogs/TaskChecks.h"

#include <algorithm>

#include "core/Blanks.h"
#include "core/NumberText.h"
#include "core/TaskSettings.h"
#include "dialogs/columns/ColumnLayoutEditor.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

constexpr Refusal kNoSource{Message::kSelectDataSource, kParametersTab, "Combo1"};
constexpr Refusal kNoTable{Message::kChooseTable, kParametersTab, "txtTable"};

bool TaskExists(const ModuleCommun& module, const std::string& task) {
  const TextEncoding& encoding = module.platform.encoding;
  const std::string folded = FoldName(encoding.ToUtf8(task));
  const std::vector<std::string> tasks = module.SubkeyNames("");
  return std::any_of(tasks.begin(), tasks.end(), [&](const std::string& other) {
    return FoldName(encoding.ToUtf8(other)) == folded;
  });
}

bool IsEmptyOrBeginsBlank(std::string_view text) { return text.empty() || text.front() == ' '; }

/// True for a number, which a run compares with native codes, and for a reference, which the run
/// resolves first.
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
    return Refusal{Message::kEnterTaskName, kParametersTab, "txtTache"};
  if (!existing && TaskExists(module, state.txtTache)) {
    return Refusal{Message::kTaskExists, kParametersTab, "txtTache"};
  }
  if (state.Combo1.empty()) return kNoSource;
  if (state.txtLogin.empty() && user_name == UserName::kWanted)
    return Refusal{Message::kEnterUser, kParametersTab, "txtLogin"};
  if (state.txtTable.empty()) return kNoTable;
  if (IsEmptyOrBeginsBlank(state.txtAlias)) {
    return Refusal{Message::kEnterFile, kParametersTab, "txtAlias"};
  }
  const bool inserts = state.optBCP == kInsertButton;
  if (inserts && state.chkDou && !IsErrorCode(state.txtErr)) {
    return Refusal{Message::kEnterErrorCode, kErrorsTab, "txtErr"};
  }
  if (!inserts && !state.chkPrimKey && IsEmptyOrBeginsBlank(state.txtCle)) {
    return Refusal{Message::kEnterKey, kParametersTab, "txtCle"};
  }
  if (!IsColumnCount(state.textNbCol)) {
    return Refusal{Message::kIncorrectValue, kOptionsTab, "textNbCol"};
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
