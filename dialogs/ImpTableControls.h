#ifndef DIALOGS_IMP_TABLE_CONTROLS_H_
#define DIALOGS_IMP_TABLE_CONTROLS_H_

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/MessageCatalogue.h"
#include "dialogs/ImpTableState.h"

namespace imptable {

/// Which references the variable buttons may put into a text field.
enum class VariableKinds : std::uint8_t { kNone, kVar, kCon, kAll };

/// A control that edits a text.
struct TextControl {
  std::string_view name;
  std::string ImpTableState::*text;
  VariableKinds kinds = VariableKinds::kNone;
};

/// Fields whose references a run resolves take variables and constants. The others take neither.
inline constexpr auto kTextControls = std::to_array<TextControl>({
    {"txtTache", &ImpTableState::txtTache},
    {"Combo1", &ImpTableState::Combo1, VariableKinds::kAll},
    {"txtLogin", &ImpTableState::txtLogin, VariableKinds::kAll},
    {"txtPass", &ImpTableState::txtPass, VariableKinds::kAll},
    {"txtOwn", &ImpTableState::txtOwn, VariableKinds::kAll},
    {"txtTable", &ImpTableState::txtTable, VariableKinds::kAll},
    {"txtAlias", &ImpTableState::txtAlias, VariableKinds::kAll},
    {"txtRep", &ImpTableState::txtRep, VariableKinds::kAll},
    {"txtCle", &ImpTableState::txtCle, VariableKinds::kAll},
    {"txtDelimiteurFile", &ImpTableState::txtDelimiteurFile},
    {"textNbCol", &ImpTableState::textNbCol},
    {"txtErreur", &ImpTableState::txtErreur},
    {"txtErr", &ImpTableState::txtErr, VariableKinds::kAll},
    {"txtComm", &ImpTableState::txtComm},
});

/// A check box.
struct CheckControl {
  std::string_view name;
  bool ImpTableState::*checked;
};

inline constexpr auto kCheckControls = std::to_array<CheckControl>({
    {"chkPrimKey", &ImpTableState::chkPrimKey},
    {"chkSupp", &ImpTableState::chkSupp},
    {"chkDec", &ImpTableState::chkDec},
    {"chkNull", &ImpTableState::chkNull},
    {"chkParam", &ImpTableState::chkParam},
    {"chkDou", &ImpTableState::chkDou},
    {"chkRecup", &ImpTableState::chkRecup},
});

/// An array of option buttons, of which one is selected.
struct OptionControl {
  std::string_view name;
  int ImpTableState::*selected;
  int count;
};

inline constexpr auto kOptionControls = std::to_array<OptionControl>({
    {"optBCP", &ImpTableState::optBCP, 5},
    {"optSup", &ImpTableState::optSup, 3},
    {"optForm", &ImpTableState::optForm, 2},
    {"OptCsv", &ImpTableState::OptCsv, 2},
});

/// A caption that the catalogue gives and no rule changes.
struct CaptionControl {
  std::string_view name;
  Message message;
};

inline constexpr auto kCaptionControls = std::to_array<CaptionControl>({
    {"SSTab1(0)", Message::kParameters},
    {"SSTab1(1)", Message::kOptions},
    {"SSTab1(2)", Message::kErrorManagement},
    {"SSTab1(3)", Message::kColumnFormat},
    {"SSTab1(4)", Message::kComment},
    {"SSTab1(5)", Message::kActions},
    {"Label8", Message::kTaskName},
    {"SSFrame3", Message::kOdbcSource},
    {"Label11", Message::kDataSourceName},
    {"Label10", Message::kUser},
    {"Label9", Message::kPassword},
    {"cmdAdminODBC", Message::kAdministration},
    {"SSFrame1", Message::kTable},
    {"Command1", Message::kListTables},
    {"OptCsv(0)", Message::kUseAliasAsCsv},
    {"OptCsv(1)", Message::kUseCompleteName},
    {"Label2", Message::kAlias},
    {"Label4", Message::kDirectory},
    {"Frame3D4", Message::kImportMode},
    {"optBCP(0)", Message::kUsingInsert},
    {"optBCP(1)", Message::kUsingUpdate},
    {"optBCP(2)", Message::kUsingInsertUpdate},
    {"optBCP(3)", Message::kUsingUpdateInsert},
    {"optBCP(4)", Message::kUsingDelete},
    {"Label5", Message::kKeyUsed},
    {"cmdCle", Message::kListKeys},
    {"chkPrimKey", Message::kUsePrimaryKey},
    {"SSFrame2", Message::kDeletion},
    {"optSup(0)", Message::kNoDeletion},
    {"optSup(1)", Message::kGlobalDeletion},
    {"optSup(2)", Message::kSelectiveDeletion},
    {"chkSupp", Message::kIfFileIsEmpty},
    {"SSFrame4", Message::kFileFormat},
    {"optForm(0)", Message::kFixed},
    {"optForm(1)", Message::kDelimited},
    {"Label7", Message::kSeparator},
    {"Label6", Message::kColumnCount},
    {"chkDec", Message::kDecimalSeparator},
    {"chkNull", Message::kBlankIsNull},
    {"chkParam", Message::kTableColumns},
    {"cmdInfo", Message::kFileColumns},
    {"Label3", Message::kErrorsAllowed},
    {"chkDou", Message::kIgnoreDuplicates},
    {"Label12", Message::kErrorCode},
    {"Frame3D7", Message::kResumeMode},
    {"chkRecup", Message::kResumeFiles},
    {"cmdAcA", Message::kAdd},
    {"cmdAcM", Message::kModify},
    {"cmdAcS", Message::kDelete},
    {"cmdValider", Message::kConfirm},
    {"cmdApp", Message::kApply},
    {"cmdAnnuler", Message::kCancel},
});

}  // namespace imptable

#endif  // DIALOGS_IMP_TABLE_CONTROLS_H_
