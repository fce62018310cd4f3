#include "dialogs/widgets/WidgetTaskDialogs.h"

#include "dialogs/widgets/ImpTableWindow.h"

namespace imptable {
namespace {

class WidgetTaskDialog : public TaskDialog {
 public:
  WidgetTaskDialog(wxWindow* parent, const DialogServices& services, std::int16_t working_mode,
                   const std::string& task, const std::string& scenario, bool& saved)
      : saved_(saved), window_(parent, services, working_mode, task, scenario) {}

  void SetCaption(const std::string& caption) override { window_.presenter().SetCaption(caption); }
  void SetIcon(std::string_view resource) override { window_.presenter().SetIcon(resource); }
  void ShowModal() override {
    window_.Run();
    saved_ = saved_ || window_.presenter().saved_now();
  }
  std::int16_t Outcome() const override { return window_.presenter().saved() ? 1 : 0; }
  std::string TaskName() const override { return window_.presenter().task_name(); }

 private:
  bool& saved_;
  ImpTableWindow window_;
};

}  // namespace

std::unique_ptr<TaskDialog> WidgetTaskDialogs::Create(std::int16_t working_mode,
                                                      const std::string& task,
                                                      const std::string& scenario) {
  return std::make_unique<WidgetTaskDialog>(parent_, services_, working_mode, task, scenario,
                                            saved_);
}

}  // namespace imptable
