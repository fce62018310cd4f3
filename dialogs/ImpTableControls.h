#ifndef DIALOGS_IMP_TABLE_CONTROLS_H_
#define DIALOGS_IMP_TABLE_CONTROLS_H_

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "dialogs/ImpTableState.h"

namespace imptable {

/// Which references a text field takes from the variable buttons: its kind word.
enum class VariableKinds : std::uint8_t { kNone, kVar, kCon, kAll };

/// A control that edits a text.
struct TextControl {
  std::string_view name;
  std::string ImpTableState::*text;
  VariableKinds kinds = VariableKinds::kNone;
};

/// The fields that a run resolves take variables and constants alike, the others neither.
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
  std::int32_t message;
};

inline constexpr auto kCaptionControls = std::to_array<CaptionControl>({
    {"SSTab1(0)", 38}, {"SSTab1(1)", 39},  {"SSTab1(2)", 40},  {"SSTab1(3)", 23},
    {"SSTab1(4)", 16}, {"SSTab1(5)", 83},  {"Label8", 41},     {"SSFrame3", 17},
    {"Label11", 18},   {"Label10", 19},    {"Label9", 20},     {"cmdAdminODBC", 9},
    {"SSFrame1", 15},  {"Command1", 10},   {"OptCsv(0)", 13},  {"OptCsv(1)", 14},
    {"Label2", 22},    {"Label4", 28},     {"Frame3D4", 21},   {"optBCP(0)", 29},
    {"optBCP(1)", 30}, {"optBCP(2)", 31},  {"optBCP(3)", 32},  {"optBCP(4)", 33},
    {"Label5", 25},    {"cmdCle", 11},     {"chkPrimKey", 67}, {"SSFrame2", 24},
    {"optSup(0)", 34}, {"optSup(1)", 35},  {"optSup(2)", 36},  {"chkSupp", 65},
    {"SSFrame4", 48},  {"optForm(0)", 58}, {"optForm(1)", 56}, {"Label7", 51},
    {"Label6", 46},    {"chkDec", 45},     {"chkNull", 66},    {"chkParam", 62},
    {"cmdInfo", 59},   {"Label3", 37},     {"chkDou", 63},     {"Label12", 64},
    {"Frame3D7", 26},  {"chkRecup", 27},   {"cmdAcA", 84},     {"cmdAcM", 82},
    {"cmdAcS", 85},    {"cmdValider", 2},  {"cmdApp", 1},      {"cmdAnnuler", 3},
});

}  // namespace imptable

#endif  // DIALOGS_IMP_TABLE_CONTROLS_H_
