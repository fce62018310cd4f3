#ifndef AUTOMATION_DISPATCH_ARGUMENTS_H_
#define AUTOMATION_DISPATCH_ARGUMENTS_H_

#include <vector>

#include "automation/AutomationApi.h"

namespace imptable {

/// The arguments of one late-bound call, each converted to the type that the member declares, in
/// the declared order. Clients pass arguments of whatever type they have. The system's dispatcher
/// doesn't convert to arguments by reference, and doesn't convert from every type of variant. What
/// is passed by reference is only read: no member changes it.
class DispatchArguments {
 public:
  DispatchArguments() = default;
  DispatchArguments(const DispatchArguments&) = delete;
  DispatchArguments& operator=(const DispatchArguments&) = delete;
  ~DispatchArguments();

  /// @param info  dispatch interface that `id` is a member of.
  /// @param flags  the ways of calling that the client allows.
  /// @param given  as the client passed them; stay valid as long as this.
  /// @param wrong_argument  place of the argument that is to blame; may be null.
  /// @return S_OK, or what IDispatch::Invoke has to answer.
  HRESULT Prepare(ITypeInfo& info, DISPID id, WORD flags, LCID locale, const DISPPARAMS* given,
                  UINT* wrong_argument);

  /// The one way of calling that was meant, and its arguments.
  WORD flags() const { return flags_; }
  DISPPARAMS* parameters() { return &parameters_; }

 private:
  HRESULT Convert(VARIANT& given, VARTYPE wanted, LCID locale, std::size_t place);

  WORD flags_ = 0;
  DISPPARAMS parameters_{};
  DISPID put_id_ = DISPID_PROPERTYPUT;
  std::vector<VARIANT> arguments_;  // last one first, as the system wants them
  std::vector<VARIANT> converted_;  // what by-reference arguments refer to; owned
};

}  // namespace imptable

#endif  // AUTOMATION_DISPATCH_ARGUMENTS_H_
