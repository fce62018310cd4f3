#include "dialogs/TaskSaving.h"

#include <string_view>

#include "core/StampText.h"
#include "core/TaskDialog.h"
#include "core/TaskSettings.h"

namespace imptable {
namespace {

// Value names as other readers of the key know them: never change.
constexpr std::string_view kCreatedName = "CréeLe";
constexpr std::string_view kModifiedName = "ModifiéLe";

constexpr std::string_view kDefaultErrorLimit = "100";

/// Writes values of one task until the registry refuses one.
class TaskWriter {
 public:
  TaskWriter(ModuleCommun& module, const std::string& task) : module_(module), task_(task) {}

  void Text(std::string_view name, std::string_view text) {
    if (!failure_) Note(name, module_.WriteText(task_, name, text));
  }

  void Number(std::string_view name, std::int32_t number) {
    if (!failure_) Note(name, module_.WriteNumber(task_, name, number));
  }

  template <typename Write>
  void Subkey(std::string_view name, Write write) {
    if (!failure_) Note(name, write());
  }

  const std::optional<SaveFailure>& failure() const { return failure_; }

 private:
  void Note(std::string_view name, std::int32_t code) {
    if (code != kRegistryOk) failure_ = SaveFailure{std::string(name), code};
  }

  ModuleCommun& module_;
  const std::string& task_;
  std::optional<SaveFailure> failure_;
};

}  // namespace

std::optional<SaveFailure> SaveTask(ModuleCommun& module, const std::string& task, bool existing,
                                    ImpTableState& state, ColumnLayoutEditor& columns) {
  TaskWriter write(module, task);
  const TextEncoding& encoding = module.platform.encoding;
  const std::string now = StampText(module.platform.clock.Now());
  if (existing) {
    write.Text(encoding.FromUtf8(kModifiedName), now);
  } else {
    write.Number("Etat", 0);
    write.Text(encoding.FromUtf8(kCreatedName), now);
  }
  write.Number("Type", kWrapperType);
  write.Text("Base Cible", state.Combo1);
  write.Text("Login", state.txtLogin);
  write.Text("Password",
             IsVariableReference(state.txtPass) ? state.txtPass : TransformPassword(state.txtPass));
  write.Text("Table", state.txtTable);
  write.Text("Owner", state.txtOwn);
  write.Text("Alias", state.txtAlias);
  write.Text("Comment", state.txtComm);
  write.Text("Cle/Index", state.txtCle);
  write.Number("PrimKey", state.chkPrimKey ? 1 : 0);
  write.Number("Mode", state.optBCP);
  write.Number("Suppression", state.optSup);
  write.Number("DupKey", state.chkDou ? 1 : 0);
  write.Text("CodErr", state.txtErr);
  write.Text("Dir", state.txtRep);
  if (state.txtErreur.empty()) state.txtErreur = kDefaultErrorLimit;
  write.Text("Erreurs", state.txtErreur);
  write.Number("RecErreurs", state.chkRecup ? 1 : 0);
  write.Number("FicErr", 1);
  write.Text("DelimiteurFile", state.txtDelimiteurFile);
  write.Number("FormatFile", state.optForm == kDelimitedButton ? 1 : 0);
  write.Number("NombreColonnes", columns.column_count());
  write.Number("SiVide", state.chkSupp ? 1 : 0);
  write.Subkey("Colonnes", [&] { return columns.WriteColonnes(task); });
  write.Number("SepDec", state.chkDec ? 1 : 0);
  write.Number("Null", state.chkNull ? 1 : 0);
  write.Number("Param", state.chkParam ? 1 : 0);
  write.Subkey("Champs", [&] { return columns.WriteChamps(task, state.chkParam); });
  write.Number("UseAlias", state.OptCsv == kFullNameButton ? 1 : 0);
  return write.failure();
}

}  // namespace imptable
