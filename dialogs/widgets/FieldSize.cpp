#include "dialogs/widgets/FieldSize.h"

#include <wx/textctrl.h>

#include <algorithm>

namespace imptable {

wxSize FieldSize(const wxTextCtrl& field, int characters) {
  constexpr int kBorders = 10;  // above and below the letters, in pixels of an ordinary screen
  wxSize size = field.GetSizeFromTextSize(field.GetCharWidth() * characters);
  // Toolkits measure the height wrongly for fonts other than their usual one.
  size.y = std::max(size.y, field.GetCharHeight() + field.FromDIP(kBorders));
  return size;
}

}  // namespace imptable
