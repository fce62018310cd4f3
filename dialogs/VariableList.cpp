#include "dialogs/VariableList.h"

#include "core/TaskSettings.h"
#include "dialogs/HostReference.h"

namespace imptable {
namespace {

constexpr std::string_view kTooltipValue = " val: ";

}  // namespace

VariableListState ListVariables(const ModuleCommun& module, const std::string& scenario,
                                VariableKinds kinds) {
  VariableListState list{.caption = module.MessageText(Message::kSelectVariable),
                         .cmdValider = module.MessageText(Message::kConfirm),
                         .cmdAnnuler = module.MessageText(Message::kCancel),
                         .groups = {}};
  const auto add = [&](ReferenceKind kind, Message title) {
    list.groups.push_back(
        {module.MessageText(title), module.host.ReferenceNames(module.location, scenario, kind)});
  };
  if (kinds == VariableKinds::kVar || kinds == VariableKinds::kAll) {
    add(ReferenceKind::kVariable, Message::kVariables);
  }
  if (kinds == VariableKinds::kCon || kinds == VariableKinds::kAll) {
    add(ReferenceKind::kConstant, Message::kConstants);
  }
  return list;
}

std::string ReferenceTooltip(const ModuleCommun& module, const std::string& scenario,
                             const std::string& text) {
  if (!IsVariableReference(text)) return {};
  std::string value;
  try {
    value = ResolveReference(module, scenario, text);
  } catch (const RuntimeFault&) {
    // A tooltip is no place to complain about the host.
  }
  return text + std::string(kTooltipValue) + value;
}

}  // namespace imptable
