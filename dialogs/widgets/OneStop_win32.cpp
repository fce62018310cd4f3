#include "dialogs/widgets/OneStop.h"

namespace imptable {

// On Windows a drop-down list is one stop already.
void MakeOneStop(wxComboBox& /*list*/) {}

}  // namespace imptable
