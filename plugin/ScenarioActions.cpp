#include "plugin/ScenarioActions.h"

#include <array>
#include <string_view>

namespace imptable {
namespace {

constexpr std::string_view kNewLine = "\r\n    ";

// By the value of "Ope": never change.
constexpr std::array<std::string_view, 6> kOperators{"<", "<=", ">", ">=", "=", "<>"};

class ActionText {
 public:
  ActionText(const ModuleCommun& module, const std::string& task)
      : module_(module),
        path_(task + "\\Action"),
        language_offset_(module.language_offset == kFrenchOffset ? kFrenchOffset : kEnglishOffset) {
  }

  std::string Entry(const ActionEntry& entry) const {
    std::string text = Body(entry.type);
    if (!entry.variable.empty() && !entry.value.empty()) {
      if (entry.type != ActionType::kConditional) text += kNewLine;
      text += '@' + entry.variable + " = " + entry.value;
    }
    return text + '#';
  }

 private:
  std::string Body(ActionType type) const {
    switch (type) {
      case ActionType::kOnError:
        return "[OnErr]#" + Continuation("\\OnErr");
      case ActionType::kOnDecision:
        return "[OnDec]#" + Continuation("\\OnDec");
      case ActionType::kConditional:
        return "[ExeIf]#";
      case ActionType::kJump:
        return "[Goto]#" + Jump("\\Goto");
    }
    return {};
  }

  std::string Continuation(const std::string& key) const {
    return Label(ComponentText::kRunScenario) + Flag(key, "Go") + std::string(kNewLine) +
           Label(ComponentText::kRunAgain) + Flag(key, "Loop");
  }

  std::string Jump(const std::string& key) const {
    return "Goto " + Value(key, "Dest") + std::string(kNewLine) +
           Label(ComponentText::kCheckAfter) + Flag(key, "Check") + std::string(kNewLine) +
           Label(ComponentText::kCondition) + Value(key, "GVar") + ' ' +
           Operator(Value(key, "Ope")) + ' ' + Value(key, "Value");
  }

  static std::string Operator(const std::string& index) {
    const bool known = index.size() == 1 && index[0] >= '0' &&
                       index[0] < static_cast<char>('0' + kOperators.size());
    return known ? std::string(kOperators[static_cast<std::size_t>(index[0] - '0')])
                 : std::string();
  }

  std::string Value(const std::string& key, std::string_view name) const {
    return AsText(module_.ReadValue(path_ + key, name));
  }

  std::string Flag(const std::string& key, std::string_view name) const {
    return Label(Value(key, name) == "1" ? ComponentText::kTrue : ComponentText::kFalse);
  }

  std::string Label(ComponentText text) const {
    return InWords(text, language_offset_, module_.platform.encoding);
  }

  const ModuleCommun& module_;
  std::string path_;
  std::int32_t language_offset_;
};

}  // namespace

std::string DescribeActions(const ModuleCommun& module, const std::string& task) {
  const ActionText action(module, task);
  std::string text;
  for (const ActionEntry& entry : module.host.ActionEntries(module.location, task)) {
    text += action.Entry(entry);
  }
  return text;
}

}  // namespace imptable
