#include "dialogs/widgets/OneStop.h"

namespace imptable {

// It is one there.
void MakeOneStop(wxComboBox& /*list*/) {}

}  // namespace imptable
