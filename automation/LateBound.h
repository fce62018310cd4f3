#ifndef AUTOMATION_LATE_BOUND_H_
#define AUTOMATION_LATE_BOUND_H_

#include <array>
#include <optional>
#include <span>
#include <string>

#include "automation/AutomationValue.h"
#include "core/RuntimeFault.h"

namespace imptable {

/// A member that was looked up: its number, and its name for fault texts.
struct LateBoundMember {
  DISPID id = DISPID_UNKNOWN;
  std::string name;
};

/// An object of the host, called by the names of its members. A name can be looked up once and
/// called often, or looked up with the call. The object stays alive as long as a call lasts,
/// whatever the host does meanwhile.
/// @throws RuntimeFault  no such host object, from every member that fails: it names the object and
/// the member, and gives the description that the object gave, else the result code.
class LateBound {
 public:
  /// @param object  may be empty: then nothing can be looked up.
  /// @param name  the object's name for fault texts.
  LateBound(ComPointer<IDispatch> object, std::string name)
      : object_(std::move(object)), name_(std::move(name)) {}

  IDispatch* get() const { return object_.get(); }

  LateBoundMember Find(const wchar_t* member) const;

  /// @return nullopt when the object has no such member.
  std::optional<LateBoundMember> FindIfThere(const wchar_t* member) const;

  /// Calls a method. @param arguments  texts, numbers and objects, in the method's order.
  template <typename... Arguments>
  AutomationValue Call(const LateBoundMember& member, const Arguments&... arguments) const {
    // In automation the last argument comes first.
    std::array<AutomationValue, sizeof...(Arguments)> values{AutomationValue(arguments)...};
    return Invoke(member, DISPATCH_METHOD, values);
  }
  template <typename... Arguments>
  AutomationValue Call(const wchar_t* member, const Arguments&... arguments) const {
    return Call(Find(member), arguments...);
  }

  /// Reads a property, or a function without arguments: a late-bound caller can't tell them apart.
  AutomationValue Get(const LateBoundMember& member) const {
    return Invoke(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {});
  }

  template <typename Value>
  void Put(const LateBoundMember& member, const Value& value) const {
    std::array<AutomationValue, 1> values{AutomationValue(value)};
    Invoke(member, DISPATCH_PROPERTYPUT, values);
  }

 private:
  AutomationValue Invoke(const LateBoundMember& member, int kind,
                         std::span<const AutomationValue> arguments) const;

  ComPointer<IDispatch> object_;
  std::string name_;
};

/// What a member gave, as a text in the system's code page.
/// @throws RuntimeFault  no such host object, naming the member, when the value is no text.
std::string TextFrom(const LateBoundMember& member, const AutomationValue& value);

/// The same as a number.
std::int32_t NumberFrom(const LateBoundMember& member, const AutomationValue& value);

/// A new object of a class, from this process or another one of this machine.
/// @return nullopt when no class of this name is registered.
/// @throws RuntimeFault  no such host object, naming the class, when a registered class can't be
/// created.
std::optional<LateBound> CreateLateBound(const wchar_t* prog_id);

}  // namespace imptable

#endif  // AUTOMATION_LATE_BOUND_H_
