#ifndef AUTOMATION_HOST_OBJECT_NAMES_H_
#define AUTOMATION_HOST_OBJECT_NAMES_H_

namespace imptable {

// The host's object library, "KALDO Objets", as the component uses it: each class with its ProgID
// and the members that are called. All are the host's contract: never change. A root is a
// predefined registry handle (32 bits), a path is a text below that root.

/// What kinds of tasks there are.
namespace wrappers_class {
inline constexpr wchar_t kProgId[] = L"KaldoObjets.Wrappers";
inline constexpr wchar_t kGetTitle[] = L"GetTitle";      // (wrapper type, 16 bits) -> text
inline constexpr wchar_t kGetSummary[] = L"GetSummary";  // (wrapper type, 16 bits) -> text
}  // namespace wrappers_class

/// The execution report.
namespace report_class {
inline constexpr wchar_t kProgId[] = L"KaldoObjets.Rapport";
inline constexpr wchar_t kSetScenario[] = L"SetScenario";              // (scenario)
inline constexpr wchar_t kSetReportFilePath[] = L"SetReportFilePath";  // (full path)
inline constexpr wchar_t kWriteLine[] = L"WriteLine";  // (text, Bouton or Nothing, kind, 16 bits)
}  // namespace report_class

/// The variables and constants of scenarios.
namespace variables_class {
inline constexpr wchar_t kProgId[] = L"KaldoObjets.Variables";
// (root, path of the scenario's tasks, scenario, name) -> text; empty for an unknown name.
inline constexpr wchar_t kGetValue[] = L"GetValue";
// (root, path of the scenario's tasks, scenario, 0 variables or 1 constants, 16 bits)
inline constexpr wchar_t kOpenNames[] = L"OpenNames";
inline constexpr wchar_t kNextName[] = L"NextName";  // () -> name; empty after the last
}  // namespace variables_class

/// What the registry holds for the host itself: here, the actions attached to a task.
namespace registry_class {
inline constexpr wchar_t kProgId[] = L"KaldoObjets.Registre";
inline constexpr wchar_t kSetRegistryRoot[] = L"SetRegistryRoot";      // (root)
inline constexpr wchar_t kSetRegistrySubKey[] = L"SetRegistrySubKey";  // (path of the tasks)
inline constexpr wchar_t kOpenActions[] = L"OpenActions";              // (task)
// () -> type number of the next entry, which becomes the current one; negative after the last.
inline constexpr wchar_t kNextAction[] = L"NextAction";
inline constexpr wchar_t kVariable[] = L"Variable";  // property of the current entry: text
inline constexpr wchar_t kValeur[] = L"Valeur";      // the same
}  // namespace registry_class

/// The object that the host hands in as `Bouton`.
namespace button_object {
inline constexpr wchar_t kForm[] = L"wForm";  // property: an object with the two below
inline constexpr wchar_t kText[] = L"Text";   // property: text
inline constexpr wchar_t kTag[] = L"Tag";     // property: number
}  // namespace button_object

}  // namespace imptable

#endif  // AUTOMATION_HOST_OBJECT_NAMES_H_
