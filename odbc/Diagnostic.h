#ifndef ODBC_DIAGNOSTIC_H_
#define ODBC_DIAGNOSTIC_H_

#include <string>
#include <vector>

#include "core/MessageCatalogue.h"
#include "odbc/OdbcApi.h"

namespace imptable {

/// What a driver says about a failure, or about a success.
struct Diagnostic {
  std::string state = {};      // SQLSTATE, five characters
  SQLINTEGER native_code = 0;  // the database's own code
  std::string text = {};       // without the connection's password
};

/// As a person sees it: "(code) text", the code with a leading blank in place of a plus sign.
std::string DiagnosticText(const Diagnostic& diagnostic);

/// Where the failures of a data source go.
class FailureListener {
 public:
  virtual ~FailureListener() = default;

  /// A call failed. @param diagnostics  empty when the driver says nothing about it.
  virtual void OnDiagnostics(const std::vector<Diagnostic>& diagnostics) = 0;

  /// A step of connecting or disconnecting failed. @param message  names the step.
  virtual void OnFailedStep(Message message) = 0;
};

}  // namespace imptable

#endif  // ODBC_DIAGNOSTIC_H_
