#ifndef AUTOMATION_TESTING_SCRIPTED_OBJECT_H_
#define AUTOMATION_TESTING_SCRIPTED_OBJECT_H_

#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "automation/AutomationValue.h"

namespace imptable {

/// How a member of a scripted object fails.
struct ScriptedFailure {
  HRESULT result = DISP_E_EXCEPTION;
  std::wstring description{};  // with DISP_E_EXCEPTION
  HRESULT code = 0;            // with DISP_E_EXCEPTION: what stands beside the description
  bool describes_itself_later = false;
};

/// What scripted objects were asked, in order.
struct ObjectLog {
  /// "Object.Member('text', i2 7, i4 -1, Nothing)" for a call, "Object.Member" for a property that
  /// is read, "Object.Member = 'text'" for one that is put, "Object gone" at the last reference.
  std::vector<std::string> calls;

  /// "Object.Member" for each name that was looked up.
  std::vector<std::string> lookups;

  /// How objects among the arguments are shown; others are "an object".
  std::map<IDispatch*, std::string> names;
};

/// A late-bound object whose members are functions of a test.
class ScriptedObject final : public IDispatch {
 public:
  /// @param arguments  in the method's order; the new value of a property that is put.
  /// @return the answer. @throws ScriptedFailure  to make the object's call fail so.
  using Member = std::function<AutomationValue(std::span<const VARIANT> arguments)>;

  /// @param log  borrowed; must outlive the object.
  static ComPointer<ScriptedObject> Make(std::string name, ObjectLog& log,
                                         std::map<std::wstring, Member> members = {}) {
    return ComPointer<ScriptedObject>(new ScriptedObject(std::move(name), log, std::move(members)));
  }
  ScriptedObject(const ScriptedObject&) = delete;
  ScriptedObject& operator=(const ScriptedObject&) = delete;

  /// What the member does from now on; a new member is added.
  Member& On(const std::wstring& member) { return members_[member]; }

  ULONG references() const { return references_; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() noexcept override;
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception,
                      UINT* wrong_argument) noexcept override;

 private:
  ScriptedObject(std::string name, ObjectLog& log, std::map<std::wstring, Member> members)
      : name_(std::move(name)), log_(log), members_(std::move(members)) {}
  ~ScriptedObject() { log_.calls.push_back(name_ + " gone"); }

  std::string name_;
  ObjectLog& log_;
  std::map<std::wstring, Member> members_;
  std::vector<std::wstring> numbered_;  // member of the number i + 1
  ULONG references_ = 0;
};

/// The text of an argument. @throws ScriptedFailure  type mismatch when it is no text.
std::string TextArgument(const VARIANT& argument);

}  // namespace imptable

#endif  // AUTOMATION_TESTING_SCRIPTED_OBJECT_H_
