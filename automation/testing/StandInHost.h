#ifndef AUTOMATION_TESTING_STAND_IN_HOST_H_
#define AUTOMATION_TESTING_STAND_IN_HOST_H_

#include <map>
#include <memory>
#include <string>

#include "automation/testing/RegisteredClass.h"
#include "automation/testing/ScriptedObject.h"

namespace imptable {

/// A host's object library, registered while it lives. Its classes are "Wrappers", "Rapport",
/// "Variables" and "Registre"; "Rapport created" is logged besides what scripted objects log.
/// Members answer with nothing, and lists are empty, unless a test says otherwise.
class StandInHost {
 public:
  StandInHost();
  StandInHost(const StandInHost&) = delete;
  StandInHost& operator=(const StandInHost&) = delete;

  /// What a member of the class's objects does, from the next object on.
  ScriptedObject::Member& On(const std::string& class_name, const std::wstring& member) {
    return members_.at(class_name).at(member);
  }

  /// The member gives this text.
  void Answer(const std::string& class_name, const std::wstring& member, const std::string& text);

  /// The class is registered as before, but makes no objects.
  void Refuse(const std::string& class_name, HRESULT result) { refused_[class_name] = result; }

  /// The ProgID is registered as before, but no process serves the class.
  void Revoke(const std::string& class_name) { classes_.at(class_name)->Revoke(); }

  /// Nothing of the class is registered any more.
  void Unregister(const std::string& class_name) { classes_.erase(class_name); }

  ObjectLog log;

 private:
  ComPointer<IDispatch> Make(const std::string& class_name);

  std::map<std::string, std::map<std::wstring, ScriptedObject::Member>> members_;
  std::map<std::string, HRESULT> refused_;
  std::map<std::string, std::unique_ptr<RegisteredClass>> classes_;
};

}  // namespace imptable

#endif  // AUTOMATION_TESTING_STAND_IN_HOST_H_
