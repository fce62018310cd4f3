#ifndef DIALOGS_WIDGETS_WIDGET_ODBC_ADMINISTRATOR_H_
#define DIALOGS_WIDGETS_WIDGET_ODBC_ADMINISTRATOR_H_

#include "dialogs/OdbcAdministrator.h"

namespace imptable {

/// The administrator as a process that the dialogs wait for: frozen, but painted.
class WidgetOdbcAdministrator : public OdbcAdministrator {
 public:
  void RunAndWait() override;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_WIDGET_ODBC_ADMINISTRATOR_H_
