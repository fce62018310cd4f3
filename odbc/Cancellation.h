#ifndef ODBC_CANCELLATION_H_
#define ODBC_CANCELLATION_H_

#include <atomic>

#include "odbc/OdbcApi.h"

namespace imptable {

/// Lets another thread cancel the statement that the run is waiting for.
class Cancellation {
 public:
  /// Marks a statement as waited for, from construction to destruction. One at a time.
  class Waiting {
   public:
    /// @param statement  borrowed.
    Waiting(Cancellation& cancellation, SQLHSTMT statement) noexcept;
    ~Waiting();
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

   private:
    Cancellation& cancellation_;
  };

  /// Cancels the statement that is waited for, if there is one and its driver supports that. Can be
  /// called from any thread, but not from a signal handler.
  void Cancel() noexcept;

 private:
  std::atomic<SQLHSTMT> waited_for_{SQL_NULL_HSTMT};
  std::atomic<bool> cancelling_{false};
};

}  // namespace imptable

#endif  // ODBC_CANCELLATION_H_
