#ifndef DIALOGS_WIDGETS_FIELD_SIZE_H_
#define DIALOGS_WIDGETS_FIELD_SIZE_H_

#include <wx/gdicmn.h>

class wxTextCtrl;

namespace imptable {

/// What a field of one line takes so that so many characters, and letters of its font in their
/// whole height, can be seen.
wxSize FieldSize(const wxTextCtrl& field, int characters);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_FIELD_SIZE_H_
