#ifndef DIALOGS_IMP_TABLE_STATE_H_
#define DIALOGS_IMP_TABLE_STATE_H_

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "dialogs/columns/ColumnLayoutState.h"

namespace imptable {

/// The tabs of SSTab1: never reorder.
inline constexpr int kParametersTab = 0;
inline constexpr int kOptionsTab = 1;
inline constexpr int kErrorsTab = 2;
inline constexpr int kColumnsTab = 3;
inline constexpr int kCommentTab = 4;
inline constexpr int kActionsTab = 5;
inline constexpr int kTabCount = 6;

/// The indexes of optBCP, optSup, optForm and OptCsv are stored in task settings: never change.
inline constexpr int kInsertButton = 0;  // of optBCP, 0 to 4
inline constexpr int kFixedButton = 0;   // of optForm
inline constexpr int kDelimitedButton = 1;
inline constexpr int kAliasButton = 0;  // of OptCsv
inline constexpr int kFullNameButton = 1;

/// All that FrmImpTable shows. Members of the control's kind are named after their control and hold
/// its text, its check mark or the index of its selected button. A control of an array is named
/// with its index, as "optBCP(0)"; a tab is "SSTab1(0)".
struct ImpTableState {
  std::string caption;          // of the form
  std::string icon;             // resource name of the form's icon
  int tab = kParametersTab;     // the tab that is in front
  int usable_tabs = kTabCount;  // the tabs from this one on are switched off
  bool password_masked = true;  // txtPass shows "*" for each character

  /// Captions of labels, frames, buttons, options, check boxes and tabs, by control name; those of
  /// the grids' headers are in `columns` and `actions_header`.
  std::map<std::string, std::string, std::less<>> captions;

  /// The controls that can't be used; every other one can.
  std::set<std::string, std::less<>> disabled;

  std::vector<std::string> sources;  // list of Combo1, in its order

  std::string txtTache;
  std::string Combo1;
  std::string txtLogin;
  std::string txtPass;
  std::string txtOwn;
  std::string txtTable;
  std::string txtAlias;
  std::string txtRep;
  std::string txtCle;
  std::string txtDelimiteurFile = ";";
  std::string textNbCol = "0";
  std::string txtErreur;
  std::string txtErr;
  std::string txtComm;

  bool chkPrimKey = false;
  bool chkSupp = false;
  bool chkDec = false;
  bool chkNull = false;
  bool chkParam = false;
  bool chkDou = false;
  bool chkRecup = false;

  int optBCP = kInsertButton;
  int optSup = 0;  // 0 none, 1 global, 2 selective
  int optForm = kDelimitedButton;
  int OptCsv = kAliasButton;

  ColumnLayoutState columns;                // Grid1, Grid2, List1, Command3, Text1, TextFichier
  std::vector<std::string> actions_header;  // grdAc, which has no other row

  /// The field at whose right edge cmdSv stands; empty while cmdSv is hidden.
  std::string variable_field;
  std::string cmdSv_tooltip;   // empty when the field holds no reference
  std::string cmdSv1_tooltip;  // of the button that always stands beside Combo1
};

}  // namespace imptable

#endif  // DIALOGS_IMP_TABLE_STATE_H_
