#include "dialogs/VariableList.h"

#include "core/TaskSettings.h"
#include "dialogs/HostReference.h"

namespace imptable {
namespace {

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageConfirm = 2;
constexpr std::int32_t kMessageCancel = 3;
constexpr std::int32_t kMessageVariables = 69;
constexpr std::int32_t kMessageConstants = 70;
constexpr std::int32_t kMessageSelect = 76;

constexpr std::string_view kTooltipValue = " val: ";

}  // namespace

VariableListState ListVariables(const ModuleCommun& module, const std::string& scenario,
                                VariableKinds kinds) {
  VariableListState list{.caption = module.MessageText(kMessageSelect),
                         .cmdValider = module.MessageText(kMessageConfirm),
                         .cmdAnnuler = module.MessageText(kMessageCancel),
                         .groups = {}};
  const auto add = [&](ReferenceKind kind, std::int32_t title) {
    list.groups.push_back(
        {module.MessageText(title), module.host.ReferenceNames(module.location, scenario, kind)});
  };
  if (kinds == VariableKinds::kVar || kinds == VariableKinds::kAll) {
    add(ReferenceKind::kVariable, kMessageVariables);
  }
  if (kinds == VariableKinds::kCon || kinds == VariableKinds::kAll) {
    add(ReferenceKind::kConstant, kMessageConstants);
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
