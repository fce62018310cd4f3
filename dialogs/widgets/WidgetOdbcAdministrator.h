#ifndef DIALOGS_WIDGETS_WIDGET_ODBC_ADMINISTRATOR_H_
#define DIALOGS_WIDGETS_WIDGET_ODBC_ADMINISTRATOR_H_

#include "dialogs/OdbcAdministrator.h"

namespace imptable {

/// Runs the administrator as a process. The dialogs wait for it: they take no input but are
/// painted.
class WidgetOdbcAdministrator : public OdbcAdministrator {
 public:
  void RunAndWait() override;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_WIDGET_ODBC_ADMINISTRATOR_H_
