#ifndef AUTOMATION_AUTOMATION_ENTRY_H_
#define AUTOMATION_AUTOMATION_ENTRY_H_

#include <fenv.h>

#include <new>
#include <utility>

#include "automation/AutomationApi.h"

namespace imptable {

/// A failed call of the system's automation library: ends the routine it happens in.
class AutomationError {
 public:
  explicit AutomationError(HRESULT result) : result_(result) {}
  HRESULT result() const noexcept { return result_; }

 private:
  HRESULT result_;
};

/// @throws AutomationError  when the call has failed.
inline void Require(HRESULT result) {
  if (FAILED(result)) throw AutomationError(result);
}

/// The default floating-point environment while it lives, then the former one again. A host may
/// compute with other precision or let divisions by zero fault.
class DefaultFloatingPoint {
 public:
  DefaultFloatingPoint() noexcept {
    fegetenv(&former_);
    fesetenv(FE_DFL_ENV);
  }
  DefaultFloatingPoint(const DefaultFloatingPoint&) = delete;
  DefaultFloatingPoint& operator=(const DefaultFloatingPoint&) = delete;
  ~DefaultFloatingPoint() { fesetenv(&former_); }

 private:
  fenv_t former_{};
};

/// Runs what a foreign caller asked for; no exception gets through.
/// @param body  returns an HRESULT.
template <typename Body>
HRESULT Enter(Body&& body) noexcept {
  const DefaultFloatingPoint floating_point;
  try {
    return std::forward<Body>(body)();
  } catch (const AutomationError& error) {
    return error.result();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace imptable

#endif  // AUTOMATION_AUTOMATION_ENTRY_H_
