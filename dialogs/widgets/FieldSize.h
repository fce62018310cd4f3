#ifndef DIALOGS_WIDGETS_FIELD_SIZE_H_
#define DIALOGS_WIDGETS_FIELD_SIZE_H_

#include <wx/gdicmn.h>

class wxTextCtrl;

namespace imptable {

/// The size at which a field of one line shows so many characters, in the whole height of its font.
wxSize FieldSize(const wxTextCtrl& field, int characters);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_FIELD_SIZE_H_
