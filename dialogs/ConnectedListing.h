#ifndef DIALOGS_CONNECTED_LISTING_H_
#define DIALOGS_CONNECTED_LISTING_H_

#include <string>

#include "odbc/Catalogue.h"
#include "odbc/FailureReport.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// The dialog's fields that say where the table is, as typed.
struct ConnectionFields {
  std::string data_source;  // Combo1
  std::string user;         // txtLogin
  std::string password;     // txtPass
  std::string owner;        // txtOwn
  std::string table;        // txtTable
};

/// A connection with the fields of the dialog for the length of a listing, on a session of its own:
/// a run that waits below the dialog keeps its connection. Failures show in message boxes.
class ConnectedListing {
 public:
  /// Connects, "@" references resolved.
  /// @param module  borrowed.
  /// @throws RuntimeFault  no such host object.
  ConnectedListing(ModuleCommun& module, const std::string& scenario,
                   const ConnectionFields& fields);
  ConnectedListing(const ConnectedListing&) = delete;
  ConnectedListing& operator=(const ConnectedListing&) = delete;

  /// Disconnects.
  ~ConnectedListing();

  /// False after a box: there is nothing to list.
  bool connected() const { return session_.connected; }

  OdbcSession& session() { return session_; }
  Catalogue& catalogue() { return catalogue_; }

 private:
  FailureBoxes boxes_;
  OdbcSession session_;
  Catalogue catalogue_;
};

}  // namespace imptable

#endif  // DIALOGS_CONNECTED_LISTING_H_
