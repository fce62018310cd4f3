#include "odbc/Cancellation.h"

#include <thread>

namespace imptable {

Cancellation::Waiting::Waiting(Cancellation& cancellation, SQLHSTMT statement) noexcept
    : cancellation_(cancellation) {
  cancellation_.waited_for_.store(statement);
}

Cancellation::Waiting::~Waiting() {
  cancellation_.waited_for_.store(SQL_NULL_HSTMT);
  // Another thread may still be cancelling the statement, which must not be dropped meanwhile.
  while (cancellation_.cancelling_.load()) std::this_thread::yield();
}

void Cancellation::Cancel() noexcept {
  cancelling_.store(true);
  const SQLHSTMT statement = waited_for_.load();
  if (statement != SQL_NULL_HSTMT) SQLCancel(statement);
  cancelling_.store(false);
}

}  // namespace imptable
