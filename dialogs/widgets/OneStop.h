#ifndef DIALOGS_WIDGETS_ONE_STOP_H_
#define DIALOGS_WIDGETS_ONE_STOP_H_

class wxComboBox;

namespace imptable {

/// Lets Tab stop at the list's field alone, not at its arrow as well.
void MakeOneStop(wxComboBox& list);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_ONE_STOP_H_
