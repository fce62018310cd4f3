#include "host/Commands.h"
#include "odbc/ModuleODBC.h"

namespace imptable {

ExitCode ListSources(HostContext& context, const CommandRequest&, const HostConsole& console) {
  bool found = false;
  ListDataSources([&](const std::string& name) {
    found = true;
    console.out << name << '\n';
  });
  if (!found) PrintErrorLine(console.err, context.texts.Text(HostText::kNoSources));
  return ExitCode::kDone;
}

}  // namespace imptable
