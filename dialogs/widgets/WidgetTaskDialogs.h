#ifndef DIALOGS_WIDGETS_WIDGET_TASK_DIALOGS_H_
#define DIALOGS_WIDGETS_WIDGET_TASK_DIALOGS_H_

#include <memory>
#include <string>

#include "core/TaskDialog.h"
#include "dialogs/DialogServices.h"

class wxWindow;

namespace imptable {

/// Makes configuration dialogs of real windows. The toolkit must be running.
class WidgetTaskDialogs : public TaskDialogFactory {
 public:
  /// @param services  borrowed.
  /// @param parent  the window that the dialogs are modal to; borrowed, may be null.
  explicit WidgetTaskDialogs(const DialogServices& services, wxWindow* parent = nullptr)
      : services_(services), parent_(parent) {}

  std::unique_ptr<TaskDialog> Create(std::int16_t working_mode, const std::string& task,
                                     const std::string& scenario) override;

  /// True once any of the dialogs has saved its task.
  bool saved() const { return saved_; }

 private:
  const DialogServices& services_;
  wxWindow* parent_;
  bool saved_ = false;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_WIDGET_TASK_DIALOGS_H_
