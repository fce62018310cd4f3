#ifndef DIALOGS_WIDGETS_PAGES_H_
#define DIALOGS_WIDGETS_PAGES_H_

#include <functional>

#include "dialogs/widgets/PageBuilder.h"

class wxPanel;

namespace imptable {

/// UpDown1 on textNbCol was pressed.
using SpinHandler = std::function<void(bool up)>;

/// Each fills one page of SSTab1 with its controls.
void FillParametersPage(wxPanel* page, PageBuilder& build);
void FillOptionsPage(wxPanel* page, PageBuilder& build, SpinHandler spin);
void FillErrorsPage(wxPanel* page, PageBuilder& build);
void FillCommentPage(wxPanel* page, PageBuilder& build);
void FillActionsPage(wxPanel* page, PageBuilder& build);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_PAGES_H_
