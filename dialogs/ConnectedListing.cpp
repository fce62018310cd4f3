#include "dialogs/ConnectedListing.h"

#include <utility>

#include "dialogs/HostReference.h"

namespace imptable {

ConnectedListing::ListedTable::ListedTable(RunState& run, std::string owner, std::string table)
    : run_(run), owner_(std::move(owner)), table_(std::move(table)) {
  Exchange();
}

void ConnectedListing::ListedTable::Exchange() {
  std::swap(run_.owner, owner_);
  std::swap(run_.table, table_);
  std::swap(run_.duplicate_key, duplicate_key_);
}

ConnectedListing::ConnectedListing(ModuleCommun& module, const std::string& scenario,
                                   const ConnectionFields& fields)
    : table_(module.run, ResolveReference(module, scenario, fields.owner),
             ResolveReference(module, scenario, fields.table)),
      session_(module),
      catalogue_(module, session_) {
  session_.ConnectDataSource(ResolveReference(module, scenario, fields.data_source),
                             ResolveReference(module, scenario, fields.user),
                             ResolveReference(module, scenario, fields.password));
}

ConnectedListing::~ConnectedListing() {
  if (session_.connected) session_.DisconnectDataSource();
}

}  // namespace imptable
