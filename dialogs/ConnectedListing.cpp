#include "dialogs/ConnectedListing.h"

#include "dialogs/HostReference.h"

namespace imptable {

ConnectedListing::ConnectedListing(ModuleCommun& module, const std::string& scenario,
                                   const ConnectionFields& fields)
    : boxes_(module),
      session_(module.platform.message_loop, boxes_),
      catalogue_(session_, {ResolveReference(module, scenario, fields.owner),
                            ResolveReference(module, scenario, fields.table)}) {
  session_.ConnectDataSource(ResolveReference(module, scenario, fields.data_source),
                             ResolveReference(module, scenario, fields.user),
                             ResolveReference(module, scenario, fields.password));
}

ConnectedListing::~ConnectedListing() {
  if (session_.connected) session_.DisconnectDataSource();
}

}  // namespace imptable
