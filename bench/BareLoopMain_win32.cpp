// bare_loop SCENARIO TASK: prints the seconds of a bare loop over the task's lines.

#include <cstdio>
#include <exception>

#include "automation/AutomationModule.h"
#include "bench/BareLoop.h"

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("usage: bare_loop SCENARIO TASK\n", stderr);
    return 2;
  }
  try {
    imptable::AutomationModule program(GetModuleHandleW(nullptr));
    imptable::LoadedComponent& component = program.component();
    imptable::BareLoop loop(component.state(), arguments[1], arguments[2]);
    std::printf("%.6f\n", loop.Seconds());
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bare_loop: %s\n", error.what());
    return 1;
  }
}
