#ifndef CORE_TASK_DIALOG_H_
#define CORE_TASK_DIALOG_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace imptable {

/// The task type that the plug-in class reports, as the host knows it: never change.
inline constexpr std::int16_t kWrapperType = 50;

/// The task's configuration dialog, from opening to release.
class TaskDialog {
 public:
  virtual ~TaskDialog() = default;
  virtual void SetCaption(const std::string& caption) = 0;
  virtual void SetIcon(std::string_view resource) = 0;
  virtual void ShowModal() = 0;

  /// 1: the task exists (it was saved); 0: it doesn't; anything else says nothing.
  virtual std::int16_t Outcome() const = 0;

  /// The name under which the task was last saved.
  virtual std::string TaskName() const = 0;
};

/// Makes configuration dialogs; the seam between the class and the windows.
class TaskDialogFactory {
 public:
  virtual ~TaskDialogFactory() = default;

  /// @param working_mode  1 for an existing task, 0 for a new one.
  virtual std::unique_ptr<TaskDialog> Create(std::int16_t working_mode, const std::string& task,
                                             const std::string& scenario) = 0;
};

}  // namespace imptable

#endif  // CORE_TASK_DIALOG_H_
