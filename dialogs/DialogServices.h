#ifndef DIALOGS_DIALOG_SERVICES_H_
#define DIALOGS_DIALOG_SERVICES_H_

#include <functional>
#include <string>

#include "core/ModuleCommun.h"
#include "dialogs/DialogBoxes.h"
#include "dialogs/OdbcAdministrator.h"

namespace imptable {

/// What the configuration dialog uses; all borrowed, all outlive it. The host's object library and
/// the mouse pointer come with the module.
struct DialogServices {
  ModuleCommun& module;
  DialogBoxes& boxes;
  OdbcAdministrator& administrator;

  /// Opens the host's help; empty when the host has none, cmdHelp is then disabled.
  std::function<void()> open_help = {};

  /// The question before a task is saved without a user name. Empty: such a task isn't saved.
  std::string question_without_user = {};
};

}  // namespace imptable

#endif  // DIALOGS_DIALOG_SERVICES_H_
