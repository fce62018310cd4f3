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

/// A connection made with the dialog's fields for one listing. It has a session of its own, so that
/// a run that waits for the dialog keeps its connection. Failures show in message boxes.
class ConnectedListing {
 public:
  /// Connects with the fields, their "@" references resolved.
  /// @param module  borrowed.
  /// @throws RuntimeFault  no such host object.
  ConnectedListing(ModuleCommun& module, const std::string& scenario,
                   const ConnectionFields& fields);
  ConnectedListing(const ConnectedListing&) = delete;
  ConnectedListing& operator=(const ConnectedListing&) = delete;

  /// Disconnects.
  ~ConnectedListing();

  /// False when connecting failed: a box has said so, and nothing can be listed.
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
