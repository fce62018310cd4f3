#include "dialogs/widgets/OneStop.h"

namespace imptable {

// On Windows the group is one stop already.
void MakeOneStop(wxComboBox& /*list*/) {}

}  // namespace imptable
