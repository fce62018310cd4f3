#include "automation/testing/StandInHost.h"

#include <utility>

namespace imptable {

StandInHost::StandInHost()
    : members_{{"Wrappers", {{L"GetTitle", {}}, {L"GetSummary", {}}}},
               {"Rapport", {{L"SetScenario", {}}, {L"SetReportFilePath", {}}, {L"WriteLine", {}}}},
               {"Variables", {{L"GetValue", {}}, {L"OpenNames", {}}, {L"NextName", {}}}},
               {"Registre",
                {{L"SetRegistryRoot", {}},
                 {L"SetRegistrySubKey", {}},
                 {L"OpenActions", {}},
                 {L"NextAction", [](auto) { return AutomationValue(std::int16_t{-1}); }},
                 {L"Variable", {}},
                 {L"Valeur", {}}}}} {
  for (const auto& [class_name, members] : members_) {
    classes_[class_name] = std::make_unique<RegisteredClass>(
        L"KaldoObjets." + ToWide(class_name), [this, name = class_name] { return Make(name); });
  }
}

void StandInHost::Answer(const std::string& class_name, const std::wstring& member,
                         const std::string& text) {
  On(class_name, member) = [text](auto) { return AutomationValue(text); };
}

ComPointer<IDispatch> StandInHost::Make(const std::string& class_name) {
  if (const auto refused = refused_.find(class_name); refused != refused_.end()) {
    throw refused->second;
  }
  log.calls.push_back(class_name + " created");
  const auto object = ScriptedObject::Make(class_name, log, members_.at(class_name));
  return ComPointer<IDispatch>(object.get());
}

}  // namespace imptable
